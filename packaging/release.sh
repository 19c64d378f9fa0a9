#!/usr/bin/env bash
# Makes and checks the packages of a version: release.sh VERSION. They stand in dist/ with SHA256SUMS when everything is good.
set -euo pipefail
cd "$(dirname "$0")/.."

fail() {
  echo "release.sh: $*" >&2
  exit 1
}
[ $# -eq 1 ] || fail "name the version, as in: packaging/release.sh 0.1.0"
version=$1

# One place holds the version and its day; the list of changes begins with both; the tree is what a commit holds.
stands=$(sed -n 's/^project(Corvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
released=$(sed -n 's/^set(CORVAN_RELEASED \([0-9-]*\)).*/\1/p' CMakeLists.txt)
[ "$version" = "$stands" ] || fail "CMakeLists.txt holds version $stands, not $version"
heading=$(grep -m 1 '^## ' CHANGELOG.md)
[ "$heading" = "## $version, $released" ] || fail "CHANGELOG.md begins with \"$heading\", not with \"## $version, $released\""
[ -z "$(git status --porcelain)" ] || fail "there are changes that no commit holds: git status tells them"

rm -rf dist
packaging/debian/build.sh
packaging/windows/build.sh --tests
packaging/debian/check.sh
packaging/windows/check.sh

cd dist
for package in "corvan_${version}_amd64.deb" "corvan-$version-setup.exe" "corvan-$version-windows.zip"; do
  [ -s "$package" ] || fail "dist/$package is missing"
done
find . -maxdepth 1 -type f ! -name SHA256SUMS -printf '%P\n' | LC_ALL=C sort | xargs sha256sum > SHA256SUMS
sha256sum --quiet -c SHA256SUMS
echo "Version $version is ready in $PWD:"
cat SHA256SUMS
