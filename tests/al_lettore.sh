# SPDX-License-Identifier: GPL-3.0-or-later
# What the tests of the game as a screen reader meets it share, read by each
# (source) with its own arguments: the game, the listener's file and the file
# of Orca's voice, on the desktop of tests/sotto_x11 --ascolta --orca
# --parlato. The game is started with no sound card, and stopped at the end.
# shellcheck shell=bash

lesta=$1 eventi=$2 parlato=$3
export SDL_AUDIODRIVER=${SDL_AUDIODRIVER:-dummy}

"$lesta" &
pid=$!
trap 'kill $pid 2>/dev/null; wait $pid 2>/dev/null || true' EXIT

# attendi <what> <file> -E|-F <pattern>: until a line of the file matches
# the pattern (extended, or fixed), for thirty seconds at most and while the
# game runs; otherwise the test ends, failed, on all the listener heard and
# all Orca said.
attendi() {
    for _ in $(seq 300); do
        grep -q "$3" -- "$4" "$2" && return 0
        kill -0 $pid 2>/dev/null || break
        sleep 0.1
    done
    echo "$1 did not come; the listener heard:" >&2
    cat "$eventi" >&2
    echo "and Orca said:" >&2
    cat "$parlato" >&2
    exit 1
}
# shellcheck disable=SC2034 # the tab between the fields of both files' lines
t=$'\t'
