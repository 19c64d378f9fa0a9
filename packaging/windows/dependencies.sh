#!/usr/bin/env bash
# Builds the libraries of the Windows programs, static, from Debian's sources: Qt, SQLite, GeographicLib, pugixml, GoogleTest.
# They go to CORVAN_WINDOWS_QT (default build/windows-qt) once, about half an hour on two cores; what is there is left alone.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
cache=${CORVAN_WINDOWS_QT:-$root/build/windows-qt}
prefix=$cache/prefix
toolchain=$here/mingw.cmake

"$root/packaging/install-missing.sh" "$here/debian-windows.txt"
mkdir -p "$cache/sources/lists/partial" "$cache/sources/archives/partial" "$cache/done" "$prefix"
cache=$(cd "$cache" && pwd)
prefix=$cache/prefix
export CORVAN_WINDOWS_QT=$cache

# Debian's sources by a source list of their own: the machine's lists stay as they are.
from_debian() {
  local settings=(-o "Dir::Etc::SourceList=$cache/sources/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o "Dir::State::Lists=$cache/sources/lists" -o "Dir::Cache=$cache/sources" -o "APT::Sandbox::User=$(id -un)" -qq)
  apt-get "${settings[@]}" "$@"
}

# The folder of a source package, fetched and unpacked if it is not there: source NAME
source_of() {
  local name=$1 folder
  if ! compgen -G "$cache/sources/$name-*/" > /dev/null; then
    if [ ! -f "$cache/sources/fresh" ]; then
      printf 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] http://deb.debian.org/debian %s main\n' \
        "$(. /etc/os-release && echo "${VERSION_CODENAME:-bookworm}")" > "$cache/sources/sources.list"
      from_debian update >&2
      touch "$cache/sources/fresh"
    fi
    (cd "$cache/sources" && from_debian source "$name") >&2
  fi
  folder=$(compgen -G "$cache/sources/$name-*/")
  echo "${folder%/}"
}

# Configures, builds and installs one CMake project: cmake_project NAME SOURCE [OPTIONS...]
cmake_project() {
  local name=$1 source=$2
  shift 2
  cmake -G Ninja -S "$source" -B "$cache/build/$name" -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DBUILD_SHARED_LIBS=OFF "$@"
  cmake --build "$cache/build/$name"
  cmake --install "$cache/build/$name"
}

build_pugixml() { cmake_project pugixml "$(source_of pugixml)"; }

build_geographiclib() {
  cmake_project geographiclib "$(source_of geographiclib)" -DBUILD_BOTH_LIBS=OFF -DBUILD_DOCUMENTATION=OFF -DBUILD_MANPAGES=OFF \
    -DBINDIR= -DSBINDIR= -DEXAMPLEDIR= -DMANDIR= -DDOCDIR= -DPYTHONDIR= -DMATLABDIR=
}

build_googletest() { cmake_project googletest /usr/src/googletest -DBUILD_GMOCK=OFF; }

# One C file, as its makers recommend; Debian ships the tree that it is put together from.
build_sqlite() {
  local source
  source=$(source_of sqlite3)
  mkdir -p "$cache/build/sqlite"
  (cd "$cache/build/sqlite" && "$source/configure" --disable-readline --disable-tcl > configure.log && make sqlite3.c > make.log)
  local tool=x86_64-w64-mingw32
  (cd "$cache/build/sqlite" &&
    $tool-gcc-posix -O2 -DSQLITE_THREADSAFE=1 -DSQLITE_ENABLE_RTREE -DSQLITE_OMIT_LOAD_EXTENSION -c sqlite3.c -o sqlite3.o &&
    rm -f libsqlite3.a && $tool-ar rcs libsqlite3.a sqlite3.o)
  install -D -m 644 "$cache/build/sqlite/libsqlite3.a" "$prefix/lib/libsqlite3.a"
  install -D -m 644 -t "$prefix/include" "$cache/build/sqlite/sqlite3.h"
}

# Headers without a library are the same for every target.
build_headers() {
  mkdir -p "$prefix/include" "$prefix/share/cmake"
  cp -r /usr/include/CLI /usr/include/nlohmann "$prefix/include/"
  cp -r /usr/share/cmake/CLI11 /usr/share/cmake/nlohmann_json "$prefix/share/cmake/"
}

# What the programs use of Qt and no more; with its own copies of the small libraries, so that no DLL is needed.
build_qt() {
  local off=() feature
  for feature in network sql dbus printsupport concurrent xml tabletevent vulkan icu glib zstd pkg_config \
    system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2; do
    off+=("-DFEATURE_$feature=OFF")
  done
  cmake_project qt "$(source_of qt6-base)" -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DFEATURE_static_runtime=ON -DINPUT_opengl=no \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
    -DQT_BUILD_TESTS=OFF -DQT_BUILD_EXAMPLES=OFF "${off[@]}"
}

# What the licences of the libraries ask to be handed on with the programs, one text a library.
build_licences() {
  local to=$prefix/licences qt library file
  rm -rf "$to"
  mkdir -p "$to"
  qt=$(source_of qt6-base)
  cp "$qt/LICENSES/LGPL-3.0-only.txt" "$to/Qt-LGPL-3.0.txt"
  cp "$qt/LICENSES/GPL-3.0-only.txt" "$to/Qt-GPL-3.0.txt"
  for library in zlib libpng libjpeg freetype harfbuzz-ng pcre2 double-conversion md4c easing blake2 sha3 rfc6234 tinycbor; do
    for file in "$qt/src/3rdparty/$library"/*{LICEN[CS]E,COPYING,license}*; do
      [ ! -f "$file" ] || { printf '%s\n\n' "$(basename "$file")" && cat "$file" && printf '\n\n'; } >> "$to/Qt-contains-$library.txt"
    done
    test -s "$to/Qt-contains-$library.txt"
  done
  cp "$(source_of geographiclib)/LICENSE.txt" "$to/GeographicLib.txt"
  cp "$(source_of pugixml)/LICENSE.md" "$to/pugixml.txt"
  cp /usr/share/doc/gcc-mingw-w64-base/copyright "$to/GCC-runtime.txt"
  cp /usr/share/doc/mingw-w64-x86-64-dev/copyright "$to/MinGW-w64-runtime.txt"
}

# Says where to look when a library is not built; the shell leaves at the first command that fails.
library=
told() {
  [ -n "$library" ] || return 0
  tail -40 "$cache/build/$library.log" >&2
  echo "dependencies.sh: $library was not built, the whole log is $cache/build/$library.log" >&2
}
trap told EXIT

for library in headers pugixml geographiclib googletest sqlite qt licences; do
  [ ! -e "$cache/done/$library" ] || continue
  echo "Building $library for Windows ..."
  mkdir -p "$cache/build"
  "build_$library" > "$cache/build/$library.log" 2>&1
  rm -rf "${cache:?}/build/$library"
  touch "$cache/done/$library"
done
library=
echo "The libraries for Windows are in $prefix."
