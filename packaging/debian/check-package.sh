#!/usr/bin/env bash
# Looks at a package without installing it: check-package.sh DEB. The package of its debug symbols is looked for beside it.
set -euo pipefail
deb=$(readlink -e "${1:-}") || { echo "check-package.sh: there is no package \"${1:-}\"" >&2; exit 1; }
cd "$(dirname "$0")/../.."
source packaging/debian/checks.sh
need dpkg-deb lintian desktop-file-validate appstreamcli update-mime-database man mandoc bash readelf file gzip

work=build/debian-check/package
rm -rf "$work"
mkdir -p "$work"
dpkg-deb -x "$deb" "$work/root"
dpkg-deb -e "$deb" "$work/control"
root=$PWD/$work/root

files_there() {
  local file missing=0
  for file in usr/bin/corvan usr/bin/corvan-cli \
    usr/share/applications/corvan.desktop usr/share/mime/packages/corvan.xml \
    usr/share/metainfo/invalid.corvan.corvan.metainfo.xml \
    usr/share/icons/hicolor/scalable/apps/corvan.svg \
    usr/share/icons/hicolor/{16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/corvan.png \
    usr/share/man/man1/corvan.1.gz usr/share/man/man1/corvan-cli.1.gz \
    usr/share/bash-completion/completions/corvan usr/share/bash-completion/completions/corvan-cli \
    usr/share/corvan/samples/lagoon_{1,2}.{bin,txt} usr/share/corvan/samples/lagoon_track.{csv,gps,nav,sav} \
    usr/share/doc/corvan/{manual.md,formats.md,accuracy.md,CHANGELOG.md,copyright,changelog.gz}; do
    [ -s "$root/$file" ] || { echo "not in the package: $file"; missing=1; }
  done
  return "$missing"
}
# Every picture that the manual shows is beside it, and every text that it names.
manual_whole() {
  local link missing=0 count=0
  while read -r link; do
    count=$((count + 1))
    [ -s "$root/usr/share/doc/corvan/$link" ] || { echo "not in the package: $link"; missing=1; }
  done < <(grep -ohP '\]\(\K[^)#:]+(?=[)#])' "$root"/usr/share/doc/corvan/{manual,formats}.md | sort -u)
  echo "$count links"
  [ "$count" -ge 5 ] && [ "$missing" -eq 0 ]
}
small() {
  local size
  size=$(stat -c %s "$deb")
  echo "$size bytes"
  [ "$size" -lt 3000000 ]
}
says_version() {
  dpkg-deb -f "$deb" Package Version
  [ "$(dpkg-deb -f "$deb" Version)" = "$version" ] && [ "$(dpkg-deb -f "$deb" Package)" = corvan ] &&
    gzip -dc "$root/usr/share/doc/corvan/changelog.gz" | head -1 | grep -F "($version)" &&
    grep -F "release version=\"$version\"" "$root/usr/share/metainfo/invalid.corvan.corvan.metainfo.xml"
}
depends_on() {
  local library missing=0
  for library in libc6 "libstdc[+][+]6" libgcc-s1 libgeographiclib libpugixml1v5 libqt6core6 libqt6gui6 libqt6widgets6 libsqlite3-0; do
    dpkg-deb -f "$deb" Depends | grep -qE "(^|, )${library}[0-9v.-]*( |,|$)" || { echo "does not depend on $library"; missing=1; }
  done
  return "$missing"
}
# The detached symbols belong to these very programs.
symbols_fit() {
  local symbols program id
  symbols=$(dirname "$deb")/corvan-dbgsym_${version}_$(dpkg-deb -f "$deb" Architecture).deb
  dpkg-deb -x "$symbols" "$work/symbols"
  for program in corvan corvan-cli; do
    id=$(readelf -n "$root/usr/bin/$program" | sed -n 's/.*Build ID: //p')
    echo "$program has build id '$id'"
    [ -s "$work/symbols/usr/lib/debug/.build-id/${id:0:2}/${id:2}.debug" ]
    if readelf -S "$root/usr/bin/$program" | grep -F .debug_info; then return 1; fi
  done
}
no_path_of_this_machine() {
  ! grep -rlaF -e "$PWD" -e "$HOME/" "$root"
}
# silent COMMAND...: it succeeds and says nothing (desktop-file-validate says what is wrong on standard output).
silent() {
  local said
  said=$("$@" 2>&1) || { echo "$said"; return 1; }
  [ -z "$said" ] || { echo "$said"; return 1; }
}
desktop_valid() { silent desktop-file-validate "$root/usr/share/applications/corvan.desktop"; }
format_page() { man --warnings -l -Tutf8 -Z "$1" >/dev/null; }
catalogue_valid() { appstreamcli validate --no-net "$root/usr/share/metainfo/invalid.corvan.corvan.metainfo.xml"; }
project_type_known() {
  mkdir -p "$work/mime/packages"
  cp "$root/usr/share/mime/packages/corvan.xml" "$work/mime/packages"
  update-mime-database "$work/mime"
  grep -Fx 'application/x-corvan-project:*.corvan' "$work/mime/globs"
  grep -F 'MimeType=application/x-corvan-project;' "$root/usr/share/applications/corvan.desktop"
}
icons_sized() {
  local size
  for size in 16 22 24 32 48 64 128 256; do
    file "$root/usr/share/icons/hicolor/${size}x$size/apps/corvan.png" | grep -F "$size x $size," || return 1
  done
}
man_clean() {
  local page
  for page in corvan corvan-cli; do
    silent format_page "$root/usr/share/man/man1/$page.1.gz"
    gzip -dc "$root/usr/share/man/man1/$page.1.gz" | mandoc -Tlint -Wstyle
  done
}
completion_parses() { bash -n "$root/usr/share/bash-completion/completions/corvan" && bash -n "$root/usr/share/bash-completion/completions/corvan-cli"; }
licences_named() {
  local name
  for name in 'Corvan developers' 'Bitstream' 'Tavmjong Bah' 'University of Cincinnati' 'Niels Lohmann'; do
    grep -F "$name" "$root/usr/share/doc/corvan/copyright" || { echo "not in copyright: $name"; return 1; }
  done
}
lintian_silent() { lintian --allow-root --fail-on error,warning "$deb"; }

check "every file is in it" files_there
check "the manual's pictures and texts are beside it" manual_whole
check "it is smaller than 3 MB" small
check "it says version $version" says_version
check "it depends on what it links" depends_on
check "the debug symbols fit" symbols_fit
check "it holds no path of this machine" no_path_of_this_machine
check "the desktop file is valid" desktop_valid
check "the catalogue entry is valid" catalogue_valid
check "projects have a type" project_type_known
check "the icons have their sizes" icons_sized
check "the manual pages are clean" man_clean
check "the completions parse" completion_parses
check "the licences of what is compiled in are named" licences_named
check "lintian finds no error and no warning" lintian_silent
finish "$(basename "$deb")" 15
