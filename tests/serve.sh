#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# The test that calls this needs these programs. One missing skips the test
# (exit code 77, which CTest reports as skipped), unless LESTA_TUTTI_I_TEST
# is set, as `make test` and `make package` set it: then the test fails.
# serve.sh <program>...
for programma; do
    command -v "$programma" >/dev/null 2>&1 && continue
    echo "$programma is missing: scripts/installa-pacchetti installs it" >&2
    [ -n "${LESTA_TUTTI_I_TEST:-}" ] && exit 1
    exit 77
done
