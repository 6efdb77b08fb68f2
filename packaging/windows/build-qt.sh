#!/usr/bin/env bash
# Builds the static Qt for 64-bit Windows that the Windows program is linked with, from Debian's own Qt
# source with Debian's mingw-w64. Takes about 20 minutes and 2 GB on two processors.
#   packaging/windows/build-qt.sh TARGET [ARCHIVE.tar.xz]
# TARGET, which must not exist, is the folder to install to; it may be moved afterwards. ARCHIVE is an
# archive of it to make besides.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
source "$here/../../tools/packages.sh"

# Host tools of the same version build it: they generate code that must fit.
qt_version=$(dpkg-query --show --showformat='${source:Version}' qt6-base-dev)

main() {
  if (($# < 1 || $# > 2)) || [[ -e $1 ]]; then
    echo "Usage: $0 TARGET [ARCHIVE.tar.xz]   (TARGET must not exist)" >&2
    exit 2
  fi
  local target archive=${2:+$(realpath --canonicalize-missing "$2")}
  target=$(realpath --canonicalize-missing "$1")
  work=$(mktemp --directory)
  trap 'rm -rf "$work"' EXIT

  install_missing windows
  fetch_source
  configure_qt "$target"
  cmake --build "$work/build"
  cmake --install "$work/build"
  if [[ $archive ]]; then
    tar --create --xz --file "$archive" --directory "$(dirname "$target")" "$(basename "$target")"
  fi
}

# Unpacks the source to $work/source. The machine's package lists may name no sources: they are looked up
# where its Debian packages come from, in lists of this script's own.
fetch_source() {
  local lists=$work/apt
  mkdir -p "$lists/state/partial"
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sort --unique >"$lists/sources.list"
  local options=(
    --quiet
    -o Dir::Etc::SourceList="$lists/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o Dir::State::Lists="$lists/state" -o APT::Sandbox::User=root
  )
  apt-get "${options[@]}" update
  (cd "$work" && apt-get "${options[@]}" source --download-only "qt6-base=$qt_version")
  # Debian's changes come along: the build would differ from the host's Qt without them.
  dpkg-source --extract "$work"/qt6-base_*.dsc "$work/source"
}

configure_qt() {
  local off=(
    # What the game has no use for.
    network sql dbus printsupport xml concurrent vulkan zstd glib icu pdf
    textodfwriter textmarkdownreader textmarkdownwriter
    # Its headers are missing in Debian's source.
    tabletevent
    # Libraries of the build machine would be found and are of no use on the other system.
    pkg_config system_zlib system_png system_jpeg system_pcre2 system_harfbuzz system_freetype
    system_doubleconversion
  )
  local features=("${off[@]/#/-DFEATURE_}")
  features=("${features[@]/%/=OFF}")
  cmake -S "$work/source" -B "$work/build" -G Ninja \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
    -DCMAKE_INSTALL_PREFIX="$1" \
    -DCMAKE_TOOLCHAIN_FILE="$here/mingw-w64.cmake" \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(gcc -print-multiarch)/cmake" \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no \
    "${features[@]}"
}

main "$@"
