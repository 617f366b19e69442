#!/bin/sh
# Builds the Debian package into a temporary folder and checks its control data
# and contents: the files of the installation under /usr, the library
# dependencies found in the binaries plus the libcurl that is loaded at run time.
# Aufruf: paket.sh BUILD_ORDNER
set -eu
build=$1
liste=$(dirname "$0")/dateien.txt
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fehler() {
    echo "FEHLER: $*" >&2
    exit 1
}

cpack --config "$build/CPackConfig.cmake" -B "$tmp" >"$tmp/cpack.log" 2>&1 ||
    { cat "$tmp/cpack.log" >&2; fehler "cpack schlug fehl"; }
set -- "$tmp"/dorvano_*_*.deb
[ $# -eq 1 ] && [ -f "$1" ] || fehler "kein Paket dorvano_VERSION_ARCH.deb"
deb=$1

dpkg-deb -c "$deb" | awk '$1 !~ /^d/ { sub(/^\.\//, "", $6); print $6 }' | sort >"$tmp/ist"
sort "$liste" >"$tmp/soll"
diff -u "$tmp/soll" "$tmp/ist" || fehler "Paketinhalt weicht ab"
dpkg-deb -c "$deb" | awk '$2 != "root/root" { print; n++ } END { exit n > 0 }' ||
    fehler "Dateien gehören nicht root"

abh=$(dpkg-deb -f "$deb" Depends)
for paket in "libcurl4 | libcurl3-gnutls" libqt6widgets6 libqt6core6 zlib1g libudev1 libc6; do
    case ", $abh," in
    *", $paket"[\ ,]*) ;;
    *) fehler "Depends ohne $paket: $abh" ;;
    esac
done
[ "$(dpkg-deb -f "$deb" Package)" = dorvano ] || fehler "Paketname falsch"

# The packaged programs are stripped; the build keeps its debug information.
dpkg-deb -x "$deb" "$tmp/inhalt"
for p in dorvano dorvano-cli; do
    file "$tmp/inhalt/usr/bin/$p" | grep -q ', stripped' || fehler "$p nicht gestrippt"
done
echo "Paket geprüft: $(basename "$deb")"
