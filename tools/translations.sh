#!/bin/bash
# Brings translations/*.ts up to date with the texts of the sources: what is new there is unfinished, what is
# gone is gone. English has its plural forms alone. With a folder: the files that lie there. Called by ./dev
# translations, which sees to the packages, and by tools/check_translations.py.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
folder=${1:-translations}
tools=$(qmake -qt=qt5 -query QT_HOST_BINS 2>/dev/null || echo /usr/lib/qt5/bin)
for language in en pl de; do
    plurals=
    [ $language != en ] || plurals=-pluralonly
    "$tools/lupdate" -silent -no-obsolete -locations none $plurals -extensions cpp,h,ui -I src src \
        -source-language en -target-language $language -ts "$folder/varnelgraph_$language.ts"
done
