# Running Windows programs here: Wine with a user of its own, on a screen of its own. To be sourced by a
# bash that runs with errexit, in the project folder.

# start_wine PREFIX: PREFIX is the folder of Wine's Windows; it is made if need be. All ends with the shell.
start_wine() {
  WINE=/usr/lib/wine/wine64
  WINEPREFIX=$(realpath --canonicalize-missing "$1")
  # Neither .NET nor a browser is wanted, and no word of Wine's own.
  WINEDLLOVERRIDES='mscoree=;mshtml='
  WINEDEBUG=-all
  # The folder of this user has a blank and accents, as have those of many players.
  USER='José Núñez'
  LC_ALL=C.UTF-8
  export WINE WINEPREFIX WINEDLLOVERRIDES WINEDEBUG USER LC_ALL
  wine_processes=()
  trap stop_wine EXIT

  start_screen
  if [[ ! -d $WINEPREFIX ]]; then
    local fonts=$WINEPREFIX/drive_c/windows/Fonts
    mkdir -p "$fonts"
    cp /usr/share/wine/fonts/* "$fonts"
    "$WINE" winecfg -v win10 >"$WINEPREFIX.log" 2>&1
  fi
}

# A screen with a window manager: without one no window would get the keyboard.
start_screen() {
  local number=$WINEPREFIX.display
  mkdir -p "$(dirname "$number")"
  : >"$number"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number" >/dev/null 2>&1 &
  wine_processes+=($!)
  local tries
  for ((tries = 0; tries < 100; ++tries)); do
    [[ ! -s $number ]] || break
    sleep 0.1
  done
  DISPLAY=:$(<"$number")
  export DISPLAY
  openbox >/dev/null 2>&1 &
  wine_processes+=($!)
}

stop_wine() {
  /usr/lib/wine/wineserver -k || true
  kill "${wine_processes[@]}" 2>/dev/null || true
}
