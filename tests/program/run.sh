#!/usr/bin/env bash
# run.sh PROGRAM: starts the editor as a user would, closes its window by the window manager, and expects that it ends
# by itself, with nothing written to the terminal. Leaves itself out where there is no display.
set -euo pipefail
program=$1
[ -n "${DISPLAY:-}" ] || { echo "left out: there is no display"; exit 77; }

output=$(mktemp)
# Where no login has made one, the toolkit would complain about it on the terminal.
XDG_RUNTIME_DIR=$(mktemp -d)
export XDG_RUNTIME_DIR
trap 'kill "$editor" 2>/dev/null || true; rm -rf "$output" "$XDG_RUNTIME_DIR"' EXIT
"$program" >"$output" 2>&1 &
editor=$!
window=$(timeout 30 xdotool search --sync --onlyvisible --name '^Orvim Editor for macOS \(2026-07-11\)$' | head -1)
xdotool windowactivate --sync "$window"
xdotool key --window "$window" ctrl+7
xdotool key alt+F4

for _ in $(seq 100); do
  kill -0 "$editor" 2>/dev/null || break
  sleep 0.1
done
if kill -0 "$editor" 2>/dev/null; then echo "the editor goes on after its window was closed"; exit 1; fi
wait "$editor" || { echo "the editor ended with status $?"; exit 1; }
if [ -s "$output" ]; then echo "the editor wrote to the terminal:"; cat "$output"; exit 1; fi
