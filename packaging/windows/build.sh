# The Qt for Windows, and the build with it. To be sourced in the project folder by a bash that runs with
# errexit and pipefail, after tools/packages.sh and tools/build.sh.

# Where the preset "windows" looks for Qt, and where an archive of it may lie: building it takes long.
windows_qt=build/qt6-mingw64
windows_qt_archive=${FALANGES_QT_CACHE:-../shared/windows}/qt6-mingw64.tar.xz

# Unpacks Qt or builds it, if it is not there yet.
provide_windows_qt() {
  [[ ! -d $windows_qt ]] || return 0
  local log=$PWD/build/qt6-mingw64.log part=$PWD/$windows_qt.part
  mkdir -p build
  rm -rf "$part"
  if [[ -f $windows_qt_archive ]]; then
    echo "Qt para Windows: se toma de $windows_qt_archive"
    mkdir "$part"
    tar --extract --file "$windows_qt_archive" --directory "$part" --strip-components 1
  else
    echo "Qt para Windows: compilando, unos 20 minutos (registro: $log)"
    packaging/windows/build-qt.sh "$part" >"$log" 2>&1 || failed_build "$log"
  fi
  # Under its name only once it is whole.
  mv "$part" "$windows_qt"
}

# build_windows TARGET...
build_windows() {
  provide_windows_qt
  configure windows
  build windows "$@"
}
