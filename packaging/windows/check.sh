#!/usr/bin/env bash
# Checks the Windows packages in dist/ under Wine: the tests, the installer, what it installs, and that it goes again.
# Whatever is missing fails the check; nothing is skipped. What only a real Windows can tell stands in packaging/README.md.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$root/build/windows
linux=$root/build/release
work=$root/build/windows-check
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build/CMakeCache.txt")
setup=${1:-$root/dist/corvan-$version-setup.exe}
portable=${2:-$root/dist/corvan-$version-windows.zip}

fail() {
  echo "check.sh: $*" >&2
  exit 1
}
step() { echo "== $*"; }

"$root/packaging/install-missing.sh" "$root/packaging/debian-build.txt" "$root/packaging/debian-test.txt" "$here/debian-wine.txt"
for program in wine wineserver xvfb-run xdotool import convert unzip python3 cmake; do
  command -v "$program" > /dev/null || fail "$program is missing"
done
[ -f "$setup" ] || fail "$setup is missing"
[ -f "$portable" ] || fail "$portable is missing"

# A Windows of its own, made afresh.
rm -rf "$work"
mkdir -p "$work/run" "$work/wine"
export WINEPREFIX=$work/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" XDG_RUNTIME_DIR=$work/run LC_ALL=C.UTF-8
chmod 700 "$work/run"
trap 'wineserver -k > /dev/null 2>&1 || true' EXIT
wineserver -p || fail "the server of Wine does not start"
timeout 300 wine wineboot < /dev/null > /dev/null 2>&1 || fail "Wine does not start"
c=$WINEPREFIX/drive_c

# Runs a Windows program at most so many seconds: windows SECONDS PROGRAM [ARGUMENTS...]
windows() {
  local seconds=$1
  shift
  timeout -k 5 "$seconds" wine "$@" < /dev/null
}

step "Tests under Wine"
(cd "$root" && cmake --preset release > "$work/linux.log" && cmake --build --preset release >> "$work/linux.log") || fail "the Linux build failed: $work/linux.log"
mkdir "$work/tests"
for folder in base survey geo picture input track view3d view2d export exchange session paint cli; do
  native=$linux/tests/test_$folder
  program=$build/tests/test_$folder.exe
  [ -x "$native" ] || fail "$native is missing"
  [ -f "$program" ] || fail "$program is missing: packaging/windows/build.sh --tests makes it"
  "$native" --gtest_list_tests --gtest_output=json:"$work/tests/$folder.linux.json" > /dev/null
  (cd "$work/tests" && windows 300 "$program" --gtest_output="json:$folder.wine.json" > "$folder.log" 2>&1) || true
  [ -f "$work/tests/$folder.wine.json" ] || fail "test_$folder did not come to its end: $work/tests/$folder.log"
done
python3 "$here/compare_tests.py" "$work/tests" "$here/not-under-wine.txt" || fail "the tests differ, their words are in $work/tests"

