#!/bin/sh
# Whole-process timings of the retrieval commands of dorvano-cli (start to exit)
# on the generated collection of 20,000 boxes, 25,000 DVDs and 50,000 films, and
# the same film and box questions put to an indexed SQLite database of that
# collection through the sqlite3 program, beside the read floor: reading every
# table file once with cat. Then the peak memory of each question
# (/usr/bin/time -v), and the same questions on the collection at two and five
# times the size (40,000 and 100,000 boxes).
#
#   bench/retrieval.sh [BUILD_DIR] [FACTORS]   (default: build "1 2 5")
#
# Needs hyperfine, sqlite3 and GNU time (scripts/install-deps installs them).
# The prepared folder /tmp/dorvano-retrieval-v2/ (collection, 50,000 tag files,
# two watch lists of 10,000 entries, sammlung.sql) is made by bench_retrieval on
# first use; of factor f, /tmp/dorvano-retrieval-v2-x<f>/ (DORVANO_MASS=f).
# Results: suche.md, listen.md (with medians in suche.json, listen.json) and
# speicher.txt in each folder.
set -eu

BUILD=${1:-build}
FAKTOREN=${2:-"1 2 5"}
BIN=$BUILD/bin

for p in hyperfine sqlite3 /usr/bin/time; do
    command -v $p >/dev/null || { echo "$p fehlt (scripts/install-deps)"; exit 1; }
done
[ -x "$BIN/dorvano-cli" ] && [ -x "$BIN/bench_retrieval" ] || {
    echo "dorvano-cli und bench_retrieval fehlen in $BIN (erst bauen)"; exit 1; }

FILM_SQL="SELECT f.id, t.titel FROM film f JOIN titel t ON t.film_id = f.id AND t.typ = 1
 WHERE t.titel LIKE '%ab%' AND f.jahr >= 2000 AND EXISTS (SELECT 1 FROM film_genre fg
 JOIN genre g ON g.id = fg.genre_id WHERE fg.film_id = f.id AND g.name LIKE 'Drama%');"
BOX_SQL="SELECT id, ean, titel FROM box WHERE titel LIKE '%ab%' ORDER BY titel;"

miss() {
    faktor=$1
    ORDNER=/tmp/dorvano-retrieval-v2
    [ "$faktor" -gt 1 ] && ORDNER=$ORDNER-x$faktor
    DB=$ORDNER/sammlung.db

    # The prepared folder, and the database made from its SQL script.
    [ -f "$ORDNER/fertig" ] ||
        DORVANO_MASS=$faktor "$BIN/bench_retrieval" --benchmark_filter=BM_Mengenoperationen >/dev/null
    if [ ! -f "$DB" ]; then
        sqlite3 "$DB.neu" < "$ORDNER/sammlung.sql" >/dev/null
        mv "$DB.neu" "$DB"
    fi

    # Settings of these runs stay in a folder of their own.
    export XDG_CONFIG_HOME="$ORDNER/cfg"
    CLI="$BIN/dorvano-cli --basis $ORDNER"
    TABELLEN=$(ls "$ORDNER"/Daten/*.dat | tr '\n' ' ')

    echo "== $ORDNER: Treffer dorvano-cli / sqlite3"
    $CLI suchen Film Titel = '*ab*' UND Genre = 'Drama*' UND Jahr '>=' 2000 | tail -1
    sqlite3 "$DB" "$FILM_SQL" | wc -l
    $CLI suchen Box Bezeichnung = '*ab*' | tail -1
    sqlite3 "$DB" "$BOX_SQL" | wc -l

    hyperfine -N --warmup 3 --runs 30 --export-markdown "$ORDNER/suche.md" \
        --export-json "$ORDNER/suche.json" \
        -n "dorvano-cli suchen Film" \
        "$CLI suchen Film Titel = *ab* UND Genre = Drama* UND Jahr >= 2000" \
        -n "sqlite3 Film" "sqlite3 $DB \"$FILM_SQL\"" \
        -n "dorvano-cli suchen Box" "$CLI suchen Box Bezeichnung = *ab*" \
        -n "sqlite3 Box" "sqlite3 $DB \"$BOX_SQL\"" \
        -n "cat aller Tabellendateien" "cat $TABELLEN" \
        -n "dorvano-cli version (Start)" "$CLI version"

    hyperfine -N --warmup 1 --runs 10 --export-markdown "$ORDNER/listen.md" \
        --export-json "$ORDNER/listen.json" \
        -n "dorvano-cli liste --json" "$CLI liste --json" \
        -n "dorvano-cli tags suchen" "$CLI tags suchen verliehen" \
        -n "dorvano-cli vormerk vereinigen" "$CLI vormerk vereinigen 1 2"

    # Peak memory (maximum resident set) of each question, in KB.
    : >"$ORDNER/speicher.txt"
    set -f
    for frage in "suchen Film Titel = *ab* UND Genre = Drama* UND Jahr >= 2000" \
        "suchen Box Bezeichnung = *ab*" "liste --json"; do
        kb=$(/usr/bin/time -f %M $CLI $frage 2>&1 >/dev/null | tail -1)
        echo "$kb KB  dorvano-cli $frage" | tee -a "$ORDNER/speicher.txt"
    done
    set +f
}

for f in $FAKTOREN; do miss "$f"; done
