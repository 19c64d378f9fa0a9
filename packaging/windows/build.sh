#!/usr/bin/env bash
# Makes the Windows packages on Debian: dist/corvan-VERSION-setup.exe and dist/corvan-VERSION-windows.zip.
# The libraries come from dependencies.sh, which builds what is not there yet; --tests builds the test programs too.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
export CORVAN_WINDOWS_QT=${CORVAN_WINDOWS_QT:-$root/build/windows-qt}
build=$root/build/windows
tests=OFF
[ "${1:-}" != --tests ] || tests=ON

"$here/dependencies.sh"
CORVAN_WINDOWS_QT=$(cd "$CORVAN_WINDOWS_QT" && pwd)
cmake -G Ninja -S "$root" -B "$build" -DCMAKE_TOOLCHAIN_FILE="$CORVAN_WINDOWS_QT/prefix/lib/cmake/Qt6/qt.toolchain.cmake" \
  -DCMAKE_BUILD_TYPE=Release -DCORVAN_WERROR=ON -DCORVAN_TESTS=$tests \
  -DCMAKE_CROSSCOMPILING_EMULATOR=/usr/bin/wine -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST
cmake --build "$build"
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")

# What is installed, without the symbols, with texts as editors of Windows take them.
stage=$build/stage/Corvan
rm -rf "$build/stage"
cmake --install "$build" --prefix "$stage" --strip > "$build/install.log"
find "$stage/licences" "$stage/manual" \( -name '*.txt' -o -name '*.md' \) -exec sed -i 's/\r*$/\r/' {} +

# Two lists of commands for the installer: everything by its name, so that removing takes nothing else.
installed=$build/installed.nsh
removed=$build/removed.nsh
: > "$installed"
: > "$removed"
(cd "$stage" && find . -type f -printf '%P\n' | LC_ALL=C sort) | while read -r file; do
  folder=$(dirname "$file")
  folder=${folder#.}
  {
    echo "SetOutPath \"\$INSTDIR${folder:+\\${folder//\//\\}}\""
    echo "File \"$stage/$file\""
  } >> "$installed"
  echo "Delete \"\$INSTDIR\\${file//\//\\}\"" >> "$removed"
done
(cd "$stage" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r) | while read -r folder; do
  echo "RMDir \"\$INSTDIR\\${folder//\//\\}\"" >> "$removed"
done

mkdir -p "$root/dist"
setup=$root/dist/corvan-$version-setup.exe
rm -f "$setup"
makensis -V2 -WX -DVERSION="$version" -DOUTPUT="$setup" -DICON="$root/packaging/icons/corvan.ico" -DLICENCE="$root/LICENSE" \
  -DINSTALLED="$installed" -DREMOVED="$removed" "$here/corvan.nsi"

portable=$root/dist/corvan-$version-windows.zip
rm -f "$portable"
cp "$here/portable.txt" "$stage/README.txt"
sed -i 's/\r*$/\r/' "$stage/README.txt"
(cd "$build/stage" && find Corvan -exec touch -h -d "@${SOURCE_DATE_EPOCH:-$(date +%s)}" {} + && find Corvan -type f | LC_ALL=C sort | zip -X -q -9 "$portable" -@)

echo "The Windows packages:"
ls -l "$setup" "$portable"
