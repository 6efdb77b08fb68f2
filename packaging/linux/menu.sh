#!/bin/sh
# Adds the game to this user's desktop menu, or takes it away again. Lies beside the program.
#   ./menu.sh poner
#   ./menu.sh quitar
set -eu

folder=$(cd "$(dirname "$0")" && pwd -P)
entry=${XDG_DATA_HOME:-$HOME/.local/share}/applications/falanges.desktop

# Desktops look for the program before they make one % of two: env, which they find, starts the path.
# A path inside a quoted Exec argument: the entry's own escapes, then those of its values.
quoted() {
  printf '"%s"' "$(printf '%s' "$1" | sed -e 's/["`$\\]/\\&/g' -e 's/\\/\\\\/g' -e 's/%/%%/g')"
}

put() {
  mkdir -p "$(dirname "$entry")"
  cat >"$entry" <<END
[Desktop Entry]
Type=Application
Name=Falanges Z
GenericName=Juego de tablero
Comment=Tome la bandera enemiga: juego de tablero para dos personas
Exec=env $(quoted "$folder/falanges")
Icon=$(printf '%s' "$folder/ico/tiempo.png" | sed 's/\\/\\\\/g')
Terminal=false
Categories=Game;BoardGame;
Keywords=tablero;estrategia;bandera;
StartupWMClass=falanges
END
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
