#!/usr/bin/env bash
# Looks over the sources: format, which folder includes what, and left-over markers. Prints what is wrong; exit 1 then.
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0
report() { echo "$1" >&2; failed=1; }

# must_not_match WHY PATTERN PATH...: no tracked line of the paths may match.
must_not_match() {
  local why=$1 pattern=$2 rows
  shift 2
  rows=$(git grep -nIE "$pattern" -- "$@") && report "$why:"$'\n'"$rows"
}

if command -v clang-format >/dev/null; then
  rows=$(git ls-files -z '*.h' '*.cpp' | xargs -0 -n 40 -P "$(nproc)" clang-format --dry-run -Werror 2>&1 |
    sed -n 's/^\([^:]*\):.*error: code should be.*/\1/p' | sort -u)
  [ -z "$rows" ] || report "not formatted:"$'\n'"$rows"
else
  echo "check: clang-format is not installed; the format was left out"
fi

must_not_match "core/ takes the standard library alone" \
  '#include *[<"](Q[A-Z]|Qt|alsa/|sndfile|iconv|controls/|pages/|platform/|simulator/)' core
must_not_match "drawing takes no toolkit" '#include *<Q' \
  $(sed -n '/target_sources(/,/)/p' Orvim_Editor_mac/simulator/CMakeLists.txt |
    awk '/OrvimEditorApp/ {exit} {print}' | grep -oE '[A-Za-z0-9]+\.cpp' | sed 's|^|Orvim_Editor_mac/simulator/|')
must_not_match "a control knows no page and no long-lived object" \
  '#include *"(pages/|simulator/|MIDIOut|EditorRuntime|DisplaySimulatorState)' Orvim_Editor_mac/controls
must_not_match "platform knows no page" '#include *"(pages/|MIDIOutManager|EditorRuntime)' Orvim_Editor_mac/platform
must_not_match "only the platform folder knows the machine's libraries" '#include *<(alsa/|sndfile)' \
  core ':(glob)Orvim_Editor_mac/*.h' ':(glob)Orvim_Editor_mac/*.cpp' Orvim_Editor_mac/pages Orvim_Editor_mac/controls
must_not_match "left-over markers" '\b(TODO|FIXME|XXX|HACK)\b' '*.cpp' '*.h' '*.py' '*CMakeLists.txt' '*.cmake'

for page in Orvim_Editor_mac/pages/*.h; do
  name=$(basename "$page" PageView.h)
  [ "$name.h" = "$(basename "$page")" ] && continue
  others=$(git grep -lE "#include \"pages/${name}PageView.h\"" -- Orvim_Editor_mac/pages |
    grep -v "/${name}PageView.cpp")
  [ -z "$others" ] || report "a page includes another page: $others"
done
exit $failed
