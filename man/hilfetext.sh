#!/bin/sh
# Stands in for a DORVANO program when help2man asks it for --help and --version:
# the program's own German help, with the headings help2man understands, and
# German words where Qt's built-in help options speak English.
# Called through a link named like the program; the real program is in
# $DORVANO_PROGRAMM, the version in $DORVANO_VERSION.
set -eu
case "${1:-}" in
--version)
    echo "$(basename "$0") $DORVANO_VERSION"
    exit 0
    ;;
esac
"$DORVANO_PROGRAMM" --help | sed \
    -e '/^Aufruf:/d' -e '/^Usage:/d' \
    -e 's/^Optionen:$/Options:/' \
    -e 's/^Arguments:$/Argumente:/' \
    -e 's/Displays help on commandline options\./Zeigt diese Hilfe an und beendet das Programm/' \
    -e 's/Displays help including Qt specific options\./Zeigt die Hilfe samt den Optionen von Qt an/' \
    -e 's/Displays help including generic Qt options\./Zeigt die Hilfe samt den Optionen von Qt an/' \
    -e 's/Displays version information\./Zeigt die Version an/'
