#!/bin/sh
# Adds the game to this user's desktop menu, or takes it away again. Lies beside the program.
#   ./menu.sh poner
#   ./menu.sh quitar
set -eu

refuse() {
  printf '%s\n' "$1" >&2
  exit 1
}

# Without cd, which CDPATH may lead elsewhere; and a link to this script leads to the game, too.
script=$(readlink -f -- "$0")
folder=${script%/*}
entry=${XDG_DATA_HOME:-${HOME:?No se sabe cuál es su carpeta personal}/.local/share}/applications/falanges.desktop

# What an entry cannot hold, or would take for lines of its own, and what the game would refuse.
check_folder() {
  [ "$(printf '%s' "$folder" | tr -d '[:cntrl:]')" = "$folder" ] &&
    printf '%s' "$folder" | iconv -f UTF-8 -t UTF-8 >/dev/null 2>&1 ||
    refuse "El nombre de esta carpeta, o de una que la contiene, tiene caracteres que el menú no admite. Cámbielo y repita: ./menu.sh poner"
  [ -x "$folder/falanges" ] || refuse "El juego no está junto a menu.sh: falta $folder/falanges"
}

# A path inside a quoted Exec argument: the entry's own escapes, then those of its values.
quoted() {
  printf '"%s"' "$(printf '%s' "$1" | sed -e 's/["`$\\]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g')"
}

# Desktops look for the program before they make one % of two: nice, which they find, starts the path.
# (env would take a path with = for a variable.)
print_entry() {
  cat <<END
[Desktop Entry]
Type=Application
Name=Falanges Z
GenericName=Juego de tablero
Comment=Tome la bandera enemiga: juego de tablero para dos personas
Exec=nice -n 0 $(quoted "$folder/falanges")
Icon=$(printf '%s' "$folder/ico/tiempo.png" | sed 's/\\/\\\\/g')
Terminal=false
Categories=Game;BoardGame;
Keywords=tablero;estrategia;bandera;
StartupWMClass=falanges
END
}

put() {
  check_folder
  if ! { mkdir -p "${entry%/*}" && print_entry >"$entry"; }; then
    rm -f "$entry"
    refuse "No se puede guardar el archivo: $entry"
  fi
  echo "El juego está en el menú. Si mueve esta carpeta, repita: ./menu.sh poner"
}

case ${1:-} in
  poner) put ;;
  quitar)
    rm -f "$entry"
    echo "El juego ya no está en el menú."
    ;;
  *)
    echo "Uso: ./menu.sh poner | quitar" >&2
    exit 2
    ;;
esac
