#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The game's window as a screen reader meets it, on the desktop that
# tests/sotto_atspi makes with its listener and Orca: the window's title and
# GO holding the keyboard reach the listener, and Orca says the title; Enter,
# pressed with xdotool, reaches the game (GO starts the hand: the start panel
# goes) and Orca (it echoes the key), and Orca hears the next key too.
#
#   tests/sotto_atspi --ascolta=Lesta --eventi=E --orca=D --parlato=P -- \
#       tests/finestra_al_lettore.sh <lesta> E P
set -euo pipefail

lesta=$1 eventi=$2 parlato=$3
command -v xdotool >/dev/null || { echo "xdotool is missing: scripts/installa-pacchetti installs it" >&2; exit 1; }
# Orca's words are checked in English: the test runs with LANG=C.UTF-8.
export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy}  # no sound card

"$lesta" &
pid=$!
trap 'kill $pid 2>/dev/null; wait $pid 2>/dev/null || true' EXIT

attendi() {  # attendi <what> <file> <extended regular expression>
    for _ in $(seq 300); do
        grep -qE "$3" "$2" && return 0
        kill -0 $pid 2>/dev/null || break
        sleep 0.1
    done
    echo "$1 did not come; the listener heard:" >&2
    cat "$eventi" >&2
    echo "and Orca said:" >&2
    cat "$parlato" >&2
    exit 1
}
t=$'\t'
attendi "the window's title" "$eventi" "^window:activate${t}frame${t}Brontex - Lesta${t}"
attendi "GO holding the keyboard" "$eventi" "^focus:${t}push button${t}GO${t}"
attendi "Orca saying the title" "$parlato" "^parla${t}[01]${t}Brontex - Lesta"
xdotool key Return
attendi "the start panel going" "$eventi" "^object:state-changed:showing${t}push button${t}GO${t}0${t}"
attendi "Orca's echo of Enter" "$parlato" "^tasto${t}0${t}return"
# A second key, the hand's first card: Orca still hears the keys after the
# game has taken one.
xdotool key 1
attendi "Orca's echo of 1" "$parlato" "^tasto${t}0${t}1$"
