#!/bin/sh
# Succeeds where the system has every library that the program asks of it, in a folder where it can find its
# own; says what is missing otherwise, as a reason for the player. Lies in lib/, and the starter asks it.
#   check.sh PROGRAM

# Qt takes every path for UTF-8, and could not even load what it needs for a window.
if command -v iconv >/dev/null && ! printf '%s' "$1" | iconv -f UTF-8 -t UTF-8 >/dev/null 2>&1; then
  echo "El nombre de su carpeta, o el de una por encima de ella,
no está escrito en UTF-8. Cambie ese nombre
o copie el programa a otra carpeta."
  exit 1
fi

# The loader lists what it would load, and starts nothing. Its way to the screen counts, too; $ORIGIN is the
# loader's word for the program's folder, whose real path may have blanks that it can't take here.
if [ -n "${DISPLAY:-}" ]; then screen=xcb; else screen=wayland-generic; fi
list=$(LD_TRACE_LOADED_OBJECTS=1 LD_PRELOAD="\$ORIGIN/plugins/platforms/libq$screen.so" "$1" 2>&1) ||
  list="$list
$1 => not found"
missing=$(printf '%s\n' "$list" | sed -n \
  -e 's/^[[:space:]]*\(.*\) => not found.*/\1/p' \
  -e "s/.*version [\`']\(.*\)' not found.*/\1/p" |
  sort --reverse --version-sort | awk -F_ '!told[$1]++') # of each library the newest version that it needs
[ -n "$missing" ] || exit 0

printf '%s\n' "A este sistema le falta,
o tiene demasiado antiguo, lo siguiente:

$missing

Instálelo con el programa que instala los demás,
o actualice el sistema."
exit 1
