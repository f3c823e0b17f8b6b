#!/bin/sh
# tools/fuzz.sh SECONDS [TARGET...]: builds the fuzz targets and runs each, or those named, over its corpus and then for
# SECONDS more. New inputs stay in the build folder; what breaks a target lies there as TARGET-crash-... and the run
# fails. Such an input, once mended, belongs into tests/fuzz/corpus/TARGET.
set -eu
seconds=${1:?usage: tools/fuzz.sh SECONDS [TARGET...]}
shift
cd "$(dirname "$0")/.."
if ! command -v clang++ >/dev/null; then
  echo "fuzz: clang++ is not installed; the corpora are replayed by the ordinary tests" >&2
  exit 0
fi
cmake --preset fuzz >/dev/null
[ $# -gt 0 ] || set -- $(ls tests/fuzz/corpus)
for target in "$@"; do
  cmake --build --preset fuzz --target "fuzz_$target" >build/fuzz/build.log || { cat build/fuzz/build.log >&2; exit 1; }
done
failed=0
for target in "$@"; do
  found=build/fuzz/found/$target
  mkdir -p "$found"
  log=build/fuzz/$target.log
  case $target in
    formula | user_waveform_wav) dictionary= ;;
    *) dictionary=-dict=tests/fuzz/midi.dict ;;
  esac
  if build/fuzz/tests/fuzz/fuzz_"$target" -max_total_time="$seconds" -rss_limit_mb=1024 -timeout=10 -max_len=65536 \
    $dictionary -artifact_prefix="build/fuzz/$target-" "$found" "tests/fuzz/corpus/$target" 2>"$log"; then
    echo "fuzz: $target: $(sed -n 's/^Done \([0-9]*\) runs.*/\1/p' "$log") runs, nothing found"
  else
    echo "fuzz: $target FAILED, see $log" >&2
    tail -n 40 "$log" >&2
    failed=1
  fi
done
exit $failed
