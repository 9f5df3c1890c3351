#!/bin/bash
# The shared layers name no particular game: whatever they need of one comes from its
# row. Every line that names one is listed.
#   no_game_names_test.sh SRC_DIR
set -u
src=$1
hits=$(grep -rniE 'tierfall|fivestack|hitspree|spirefold|duomatch|colclear|gridflush|lettermine|wildslot' \
    "$src/common" "$src/scores" "$src/shell")
status=$?
if [ $status -gt 1 ]; then
    echo "the shared layers under $src could not be searched"
    exit 1
fi
if [ -n "$hits" ]; then
    echo "$(printf '%s\n' "$hits" | wc -l) lines of src/common, src/scores and src/shell name a game:"
    printf '%s\n' "$hits" | sed "s|^$src/||"
    exit 1
fi
echo "no game named in src/common, src/scores or src/shell"
