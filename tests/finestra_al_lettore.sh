#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The game's window as a screen reader meets it, on the desktop that
# tests/sotto_x11 makes with its listener and Orca: the window's title and
# GO holding the keyboard reach the listener, and Orca says the title; Enter,
# pressed with xdotool, reaches the game (GO starts the hand: the start panel
# goes) and Orca (it echoes the key), and Orca hears the next key too.
#
#   tests/sotto_x11 --ascolta=Lesta --eventi=E --orca=D --parlato=P -- \
#       tests/finestra_al_lettore.sh <lesta> E P
set -euo pipefail

# Orca's words are checked in English: the test runs with LANG=C.UTF-8.
source "$(dirname "${BASH_SOURCE[0]}")/al_lettore.sh"

attendi "the window's title" "$eventi" -E "^window:activate${t}frame${t}Brontex - Lesta${t}"
attendi "GO holding the keyboard" "$eventi" -E "^focus:${t}push button${t}GO${t}"
attendi "Orca saying the title" "$parlato" -E "^parla${t}[01]${t}Brontex - Lesta"
xdotool key Return
attendi "the start panel going" "$eventi" -E "^object:state-changed:showing${t}push button${t}GO${t}0${t}"
attendi "Orca's echo of Enter" "$parlato" -E "^tasto${t}0${t}return"
# A second key, the hand's first card: Orca still hears the keys after the
# game has taken one.
xdotool key 1
attendi "Orca's echo of 1" "$parlato" -E "^tasto${t}0${t}1$"
