#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Every source file of the game says its licence in its first three lines.
# licenza.sh <source folder>
set -eu
senza=$(find "$1" \( -name 'build*' -o -name .git \) -prune -o -type f \
    \( -name '*.cpp' -o -name '*.h' -o -name CMakeLists.txt -o -name '*.cmake' -o -name '*.py' -o -name '*.sh' \
       -o -name Makefile \) -print |
    while read -r f; do head -n 3 "$f" | grep -q 'SPDX-License-Identifier: GPL-3.0-or-later' || echo "$f"; done)
if [ -n "$senza" ]; then
    echo "No licence line in:" >&2
    echo "$senza" >&2
    exit 1
fi
