# Checks and tests, each told in one line, and their sum. To be sourced after tools/build.sh; the first
# failure ends the shell.

passed=0
skipped=0

# configure_build_check TITLE PRESET TARGET...
configure_build_check() {
  local title=$1 preset=$2 start=$SECONDS
  shift 2
  echo "$title: compilando (registro: build/$preset.log)"
  configure "$preset"
  build "$preset" "$@"
  succeeded "$title: compilado" "$start"
}

# check TITLE COMMAND...: one check, told in one line; what it prints is shown only when it fails.
check() {
  local title=$1 start=$SECONDS log=build/check.log
  shift
  "$@" >"$log" 2>&1 || failed "$title" "$log"
  succeeded "$title" "$start"
}

# run_tests PRESET LABEL: runs these tests and adds them up.
run_tests() {
  local title="Pruebas $1/$2" report=$PWD/build/$1-$2.xml log=build/$1-$2-tests.log start=$SECONDS
  ctest --preset "$1" --label-regex "^$2\$" --output-junit "$report" \
    >"$log" 2>&1 </dev/null || failed "$title" "$log"
  local counts
  counts=$(python3 - "$report" <<'END'
import sys
import xml.etree.ElementTree as tree
suite = tree.parse(sys.argv[1]).getroot()
tests, *not_run = (int(suite.get(key)) for key in ("tests", "failures", "skipped", "disabled"))
print(tests - sum(not_run), sum(not_run))
END
  )
  local ran left_out
  read -r ran left_out <<<"$counts"
  skipped=$((skipped + left_out))
  succeeded "$title: $ran" "$start" "$ran"
}

# succeeded TITLE START [HOW_MANY]
succeeded() {
  passed=$((passed + ${3:-1}))
  echo "$1: bien ($((SECONDS - $2)) s)"
}

failed() {
  # Without the lines about tests that were well.
  grep -vE ' Passed +[0-9.]+ sec$|^ *Start +[0-9]+: ' "$2" | tail -n 80 >&2
  echo "FALLÓ: $1 (registro: $2)" >&2
  exit 1
}

tell_sum() {
  if ((skipped)); then
    echo "$passed passed, 0 failed, $skipped skipped"
  else
    echo "$passed passed, 0 failed"
  fi
}
