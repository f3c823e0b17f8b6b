#!/usr/bin/env bash
# run-on-virtual-display.sh PROGRAM [ARG...]: starts the program on a virtual display, saves a picture of its main
# window, says where it is, and stays until the program ends or is interrupted.
set -euo pipefail
if [ "${1:-}" != --inside ]; then
  echo "There is no display here; the editor starts on a virtual one."
  exec xvfb-run -a -s "-screen 0 1400x1100x24" "$0" --inside "$@"
fi
shift

picture=$PWD/build/screenshot.png
openbox 2>/dev/null &
manager=$!
"$@" &
editor=$!
trap 'kill "$editor" "$manager" 2>/dev/null || true' EXIT
trap 'exit 130' INT TERM

window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Orvim Editor for macOS' | head -1)
sleep 1
import -window "$window" "$picture"
echo "A picture of the main window: $picture"
echo "The editor goes on until it is interrupted (Ctrl+C)."
wait "$editor"
