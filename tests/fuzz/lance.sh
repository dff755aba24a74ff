#!/usr/bin/env bash
# lance.sh [--runs N] [--bin FOLDER] [TARGET...]: runs the fuzz targets one after the other, all of them without a name,
# a million executions each, and prints a line of figures for each. They begin with the seeds that stand here and keep
# what they find interesting beside the build for the next time; an input that fails stands there too. The status is
# that of the worst.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
runs=1000000
bin=$here/../../build/fuzz/bin
while [ $# -gt 0 ]; do
  case $1 in
    --runs) runs=${2:?}; shift 2 ;;
    --bin) bin=${2:?}; shift 2 ;;
    *) break ;;
  esac
done
[ $# -gt 0 ] || set -- profil rtf base markup source cv2 dv2 dossiers

worst=0
for target in "$@"; do
  kept=$bin/../corpus/$target
  found=$bin/../trouvailles/
  log=$bin/../$target.log
  mkdir -p "$kept" "$found"
  words=()
  [ ! -e "$here/mots/$target.dict" ] || words=("-dict=$here/mots/$target.dict")
  status=0
  # Weighing the inputs by their rarest features takes up to half of the time of a short input.
  "$bin/fuzz_$target" -runs="$runs" -max_len=4096 -entropic=0 -timeout=20 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$found$target-" "${words[@]}" "$kept" "$here/graines/$target" >"$log" 2>&1 || status=$?
  figure() { awk -v name="stat::$1:" '$1 == name { print $2 }' "$log"; }
  printf '%-8s %9s executions, %6s a second, %6s s, longest %s s, status %s\n' "$target" \
    "$(figure number_of_executed_units)" "$(figure average_exec_per_sec)" \
    "$(awk '/^Done/ { print $5 }' "$log")" "$(figure slowest_unit_time_sec)" "$status"
  [ "$status" = 0 ] || { worst=$status; grep -m 3 -E 'ERROR|SUMMARY|Test unit written' "$log" || true; }
done
exit "$worst"
