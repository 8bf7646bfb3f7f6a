#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The screen check's message as a screen reader meets it, on a screen too
# narrow for the game (tests/sotto_x11 --schermo=800x600): a message box,
# an alert to the listener, with the message in it; Orca says it, and Enter
# on its OK ends the program.
#
#   tests/sotto_x11 --schermo=800x600 --ascolta=Lesta --eventi=E --orca=D --parlato=P -- \
#       tests/messaggio_al_lettore.sh <lesta> E P
set -euo pipefail

source "$(dirname "${BASH_SOURCE[0]}")/al_lettore.sh"
messaggio="Screen resolution too low. Risoluzione di schermo troppo bassa"

attendi "the message box, an alert" "$eventi" -F "window:activate${t}alert${t}"
attendi "the message in it" "$eventi" -F "$messaggio"
attendi "Orca saying the message" "$parlato" -F "$messaggio"
xdotool key Return
# The program must end by itself: a guard ends it after ten seconds.
(sleep 10 && kill $pid 2>/dev/null) &
guardia=$!
esito=0
wait $pid || esito=$?
trap - EXIT
kill $guardia 2>/dev/null || true
[[ $esito -eq 0 ]] || { echo "Enter on OK did not end the program ($esito)" >&2; exit 1; }
