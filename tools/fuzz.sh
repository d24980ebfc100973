#!/usr/bin/env bash
# tools/fuzz.sh PROGRAM TARGET SECONDS FOLDER [libFuzzer arguments]
# Feeds one target from the builders' seeds and from what earlier runs found worth keeping. What
# makes it fail is kept in FOLDER/TARGET/finds.
set -euo pipefail

program=$1 target=$2 seconds=$3 folder=$4/$2
shift 4
mkdir -p "$folder/seeds" "$folder/corpus" "$folder/finds"
"$program" --target="$target" --write-seeds="$folder/seeds"
log=$folder/log
# A run of over ten seconds and two gigabytes are finds too: no input may cost so much.
if "$program" --target="$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$folder/finds/" -print_final_stats=1 "$@" \
  "$folder/corpus" "$folder/seeds" >"$log" 2>&1; then
  grep -E "stat::number_of_executed_units|^Done" "$log"
else
  tail -n 60 "$log"
  echo "fuzz: a find of $target; to run it again: $program --target=$target FILE, with FILE from $folder/finds"
  exit 1
fi
