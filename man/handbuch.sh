#!/bin/sh
# Writes the gzipped German manual page of a DORVANO program: help2man over the
# program's own help, for dorvano-cli the help of every command, and the
# hand-written sections of this folder.
# Aufruf: handbuch.sh PROGRAMM NAME VERSION ZIEL.1.gz
set -eu
programm=$1 name=$2 version=$3 ziel=$4
quelle=$(cd "$(dirname "$0")" && pwd)
arbeit=$(mktemp -d)
trap 'rm -rf "$arbeit"' EXIT

# The desktop program takes its single-instance lock before it reads its options;
# a runtime folder of its own keeps a running DORVANO from swallowing the help.
mkdir -m 700 "$arbeit/laufzeit"
export XDG_RUNTIME_DIR="$arbeit/laufzeit" QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
# A sanitizer build ends --help through exit(); what Qt still holds then is no leak.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0"
export DORVANO_PROGRAMM="$programm" DORVANO_VERSION="$version"
ln -s "$quelle/hilfetext.sh" "$arbeit/$name"

# One subsection for a command without commands below it: its purpose, then its
# usage and arguments as roff without filling, so the help's columns stay. The
# help option that every command has is left out, and a heading left empty by that.
abschnitt() {
    echo ".SS \"$1\""
    printf '%s\n' "$2" | awk '
        function roff(s) {
            gsub(/\\/, "\\\\e", s); gsub(/-/, "\\\\-", s)
            if (s ~ /^[.\047]/) s = "\\&" s
            return s
        }
        NR == 1 { print roff($0); print ".PP"; print ".nf"; next }
        /^  -h,--help / { next }
        /^[^ ].*:$/ { kopf = $0; next }
        /^$/ { if (!kopf) leer++; next }
        { while (leer) { print ""; leer-- } if (kopf) { print roff(kopf); kopf = "" } print roff($0) }
        END { print ".fi" }'
}

# The subsections of every command below the given words, in the order of the help.
befehle() (
    hilfe=$("$programm" "$@" --help)
    unter=$(printf '%s\n' "$hilfe" | awk '/^Befehle:$/ { b = 1; next } /^$/ { b = 0 } b { print $1 }')
    if [ -z "$unter" ]; then
        abschnitt "$*" "$hilfe"
        return
    fi
    for u in $unter; do befehle "$@" "$u"; done
)

zusatz=""
if [ "$name" = dorvano-cli ]; then
    {
        echo "[BEFEHLE IM EINZELNEN]"
        befehle
    } >"$arbeit/befehle.h2m"
    zusatz="--include=$arbeit/befehle.h2m"
fi

kurz=$("$arbeit/$name" --help | head -n 1 | sed 's/^DORVANO: //')
# shellcheck disable=SC2086
help2man --no-info --locale=C.UTF-8 --section=1 --name="$kurz" \
    --manual="DORVANO-Handbuch" --source="DORVANO $version" \
    $zusatz --include="$quelle/$name.h2m" --include="$quelle/ordner.h2m" \
    --output="$arbeit/$name.1" "$arbeit/$name"

# help2man names the sections in English unless a German locale is installed;
# the page is German whatever the build machine has. The date comes from
# SOURCE_DATE_EPOCH when set, so that a rebuild gives the same page. German words
# are not hyphenated: groff knows only English patterns here.
datum=$(date -u ${SOURCE_DATE_EPOCH:+-d @$SOURCE_DATE_EPOCH} +%Y-%m-%d)
{
    echo "'\\\" -*- coding: UTF-8 -*-"
    sed -e 's/^\.SH NAME$/.SH BEZEICHNUNG/' \
        -e 's/^\.SH SYNOPSIS$/.SH ÜBERSICHT/' \
        -e 's/^\.SH DESCRIPTION$/.SH BESCHREIBUNG/' \
        -e 's/^\.SH OPTIONS$/.SH OPTIONEN/' \
        -e 's/^\.SH "EXIT STATUS"$/.SH EXIT\\-STATUS/' \
        -e 's/^\.SH ENVIRONMENT$/.SH UMGEBUNG/' \
        -e 's/^\.SH FILES$/.SH DATEIEN/' \
        -e 's/^\.SH "SEE ALSO"$/.SH "SIEHE AUCH"/' \
        -e "s/^\\(\\.TH [^ ]* \"1\"\\) \"[^\"]*\"/\\1 \"$datum\"/" \
        -e '/^\.TH /a .nh' \
        "$arbeit/$name.1"
} | gzip -9n >"$ziel.neu"
mv "$ziel.neu" "$ziel"
