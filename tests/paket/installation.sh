#!/bin/sh
# Installs the build into a temporary DESTDIR and checks what a desktop finds
# there: exactly the expected files, a desktop entry and metainfo that their
# validators accept, a MIME type that tells a box file by its header (and not a
# text file), manual pages that man renders without a warning, and programs that run.
# Aufruf: installation.sh BUILD_ORDNER MIMETYP_PROGRAMM
set -eu
build=$1 mimetyp=$2
liste=$(dirname "$0")/dateien.txt
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
ziel=$tmp/wurzel
fehler() {
    echo "FEHLER: $*" >&2
    exit 1
}

DESTDIR=$ziel cmake --install "$build" --prefix /usr >/dev/null

(cd "$ziel" && find . -type f | sort) >"$tmp/ist"
sed 's|^|./|' "$liste" | sort >"$tmp/soll"
diff -u "$tmp/soll" "$tmp/ist" || fehler "installierte Dateien weichen ab"

# Each PNG is the size its folder promises.
for png in "$ziel"/usr/share/icons/hicolor/*x*/apps/dorvano.png; do
    groesse=$(basename "$(dirname "$(dirname "$png")")")
    file "$png" | grep -q "PNG image data, ${groesse%x*} x ${groesse#*x}," ||
        fehler "$png ist kein PNG von $groesse"
done

desktop-file-validate "$ziel/usr/share/applications/dorvano.desktop" ||
    fehler "Desktop-Eintrag ungültig"
appstreamcli validate --no-net "$ziel/usr/share/metainfo/de.tormel.dorvano.metainfo.xml" ||
    fehler "Metainfo ungültig"

# The installed command-line program runs and writes a real box file.
cli() {
    XDG_CONFIG_HOME=$tmp/konfig DORVANO_BASIS= "$ziel/usr/bin/dorvano-cli" --basis "$tmp/sammlung" "$@"
}
cli --help | grep -q '^Befehle:' || fehler "dorvano-cli --help zeigt keine Befehle"
cli neu box --titel "Probe" --ean 4006381333931 >/dev/null
mkdir "$tmp/export"
cli exportieren 1 "$tmp/export" >/dev/null
box=$tmp/export/4006381333931.box

# The MIME rule: a box file is known by its name and, renamed, by its header; a
# text file without a name that helps is not taken for one.
mime=$ziel/usr/share/mime
update-mime-database "$mime"
cp "$box" "$tmp/ohne_endung"
printf 'Boxen: 1\nDvds: 1\nFilme: 1\n' >"$tmp/notiz"
XDG_DATA_HOME=$tmp/leer XDG_DATA_DIRS=$ziel/usr/share:/usr/share \
    "$mimetyp" "$box" "$tmp/ohne_endung" "$tmp/notiz" >"$tmp/typen"
printf 'application/x-dorvano-box\napplication/x-dorvano-box\ntext/plain\n' >"$tmp/typen_soll"
diff -u "$tmp/typen_soll" "$tmp/typen" || fehler "MIME-Typen weichen ab"

# Manual pages: man renders them without warnings, and the command-line page
# carries the help of commands below a command group.
for seite in dorvano dorvano-cli; do
    warnungen=$(MANWIDTH=80 man --warnings -l "$ziel/usr/share/man/man1/$seite.1.gz" 2>&1 >/dev/null)
    [ -z "$warnungen" ] || fehler "man warnt bei $seite.1: $warnungen"
done
zcat "$ziel/usr/share/man/man1/dorvano-cli.1.gz" | grep -q '^\.SS "tags setzen"$' ||
    fehler "dorvano-cli.1 ohne die Hilfe von 'tags setzen'"
zcat "$ziel/usr/share/man/man1/dorvano.1.gz" | grep -q 'fenster\\-zuruecksetzen' ||
    fehler "dorvano.1 ohne --fenster-zuruecksetzen"
echo "Installation geprüft"
