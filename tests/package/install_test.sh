#!/usr/bin/env bash
# Builds the .deb from a finished build tree, unpacks it into a scratch root and runs the
# installed programs from there, with nothing of the build tree in reach.
set -euo pipefail
build=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cpack --config "$build/CPackConfig.cmake" -B "$scratch/pkg" >/dev/null
deb=$(ls "$scratch"/pkg/qdfsondra_*.deb)
dpkg-deb -x "$deb" "$scratch/root"
usr=$scratch/root/usr

fail() { echo "FAIL: $*" >&2; exit 1; }
for f in bin/qdf bin/qdf-frame bin/qdf-wizard bin/qdf-batch lib/libqdfsondra.so \
         share/applications/qdf-frame.desktop share/icons/hicolor/scalable/apps/qdf-frame.svg \
         share/man/man1/qdf.1 share/qdfsondra/devices/qdf300_hart.json \
         share/qdfsondra/examples/ethane_orifice.qmv; do
  [ -e "$usr/$f" ] || fail "the package lacks /usr/$f"
done
dpkg-deb -f "$deb" Depends | grep -q libqt6widgets6 || fail "no dependency on the Qt widgets"
grep -q '^Exec=qdf-frame' "$usr/share/applications/qdf-frame.desktop" || fail "desktop entry"

# Run from a folder outside the build tree, so only the installed files can answer.
cd "$scratch"
"$usr/bin/qdf" --version | grep -q '^qdf ' || fail "qdf --version"
"$usr/bin/qdf" --help | grep -q 'qdf diff A B' || fail "qdf --help"
"$usr/bin/qdf" selftest --pdf certificate.pdf >selftest.txt || { cat selftest.txt; fail "qdf selftest"; }
grep -q 'Self-test passed.' selftest.txt || fail "qdf selftest summary"
head -c 5 certificate.pdf | grep -q '%PDF-' || fail "the self-test certificate is no PDF"
"$usr/bin/qdf" calc "$usr/share/qdfsondra/examples/ethane_orifice.qmv" >calc.json \
  || fail "qdf calc on an installed example"
grep -q '"RunFits": 0' calc.json || fail "the installed example does not fit"
echo "package: $(basename "$deb") installs and runs"
