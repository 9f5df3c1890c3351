#!/usr/bin/env bash
# tools/install-desktop in a scratch home: the menu entry runs the program with the
# file, *.tfl files are of our type with the program as their default, and
# --uninstall takes it all back.
# Usage: install_desktop_test.sh TOOLS/INSTALL-DESKTOP BUILT-PROGRAM
set -euo pipefail
installer="$1"
program="$2"
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
export XDG_DATA_HOME="$scratch/data" XDG_CONFIG_HOME="$scratch/config"
failures=0
check() {  # check WHAT COMMAND...
  local what="$1"
  shift
  if ! "$@"; then
    echo "FAILED: $what" >&2
    failures=$((failures + 1))
  fi
}

CORVANNA_PROGRAM="$program" "$installer" >/dev/null
entry="$XDG_DATA_HOME/applications/corvanna.desktop"
check "the entry runs the program with the file" grep -qxF "Exec=$program %f" "$entry"
check "the entry opens saved games" grep -qxF "MimeType=application/x-tierfall-game;" "$entry"
check "the entry is a game" grep -qx "Categories=Game;CardGame;" "$entry"
check "no placeholder is left" bash -c "! grep -q @ '$entry'"
if command -v update-mime-database >/dev/null; then
  check "*.tfl is our type" grep -qxF "50:application/x-tierfall-game:*.tfl" \
    "$XDG_DATA_HOME/mime/globs2"
fi
if command -v gio >/dev/null && command -v update-mime-database >/dev/null; then
  printf '[Card Goal]\r\n11\r\n' >"$scratch/evening.tfl"
  check "gio reads a .tfl as a saved game" bash -c \
    "gio info -a standard::content-type '$scratch/evening.tfl' |
       grep -qF 'standard::content-type: application/x-tierfall-game'"
  check "the program is the default for it" bash -c \
    "gio mime application/x-tierfall-game | grep -qF 'Default application for' &&
     gio mime application/x-tierfall-game | head -1 | grep -qF 'corvanna.desktop'"
fi

# A second install changes nothing but the entry it rewrites.
CORVANNA_PROGRAM="$program" "$installer" >/dev/null
check "the default is listed once" test "$(grep -c 'x-tierfall-game=corvanna' \
  "$XDG_CONFIG_HOME/mimeapps.list" || true)" = 1

# A path a desktop entry can't carry is refused, and nothing is written for it.
mkdir -p "$scratch/odd dir"
cp "$program" "$scratch/odd dir/corvanna"
check "a path with a blank is refused" bash -c \
  "! CORVANNA_PROGRAM='$scratch/odd dir/corvanna' '$installer' 2>/dev/null"
check "the entry still runs the first program" grep -qxF "Exec=$program %f" "$entry"

"$installer" --uninstall >/dev/null
check "the entry is gone" test ! -e "$entry"
check "the type is gone" test ! -e "$XDG_DATA_HOME/mime/packages/corvanna-tierfall.xml"
check "the default is gone" bash -c "! grep -q corvanna '$XDG_CONFIG_HOME/mimeapps.list'"
check "no cache names it" bash -c \
  "! grep -qs corvanna '$XDG_DATA_HOME/applications/mimeinfo.cache'"

[ "$failures" -eq 0 ] && echo "install-desktop: all checks passed"
exit "$failures"
