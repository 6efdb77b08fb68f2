#!/usr/bin/env bash
# Runs both fuzzers side by side for so many minutes and says where what they found lies; what they have
# learnt stays under build/fuzz for the next time.
#   tools/fuzz.sh MINUTES
set -euo pipefail
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."
source tools/packages.sh

fuzzers=(readers_fuzz program_fuzz)

main() {
  if [[ ! ${1:-} =~ ^[1-9][0-9]*$ ]]; then
    echo "Uso: tools/fuzz.sh MINUTOS" >&2
    exit 2
  fi
  install_missing play test
  cmake --preset clang -B build/fuzz -DCMAKE_CXX_COMPILER=clang++ -DFALANGES_QT=OFF \
    -DFALANGES_TESTS=OFF -DFALANGES_SANITIZE=ON -DFALANGES_FUZZ=ON >/dev/null
  cmake --build build/fuzz --target "${fuzzers[@]}"

  local fuzzer running=() failed=0
  for fuzzer in "${fuzzers[@]}"; do
    fuzz "$fuzzer" "$1" &
    running+=($!)
  done
  for fuzzer in "${!fuzzers[@]}"; do
    wait "${running[$fuzzer]}" || failed=1
    tail -n 1 "build/fuzz/${fuzzers[$fuzzer]}.log"
  done
  if ((failed)); then
    echo "Hallazgos: build/fuzz/*-crash-* (la causa, en build/fuzz/*.log)" >&2
    exit 1
  fi
}

# fuzz NAME MINUTES. Random bytes to begin with, since a short input reaches nothing.
fuzz() {
  local corpus=build/fuzz/$1-corpus i
  mkdir -p "$corpus"
  for i in {1..50}; do
    [[ -e $corpus/random-$i ]] || head -c 1000 /dev/urandom >"$corpus/random-$i"
  done
  UBSAN_OPTIONS=print_stacktrace=1 nice -n 10 "build/fuzz/tests/fuzz/$1" \
    -max_total_time="$((60 * $2))" -max_len=2000 -len_control=0 -report_slow_units=60 \
    -artifact_prefix="build/fuzz/$1-" "$corpus" >"build/fuzz/$1.log" 2>&1
}

main "$@"
