#!/usr/bin/env bash
# A data folder the player cannot write, played in as that player: root's rights would
# write anyway, so root runs the driver as "nobody". Whole games are played and the
# program closes; each file that could not be written is named once, play goes on, and
# the folder is exactly as it was.
#   readonly_folder_test.sh CORVANNA-DRIVE
set -euo pipefail
work=$(mktemp -d)
trap 'chmod -R u+w "$work"; rm -rf "$work"' EXIT
chmod 755 "$work"
# The build may sit where the player cannot reach it (a checkout in root's 0700 home), so
# the driver runs from a copy here, with the assets folder the program looks for beside
# its executable; the player also starts in this folder, not in one it cannot enter.
mkdir "$work/bin"
cp "$1" "$work/bin/corvanna-drive"
if [ -d "$(dirname "$1")/assets" ]; then cp -R "$(dirname "$1")/assets" "$work/bin/"; fi
drive="$work/bin/corvanna-drive"
cd "$work"
failures=0

as_player() {
  if [ "$(id -u)" -eq 0 ]; then
    setpriv --reuid=65534 --regid=65534 --clear-groups env HOME="$work" "$@"
  else
    "$@"
  fi
}

# Every entry with its size, mode and time, and every file's bytes.
snapshot() {
  (cd "$1" && find . -printf '%p %s %m %T@\n' | sort && find . -type f -exec sha256sum {} + | sort)
}

fail() {
  echo "FAIL ($case): $*"
  failures=$((failures + 1))
}

# Two games with a setting changed, leaving and coming back, then closing. NAME is
# replaced by the lines that answer the name dialog where a score enters the table.
game='click frmTierfall.cmdPlay
click frmTierfall.cmdPause
click frmTierfall.cmdPause
advance 95000
click frmTierfall.cmdPause
click frmTierfall.cmdPause
advance 95000
NAME
advance 5000
get GameInProgress
get frmTierfall.lblMessage.Caption'
script="click frmSelect.cmdTierfall
click frmTierfall.mnuSounds
$game
answer Yes
click frmTierfall.cmdExit
click frmSelect.cmdTierfall
$game
answer Yes
click frmTierfall.cmdExit
close frmSelect"
name='type frmHiScoreName.txtPlayerName Ro Reader
click frmHiScoreName.cmdOK'

table="ES Tierfall Hi Score Table 11_90.Txt"

# check CASE FOLDER ASKED FILE... : plays the script in FOLDER as the player, answering
# the name dialog when ASKED is yes; FILEs are the ones that must each be named once.
check() {
  case="$1"
  local folder="$2" asked="$3"
  shift 3
  local before after out lines=""
  [ "$asked" = yes ] && lines="$name"
  before=$(snapshot "$folder")
  out=$(awk -v lines="$lines" '$0 == "NAME" { if (lines != "") print lines; next } { print }' \
    <<<"$script" | as_player "$drive" --data-dir "$folder/data") || fail "the driver exited with $?"
  after=$(snapshot "$folder")
  [ "$before" = "$after" ] || fail "the folder changed: $(diff <(echo "$before") <(echo "$after"))"
  # Play went on: both games ended in the game over, and the program closed.
  [ "$(grep -c -x -e False -e 'Game Over' <<<"$out")" -eq 4 ] || fail "the games did not end: $out"
  [ "$(tail -1 <<<"$out")" = quit ] || fail "the program did not close: $(tail -3 <<<"$out")"
  grep -v '^error: unanswered message box' <<<"$out" | grep '^error:' && fail "driver errors"
  # Only the questions on leaving were answered, so every other box shows as unanswered.
  local msgs
  msgs=$(sed -n 's/^error: unanswered message box: //p' <<<"$out")
  for f in "$@"; do
    local n
    n=$(grep -c -F "$folder/data/$f" <<<"$msgs" || true)
    [ "$n" -eq 1 ] || fail "'$f' named $n times, not once:
$msgs"
  done
  # The folder itself is named at start, and nothing else is said.
  local expected=$(($# + 1))
  [ "$(wc -l <<<"$msgs")" -eq "$expected" ] || fail "$(wc -l <<<"$msgs") messages, not $expected:
$msgs"
  grep -q -F "The data folder '$folder/data' cannot be created or written." <<<"$msgs" ||
    fail "the folder is not named at start: $msgs"
  echo "$case: $(wc -l <<<"$msgs") messages"
  sed 's/^/  /' <<<"$msgs"
}

# 1. A folder from earlier play, every file in place, made read-only. The table has room
#    for the score of 0, so a name is asked and the table would change.
mkdir -p "$work/kept/data"
for _ in $(seq 10); do printf 'Low, -5000, Jan 01 2026 12:00 am\r\n'; done >"$work/kept/data/$table"
printf 'click frmSelect.cmdTierfall\nanswer Yes\nclick frmTierfall.cmdExit\nclose frmSelect\n' |
  "$drive" --data-dir "$work/kept/data" >/dev/null
chmod -R a-w "$work/kept/data"
check "read-only folder with its files" "$work/kept" yes Played.ini Tierfall.Ini "$table" User.ini

# 2. An empty read-only folder: nothing can be made, not even the table.
mkdir -p "$work/empty/data"
chmod a-w "$work/empty/data"
check "empty read-only folder" "$work/empty" no Played.ini Tierfall.Ini "$table" User.ini

# 3. A folder that cannot even be made: its parent is read-only.
mkdir -p "$work/none"
chmod a-w "$work/none"
check "folder that cannot be made" "$work/none" no Played.ini Tierfall.Ini "$table" User.ini

[ "$failures" -eq 0 ] || exit 1
echo "all cases passed"
