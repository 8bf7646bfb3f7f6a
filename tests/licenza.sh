#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Every source file of the game says its licence in its first three lines.
# In a git checkout the files are those git knows (tracked, or new and not
# ignored); elsewhere, as in an unpacked source package, every file of the
# folder but those of a build folder, whatever its name: a folder that holds
# a CMakeCache.txt.
# licenza.sh <source folder>
set -eu
cd "$1"
sorgenti() {
    if [ "$(git rev-parse --show-toplevel 2>/dev/null)" = "$(pwd -P)" ]; then
        git -c core.quotePath=false ls-files --cached --others --exclude-standard
    else
        find . -name .git -prune -o -type d -exec test -e '{}/CMakeCache.txt' ';' -prune -o -type f -print
    fi
}
senza=$(sorgenti | while IFS= read -r f; do
    case ${f##*/} in
        *.cpp | *.h | CMakeLists.txt | *.cmake | *.py | *.sh | Makefile)
            [ ! -f "$f" ] || head -n 3 "$f" | grep -q 'SPDX-License-Identifier: GPL-3.0-or-later' || echo "$f" ;;
    esac
done)
if [ -n "$senza" ]; then
    echo "No licence line in:" >&2
    echo "$senza" >&2
    exit 1
fi
