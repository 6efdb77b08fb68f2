# Configuring and building for the two commands. To be sourced in the project folder by a bash that runs
# with errexit and pipefail.

# configure PRESET [OPTION...]: full log in build/PRESET-configure.log.
configure() {
  local preset=$1 folder=build/$1 log=build/$1-configure.log fresh=()
  shift
  mkdir -p build
  # A build folder that came along with a moved or copied project still names the old place.
  if [[ -f $folder/CMakeCache.txt ]] &&
    ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$folder/CMakeCache.txt"; then
    fresh=(--fresh)
  fi
  cmake "${fresh[@]}" --preset "$preset" "$@" >"$log" 2>&1 || failed_build "$log"
}

# build PRESET TARGET...: one line of progress, full log in build/PRESET.log.
build() {
  local preset=$1 log=build/$1.log
  shift
  cmake --build --preset "$preset" --target "$@" 2>&1 | tee "$log" | show_progress ||
    failed_build "$log"
}

# Reads ninja's lines "[3/120] ..." and keeps one line up to date where somebody is looking.
show_progress() {
  local line
  while IFS= read -r line; do
    if [[ -t 1 && $line =~ ^\[([0-9]+)/([0-9]+)\] ]]; then
      printf '\rCompilando… %3d %%' $((100 * BASH_REMATCH[1] / BASH_REMATCH[2]))
    fi
  done
  [[ ! -t 1 ]] || printf '\r\033[K'
}

failed_build() {
  grep -v '^\[[0-9]*/[0-9]*\]' "$1" | tail -n 40 >&2
  echo "No se pudo compilar. El registro completo está en $1" >&2
  return 1
}