step "Silent installation"
registry() { windows 30 reg query "$@" 2> /dev/null | tr -d '\r'; }
# A PATH longer than the installer's language can hold in one text, with a variable in it.
folders=$(python3 -c 'print(";".join(["%USERPROFILE%\\bin"] + [f"C:\\tools\\folder {k:03d}\\bin" for k in range(100)]))')
windows 30 reg add 'HKCU\Environment' /v Path /t REG_EXPAND_SZ /d "$folders" /f > /dev/null 2>&1 || fail "the PATH cannot be set"
path_before=$(registry 'HKCU\Environment' /v Path)
[ "${#path_before}" -gt 2000 ] || fail "the PATH is too short to tell anything"
user=$(ls -d "$c"/users/*/ | grep -v Public)
target=$c/Misùre/Corvan
windows 180 "$setup" /S /PATH "/D=C:\\Misùre\\Corvan" || true # it is the files that count
for _ in $(seq 60); do [ ! -f "$target/uninstall.exe" ] || break; sleep 0.5; done
(cd "$target" 2> /dev/null && find . -type f -printf '%P\n' | LC_ALL=C sort) > "$work/installed.txt" || fail "nothing was installed"
diff <(LC_ALL=C sort "$here/contents.txt") "$work/installed.txt" || fail "the installed files are not those of contents.txt"
[ -n "$(find "$user" -name Corvan.lnk)" ] || fail "there is no entry in the Start menu"
registry 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvan' /v DisplayVersion | grep -q "$version" || fail "Windows knows nothing of the installation"
registry 'HKCU\Software\Classes\Corvan.Project\shell\open\command' /ve | grep -q 'corvan.exe' || fail "projects are not offered to Corvan"
registry 'HKCU\Environment' /v Path | grep -q 're.Corvan' || fail "the PATH does not hold the programs"
exports=$(x86_64-w64-mingw32-objdump -p "$target/corvan.exe" "$target/corvan-cli.exe" | sed -n 's/.*DLL Name: //p' | sort -fu)
for dll in $exports; do
  case ${dll,,} in
    libgcc* | libstdc* | libwinpthread* | qt6* | zlib* | libpng*) fail "the programs need $dll, which Windows has not" ;;
  esac
done

step "The same outputs as on Linux"
cli=$target/corvan-cli.exe
mkdir "$work/linux-out" "$c/windows-out"
formats=bin,txt,ecs,kml,csv,ert,bottom,res2dinv,gpkg,geojson,vtu
survey=(lagoon_1.bin lagoon_2.bin --past-gaps --bad-gps interpolate --true-position --cable-offset 8 --echo-offset 1 --out OUT/lagoon --format "$formats"
  --picture OUT/map.png --section-picture OUT/section.png --curves current,depth --layers "electrodes,scale,north,names,grid" --json)
(cd "$root/samples" && "$linux/bin/corvan-cli" process "${survey[@]//OUT/$work/linux-out}" > "$work/linux.json") || fail "the Linux program failed"
(cd "$target/samples" && windows 300 "$cli" process "${survey[@]//OUT/C:\/windows-out}" > "$work/windows.json") || fail "corvan-cli.exe failed"
python3 "$here/compare_outputs.py" "$work/linux-out" "$c/windows-out" "$work/linux.json" "$work/windows.json" || fail "the outputs differ"

step "Names"
names="$c/Fiume Pò"
mkdir "$names"
cp "$target/samples/lagoon_1.bin" "$names/Prüf linea 1.bin"
(cd "$names" && windows 120 "$cli" process "Prüf linea 1.bin" --past-gaps --bad-gps interpolate --out "C:\\Fiume Pò\\giù 河" --format bin,gpkg,csv > "$work/names.txt" 2>&1) || fail "names with umlauts and blanks: $(cat "$work/names.txt")"
for output in bin gpkg csv; do [ -s "$names/giù 河.$output" ] || fail "giù 河.$output was not written"; done
grep -q 'giù 河.bin' "$work/names.txt" || fail "standard output does not name giù 河.bin in UTF-8"
before=$(sha256sum < "$names/Prüf linea 1.bin")
status=0
(cd "$names" && windows 120 "$cli" process "Prüf linea 1.bin" --past-gaps --bad-gps interpolate --out "PRÜF LINEA 1" > "$work/case.txt" 2>&1) || status=$?
[ "$status" -eq 1 ] || fail "an output that differs from an input only in case: status $status, not 1"
grep -q 'was read in this run and is not overwritten' "$work/case.txt" || fail "an output that differs from an input only in case is not refused"
[ "$before" = "$(sha256sum < "$names/Prüf linea 1.bin")" ] || fail "the input was changed"
[ "$(find "$names" -iname 'prüf linea 1.bin' | wc -l)" -eq 1 ] || fail "there are two files that differ in case"
for name in con linea:b nul; do
  status=0
  (cd "$names" && windows 120 "$cli" process "Prüf linea 1.bin" --past-gaps --bad-gps interpolate --out "$name" > "$work/odd.txt" 2>&1) || status=$?
  [ "$status" -eq 1 ] && grep -qE 'has the name of a device|has a colon in its name' "$work/odd.txt" || fail "the output name $name is not refused: $(cat "$work/odd.txt")"
done
deep="$names"
for part in $(seq 8); do deep="$deep/$part a folder with a rather long name of forty"; done
mkdir -p "$deep"
cp "$names/Prüf linea 1.bin" "$deep/line.bin"
long=${deep#"$c"}
long="C:${long//\//\\}"
[ "${#long}" -gt 300 ] || fail "the long path is too short to tell anything"
(cd "$names" && windows 120 "$cli" process "$long\\line.bin" --past-gaps --bad-gps interpolate --out "$long\\out" --format bin,gpkg > "$work/long.txt" 2>&1) || fail "a path of ${#long} characters: $(cat "$work/long.txt")"
[ -s "$deep/out.bin" ] && [ -s "$deep/out.gpkg" ] || fail "a path of ${#long} characters: no outputs"
windows 60 "$cli" info 'C:\Fiume Pò\*linea*.bin' > "$work/wild.txt" 2>&1 || true
grep -q 'Prüf linea 1.bin' "$work/wild.txt" || fail "a wildcard stands for no file"

step "The window"
# Its title is looked for 20 times a second; the first start makes Wine read what it needs, the second is the one that counts.
cat > "$work/window.sh" <<'WINDOW'
target=$1 picture=$2
start=$(date +%s%N)
wine "$target/corvan.exe" "$target/samples/lagoon_1.bin" "$target/samples/lagoon_2.bin" < /dev/null > /dev/null 2>&1 &
for _ in $(seq 600); do
  found=$(xdotool search --onlyvisible --name 'Corvan Data Pre-Process' 2> /dev/null | head -1)
  [ -z "$found" ] || break
  sleep 0.05
done
[ -n "$found" ] || exit 1
echo $((($(date +%s%N) - start) / 1000000))
sleep 6
import -window root "$picture"
wine taskkill /im corvan.exe > /dev/null 2>&1 || true
for _ in $(seq 40); do
  kill -0 $! 2> /dev/null || exit 0
  sleep 0.25
done
kill $! || true
WINDOW
# Wine's desktop was made without a display so far; a new server makes one with it.
wineserver -k || true
sleep 1
wineserver -p
for attempt in 1 2; do
  milliseconds=$(timeout 120 xvfb-run -a -s "-screen 0 1366x768x24" bash "$work/window.sh" "$target" "$work/window.png" < /dev/null) || fail "no window was shown"
done
echo "The window was there after $milliseconds ms."
[ "$milliseconds" -lt 3000 ] || fail "the window took $milliseconds ms to open, 3000 are allowed"
colours=$(convert "$work/window.png" -format %k info:)
[ "$colours" -gt 500 ] || fail "the window shows $colours colours: no survey was painted ($work/window.png)"
echo "Look at it: $work/window.png"

step "Removing"
echo "mine" > "$target/notes of the owner.txt"
windows 120 "$target/uninstall.exe" /S || true
for _ in $(seq 60); do [ -f "$target/uninstall.exe" ] || break; sleep 0.5; done
sleep 1
[ "$(find "$target" -type f -printf '%P\n')" = "notes of the owner.txt" ] || fail "left in the folder, or taken from it: $(find "$target" -type f)"
[ "$(find "$target" -mindepth 1 -type d | wc -l)" -eq 0 ] || fail "empty folders are left"
[ -z "$(find "$user" -name Corvan.lnk)" ] || fail "the entry in the Start menu is left"
for key in 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvan' 'HKCU\Software\Classes\Corvan.Project' 'HKCU\Software\Classes\.corvan'; do
  if registry "$key" > /dev/null; then fail "$key is left in the registry"; fi
done
[ "$(registry 'HKCU\Environment' /v Path)" = "$path_before" ] || fail "the PATH is not what it was before"

step "The portable folder"
mkdir "$c/stick"
(cd "$c/stick" && unzip -q "$portable")
diff <({ grep -v '^uninstall.exe$' "$here/contents.txt"; echo README.txt; } | LC_ALL=C sort) <(cd "$c/stick/Corvan" && find . -type f -printf '%P\n' | LC_ALL=C sort) || fail "the files of the portable folder are not those of contents.txt"
windows 60 "$c/stick/Corvan/corvan-cli.exe" --version | grep -q "corvan-cli $version" || fail "the portable corvan-cli.exe does not tell version $version"

size=$(stat -c %s "$setup")
[ "$size" -lt 15000000 ] || fail "the installer has $size bytes, 15000000 are allowed"
echo "The Windows packages are good (installer of $size bytes)."
