#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The game's signature: a digest of what the simulator writes of 300 hands of
# each kind of match, on two seeds. Any change to the rules, the shuffle, the
# computer's play or the random stream changes it. A change meant so is
# committed with its new signature:
#   tests/firma_simulatore.sh build/lesta-sim > tests/firma_simulatore.sha256
# firma_simulatore.sh <lesta-sim> [<signature file to compare with>]
set -eu
sim=$1
firma=$(for partita in single 11 21; do
    for seme in 7 2026; do "$sim" --hands 300 --seed "$seme" --match "$partita"; done
done | sha256sum | cut -d ' ' -f 1)
if [ $# -lt 2 ]; then
    echo "$firma"
    exit 0
fi
attesa=$(cat "$2")
if [ "$firma" != "$attesa" ]; then
    echo "The game plays otherwise: signature $firma, committed $attesa." >&2
    echo "If the change is meant, commit the new signature (see $0)." >&2
    exit 1
fi
