#!/bin/sh
# The demo collection as scripts/demo writes it (without starting the window),
# read back through dorvano-cli: its sizes, a painted JPEG cover for every box,
# each one its own picture, and the tags, stamp tags and watch lists.
# Aufruf: demo.sh QUELL_ORDNER BUILD_ORDNER
set -eu
quelle=$1 build=$2
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fehler() {
    echo "FEHLER: $*" >&2
    exit 1
}
export XDG_CONFIG_HOME="$tmp/konfig" DORVANO_BASIS=
ordner=$tmp/demo
"$quelle/scripts/demo" "$build" --nur-schreiben "$ordner" >/dev/null
cli() {
    "$build/bin/dorvano-cli" --basis "$ordner" "$@"
}

[ "$(cli anzahl)" = "$(printf 'Boxen: 300\nDvds: 380\nFilme: 640')" ] || fehler "Größen: $(cli anzahl)"

# Every box names its cover, and every cover is a JPEG of a case's proportions.
[ "$(cli liste --json | grep -o '"cover":"[0-9]*\.jpg"' | wc -l)" -eq 300 ] ||
    fehler "nicht jede Box hat ein Cover"
[ "$(file "$ordner"/Cover/*.jpg | grep -c 'JPEG image data.*, 300x420,')" -eq 300 ] ||
    fehler "Cover sind keine JPEG-Bilder von 300x420"
[ "$(md5sum "$ordner"/Cover/*.jpg | cut -d' ' -f1 | sort -u | wc -l)" -eq 300 ] ||
    fehler "Cover gleichen einander"

[ "$(cli tags suchen Klassiker | tail -n 1)" = "Gefundene Tags: 2" ] || fehler "Tags fehlen"
[ "$(cli stempeltags liste | wc -l)" -eq 3 ] || fehler "Stempel-Tags fehlen"
[ "$(cli vormerk zeigen 1 | tail -n 1)" = "Inhalt der Vormerkliste(n) [8 Elemente]" ] ||
    fehler "Vormerkliste 1: $(cli vormerk zeigen 1 | tail -n 1)"
[ "$(cli vormerk zeigen 2 | tail -n 1)" = "Inhalt der Vormerkliste(n) [4 Elemente]" ] ||
    fehler "Vormerkliste 2"
echo "Demo-Sammlung geprüft"
