#!/usr/bin/env bash
# Makes dist/corvan_VERSION_ARCHITECTURE.deb and the package of its debug symbols, from a copy of the tree in build/debian.
# The tests are left to ./test.sh; DEB_BUILD_OPTIONS=parallel=2 (without nocheck) runs them here, too.
set -euo pipefail
cd "$(dirname "$0")/../.."
here=packaging/debian

packaging/install-missing.sh packaging/debian-build.txt packaging/debian-package.txt
export DEB_BUILD_OPTIONS=${DEB_BUILD_OPTIONS-nocheck parallel=$(nproc)}

version=$(sed -n 's/^project(Corvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
released=$(sed -n 's/^set(CORVAN_RELEASED \([0-9-]*\)).*/\1/p' CMakeLists.txt)
if [ -z "$version" ] || [ -z "$released" ]; then
  echo "build.sh: CMakeLists.txt names no version or no day of it" >&2
  exit 1
fi
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(date -u -d "$released" +%s)}

# A copy of what belongs to the project: what git knows or does not ignore, without git all but what building writes.
list_tree() {
  if [ "$(git rev-parse --show-toplevel 2>/dev/null)" = "$(pwd -P)" ]; then
    git ls-files -z --cached --others --exclude-standard --exclude=/dist/
  else
    find . \( -path ./build -o -path ./dist -o -path ./out \) -prune -o ! -type d -print0
  fi
}
tree=build/debian/corvan-$version
rm -rf build/debian
mkdir -p "$tree"
list_tree | tar -c --null -T - | tar -x -C "$tree"
find "$tree" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +

# The texts of debian/ that are made: dependencies from the list of packages, licences from packaging/licences, the list of changes.
licence() {  # as a field of the copyright file: indented, a dot for an empty line
  local text=packaging/licences/$1.txt
  [ "$1" = Corvan ] && text=LICENSE
  sed 's/[[:space:]]*$//; s/^$/./; s/^/ /' "$text"
}
cp -r "$here/debian" "$tree/debian"
depends=$(grep -hv '^#' packaging/debian-build.txt | tr '\n' ' ' | sed 's/ *$//; s/ /, /g')
tests=$(grep -hv '^#' packaging/debian-test.txt | sed 's/$/ <!nocheck>/' | tr '\n' ',' | sed 's/,$//; s/,/, /g')
sed "s|@BUILD_DEPENDS@|debhelper-compat (= 13), $depends, $tests|" "$here/debian/control.in" >"$tree/debian/control"
while IFS= read -r line; do
  case "$line" in
    "@LICENCE "*@) line=${line#@LICENCE }; licence "${line%@}" ;;
    *) printf '%s\n' "$line" ;;
  esac
done <"$here/debian/copyright.in" >"$tree/debian/copyright"
rm "$tree"/debian/*.in
cat >"$tree/debian/changelog" <<CHANGES
corvan ($version) bookworm; urgency=medium

  * Version $version. What changed is told in /usr/share/doc/corvan/CHANGELOG.md.

 -- The Corvan developers <developers@corvan.invalid>  $(LC_ALL=C date -u -R -d "@$SOURCE_DATE_EPOCH")
CHANGES

(cd "$tree" && dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes)

mkdir -p dist
rm -f dist/corvan_*.deb dist/corvan-dbgsym_*.deb
cp build/debian/*.deb dist/
ls -l dist/*.deb
