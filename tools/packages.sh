# Debian packages by purpose, and one function that installs what is missing. To be sourced by bash.

# Compiling the program, rendering its pictures, running it.
packages_play=(
  g++ cmake ninja-build
  qt6-base-dev qt6-base-dev-tools qt6-translations-l10n
  librsvg2-bin imagemagick
  fontconfig fonts-liberation
)
# A screen that speaks Wayland alone needs Qt's plugin for it.
if [[ -n ${WAYLAND_DISPLAY:-} && -z ${DISPLAY:-} ]]; then
  packages_play+=(qt6-wayland)
fi

# A screen that nobody sits at, and hands and eyes to play there.
packages_demo=(
  xvfb openbox xdotool x11-utils imagemagick
  dbus at-spi2-core gir1.2-atspi-2.0 python3 python3-gi
)

# Compiling and running the tests and static checks.
packages_test=(
  libgtest-dev libgmock-dev libbenchmark-dev ccache python3
  clang clang-format clang-tidy cppcheck
  desktop-file-utils fonts-dejavu-core
)

# Making the archives for the players.
packages_archive=(cmark-gfm qt6-wayland)

# Measuring the windows.
packages_bench=(xvfb openbox python3-xlib libbenchmark-dev)

# Compiling the Windows program, and running it and its tests. The static Qt is built with the host tools
# and sources of the same packages as the Linux one.
packages_windows=(
  g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev
  wine wine64 fonts-wine fonts-liberation
  cmake ninja-build qt6-base-dev qt6-base-dev-tools dpkg-dev xz-utils
)

# install_missing PURPOSE...: installs the packages of these purposes that are not there yet. Returns 1
# after a line for the player when that isn't allowed or fails.
install_missing() {
  local purpose package missing=() as_root=()
  for purpose in "$@"; do
    local -n packages=packages_$purpose
    for package in "${packages[@]}"; do
      is_installed "$package" || missing+=("$package")
    done
  done
  ((${#missing[@]})) || return 0

  if ! command -v apt-get >/dev/null; then
    echo "Este sistema no usa paquetes de Debian. Hace falta lo que allí se llama: ${missing[*]}" >&2
    return 1
  fi
  if ((EUID != 0)); then
    if ! sudo -n true 2>/dev/null; then
      echo "Faltan paquetes. Instálelos con: sudo apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo -n)
  fi
  echo "Instalando: ${missing[*]}"
  local log
  log=$(mktemp)
  # Package lists may be missing or too old: only then are they fetched.
  if apt_get install "${missing[@]}" || { apt_get update && apt_get install "${missing[@]}"; }; then
    rm -f "$log"
    return 0
  fi
  tail -n 20 "$log" >&2
  echo "No se pudieron instalar los paquetes (registro: $log). Pruebe: sudo apt-get install ${missing[*]}" >&2
  return 1
}

is_installed() {
  [[ $(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Uses as_root and log of install_missing.
apt_get() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get --yes --quiet --no-install-recommends -o DPkg::Lock::Timeout=120 "$@" \
    </dev/null >>"$log" 2>&1
}
