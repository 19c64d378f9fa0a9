#!/usr/bin/env bash
# Checks the package of packaging/debian/build.sh: looks at it, then installs it in a throw-away Debian 12 (check-root.sh), which needs
# the rights of root (sudo). check.sh [DEB]
set -euo pipefail
cd "$(dirname "$0")/../.."

packaging/install-missing.sh packaging/debian-check.txt
version=$(sed -n 's/^project(Corvan VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
deb=${1:-dist/corvan_${version}_$(dpkg --print-architecture).deb}
if [ ! -f "$deb" ]; then
  echo "check.sh: $deb is not there; packaging/debian/build.sh makes it" >&2
  exit 1
fi

status=0
packaging/debian/check-package.sh "$deb" || status=1
packaging/debian/check-root.sh "$deb" || status=1
exit "$status"
