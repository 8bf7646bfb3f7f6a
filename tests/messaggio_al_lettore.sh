#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The screen check's message as a screen reader meets it, on a screen too
# narrow for the game (tests/sotto_atspi --schermo=800x600): a message box,
# an alert to the listener, with the message in it; Orca says it, and Enter
# on its OK ends the program.
#
#   tests/sotto_atspi --schermo=800x600 --ascolta=Lesta --eventi=E --orca=D --parlato=P -- \
#       tests/messaggio_al_lettore.sh <lesta> E P
set -euo pipefail

lesta=$1 eventi=$2 parlato=$3
export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy}  # no sound card
messaggio="Screen resolution too low. Risoluzione di schermo troppo bassa"

"$lesta" &
pid=$!
trap 'kill $pid 2>/dev/null; wait $pid 2>/dev/null || true' EXIT

attendi() {  # attendi <what> <file> <fixed string>
    for _ in $(seq 300); do
        grep -qF -- "$3" "$2" && return 0
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
attendi "the message box, an alert" "$eventi" "window:activate${t}alert${t}"
attendi "the message in it" "$eventi" "$messaggio"
attendi "Orca saying the message" "$parlato" "$messaggio"
xdotool key Return
# The program must end by itself: a guard ends it after ten seconds.
(sleep 10 && kill $pid 2>/dev/null) &
guardia=$!
esito=0
wait $pid || esito=$?
trap - EXIT
kill $guardia 2>/dev/null || true
[[ $esito -eq 0 ]] || { echo "Enter on OK did not end the program ($esito)" >&2; exit 1; }
