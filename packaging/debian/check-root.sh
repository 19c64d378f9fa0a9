#!/usr/bin/env bash
# Installs a package in a throw-away Debian 12, uses the programs there and removes it again: check-root.sh DEB.
# Needs the rights of root for debootstrap, chroot and mounts (sudo), and network for the packages that Corvan depends on.
# The empty Debian is kept in build/debian-check/bookworm.tar; delete it to fetch a new one.
# shellcheck disable=SC2016  # what stands in single quotes is for dpkg or for a shell in the other root
set -euo pipefail
deb=$(readlink -e "${1:-}") || { echo "check-root.sh: there is no package \"${1:-}\"" >&2; exit 1; }
cd "$(dirname "$0")/../.."
source packaging/debian/checks.sh
need dpkg-deb debootstrap chroot mount umount tar faketime cmp convert identify
mirror=${MIRROR:-http://deb.debian.org/debian}

sudo=()
if [ "$(id -u)" -ne 0 ]; then
  echo "check-root.sh: a root file system of its own is made with sudo"
  sudo=(sudo)
fi

work=$PWD/build/debian-check
root=$work/root
mkdir -p "$work/shots"
built=$(find build/debian/corvan-"$version"/obj-*/bin -name corvan-cli 2>/dev/null | head -1)
if [ ! -x "$built" ]; then
  echo "check-root.sh: no corvan-cli below build/debian; packaging/debian/build.sh makes it" >&2
  exit 1
fi
built=$PWD/$built

clean_up() {
  local process
  # What still runs in there, by its root directory.
  for process in /proc/[0-9]*; do
    [ "$("${sudo[@]}" readlink "$process/root" 2>/dev/null)" = "$root" ] && "${sudo[@]}" kill "${process#/proc/}" 2>/dev/null
  done
  sleep 1
  "${sudo[@]}" umount "$root/proc" 2>/dev/null
  mountpoint -q "$root/proc" || "${sudo[@]}" rm -rf "$root"
}
trap 'clean_up || true' EXIT
trap 'exit 130' INT TERM
trap 'echo "check-root.sh: the preparation failed in line $LINENO" >&2' ERR

in_root() { "${sudo[@]}" chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
# As a user without rights, in a folder of that user's own.
as_user() {
  "${sudo[@]}" chroot --userspec=1000:1000 "$root" env -i PATH=/usr/bin:/bin LC_ALL=C.UTF-8 TZ=UTC HOME=/home/user XDG_RUNTIME_DIR=/home/user/run \
    sh -c 'cd /home/user && exec "$@"' sh "$@"
}
install_in_root() { in_root apt-get install -y -qq --no-install-recommends "$@"; }
# Every path outside of what runs and of what the package manager keeps for itself.
paths_of_root() {
  in_root find / -xdev \( -path /proc -o -path /dev -o -path /tmp -o -path /home -o -path /var/lib/apt -o -path /var/lib/dpkg \
    -o -path /var/cache/apt -o -path /var/cache/debconf -o -path /var/log \) -prune -o -print | LC_ALL=C sort
}

# An empty Debian, fetched once.
if [ ! -s "$work/bookworm.tar" ]; then
  echo "fetching an empty Debian 12 (a minute or two)"
  "${sudo[@]}" rm -rf "$work/fresh"
  "${sudo[@]}" debootstrap --variant=minbase bookworm "$work/fresh" "$mirror" >"$work/debootstrap.log"
  "${sudo[@]}" rm -rf "$work/fresh"/var/cache/apt/archives/*.deb
  "${sudo[@]}" tar -C "$work/fresh" --exclude='./proc/*' -cf "$work/bookworm.tar.part" .
  "${sudo[@]}" mv "$work/bookworm.tar.part" "$work/bookworm.tar"
  "${sudo[@]}" rm -rf "$work/fresh"
fi
"${sudo[@]}" rm -rf "$root"
"${sudo[@]}" mkdir -p "$root"
"${sudo[@]}" tar -C "$root" -xf "$work/bookworm.tar"
"${sudo[@]}" mount -t proc proc "$root/proc"
"${sudo[@]}" cp /etc/resolv.conf "$root/etc/resolv.conf"
proxy=$(grep -rhi '^Acquire::.*proxy' /etc/apt/apt.conf /etc/apt/apt.conf.d 2>/dev/null || true)
"${sudo[@]}" tee "$root/etc/apt/apt.conf.d/99checks" <<<"$proxy
Dpkg::Use-Pty \"0\";" >/dev/null
"${sudo[@]}" chmod 1777 "$root/dev/shm"
in_root apt-get update -qq
in_root useradd -m -u 1000 user
"${sudo[@]}" mkdir -p "$root/home/user/run"
"${sudo[@]}" chown 1000:1000 "$root/home/user/run"
"${sudo[@]}" chmod 700 "$root/home/user/run"
"${sudo[@]}" cp "$deb" "$root/tmp/corvan.deb"
before=$(paths_of_root)

# The run whose outputs are compared: every format, both pictures, a project, from the samples beside the caller.
run=(process samples/lagoon_1.bin samples/lagoon_2.bin --past-gaps --bad-gps interpolate --true-position --cable-offset 8
  --gps samples/lagoon_track.nav --link time --format "bin,txt,ecs,kml,csv,ert,bottom,res2dinv,gpkg,geojson,vtu"
  --picture map.png --layers "electrodes,scale,north,names,grid" --section-picture flat.png --curves "current,depth"
  --save-project run.corvan --out lagoon)

installs() {
  install_in_root /tmp/corvan.deb
  [ "$(in_root dpkg-query -W -f='${Status}' corvan)" = "install ok installed" ]
}
tell_version() {
  [ "$(as_user corvan-cli --version)" = "corvan-cli $version" ]
  [ "$(as_user corvan --version)" = "corvan $version" ]
}
samples_read() {
  local file said
  for file in lagoon_1.bin lagoon_1.txt lagoon_2.bin lagoon_2.txt lagoon_track.csv lagoon_track.gps lagoon_track.nav lagoon_track.sav; do
    # Status 1: the lines have lost fixes, which is told.
    said=$(as_user corvan-cli info "/usr/share/corvan/samples/$file") || [ $? -eq 1 ]
    grep -E '^  (firings|fixes) +[1-9]' <<<"$said"
  done
}
# The window without a screen lives until it is ended.
opens_offscreen() {
  local status=0
  as_user env QT_QPA_PLATFORM=offscreen timeout 8 corvan /usr/share/corvan/samples/lagoon_1.bin || status=$?
  [ "$status" -eq 124 ]
}
process_there() {
  as_user cp -r /usr/share/corvan/samples samples
  as_user corvan-cli "${run[@]}" --json >/dev/null
  as_user sh -c 'rm lagoon* map.png flat.png run.corvan'
}
# With the clock held, as two formats hold the time.
same_as_built() {
  local file count=0
  install_in_root faketime
  as_user faketime -f '2026-06-15 12:00:00' corvan-cli "${run[@]}" >"$work/there.txt"
  rm -rf "$work/here"
  mkdir -p "$work/here/samples"
  cp samples/lagoon* "$work/here/samples"
  (cd "$work/here" && env -i PATH="$PATH" LC_ALL=C.UTF-8 TZ=UTC HOME="$work/here" faketime -f '2026-06-15 12:00:00' "$built" "${run[@]}" >"$work/here.txt")
  cmp "$work/there.txt" "$work/here.txt"
  for file in "$work"/here/lagoon* "$work"/here/*.png "$work"/here/run.corvan; do
    count=$((count + 1))
    cmp "$file" "$root/home/user/$(basename "$file")" || return 1
  done
  echo "$count files"
  [ "$count" -eq 15 ]
}
page_shows() {
  install_in_root man-db
  in_root man -P cat corvan-cli | grep -F -e '--save-project FILE'
  in_root man -P cat corvan | grep -F 'FILES'
}
completion_loads() {
  local script='. /usr/share/bash-completion/completions/corvan-cli
    . /usr/share/bash-completion/completions/corvan
    complete -p corvan corvan-cli || exit 1
    COMP_LINE="corvan-cli process --palette v" COMP_POINT=30 COMP_CWORD=3 COMP_WORDS=(corvan-cli process --palette v)
    _corvan_cli
    echo "${COMPREPLY[*]}"'
  as_user bash --norc -c "$script" | grep -Fx 'viridis viridis:reversed'
}
# shot NAME FILE...: the window with the files under a virtual screen; its picture, and what the window says it is.
shot() {
  local name=$1
  shift
  as_user sh -c '
    Xvfb :77 -screen 0 1400x900x24 -fbdir /home/user/run -nolisten tcp >run/x.log 2>&1 & x=$!
    trap "kill \$w \$x; wait" EXIT
    sleep 2
    DISPLAY=:77 corvan "$@" & w=$!
    for k in 1 2 3 4 5 6 7 8 9 10; do
      sleep 1
      window=$(DISPLAY=:77 xwininfo -root -tree | sed -n "s/^ *\(0x[0-9a-f]*\) .*(\"corvan\" .*/\1/p" | head -1)
      [ -z "$window" ] || break
    done
    sleep 3
    kill -0 $w || exit 1
    DISPLAY=:77 xprop -id "$window" WM_CLASS WM_NAME >run/window.txt
    cp run/Xvfb_screen0 run/shot.xwd' sh "$@"
  convert "xwd:$root/home/user/run/shot.xwd" "$work/shots/$name.png"
  "${sudo[@]}" cat "$root/home/user/run/window.txt"
  # Pixels in strong colours where the survey is painted: those of its cells. The text beside it and the frame have none.
  cells=$(convert "$work/shots/$name.png" -crop 1080x710+30+110 +repage -colorspace HSB -channel G -separate -threshold 80% \
    -format '%[fx:round(mean*w*h)]' info:)
  colours=$(identify -format %k "$work/shots/$name.png")
  echo "$name: $colours colours, $cells pixels of cells"
}
window_shows_survey() {
  shot survey /usr/share/corvan/samples/lagoon_1.bin /usr/share/corvan/samples/lagoon_2.bin
  [ "$cells" -ge 3000 ]
  # The name by which a desktop finds the entry in its menu for the window.
  local class
  class=$(sed -n 's/^StartupWMClass=//p' "$root/usr/share/applications/corvan.desktop")
  "${sudo[@]}" cat "$root/home/user/run/window.txt" | grep -F ", \"$class\""
}
window_opens_project() {
  shot project /home/user/run.corvan
  [ "$cells" -ge 3000 ]
}
# What the window shows without a survey, so that the number of pixels means something.
window_empty() {
  shot empty
  [ "$colours" -ge 100 ] && [ "$cells" -lt 100 ]
}
# After all that use, what is there is what the package lists, byte for byte.
listed_whole() { in_root sh -c 'cd / && md5sum -c --quiet /var/lib/dpkg/info/corvan.md5sums'; }
purged() {
  local left path
  in_root dpkg -L corvan >"$work/listed.txt"
  grep -q . "$work/listed.txt"
  in_root apt-get purge -y -qq corvan
  while read -r path; do
    [ -d "$root$path" ] || [ ! -e "$root$path" ] || { echo "left: $path"; return 1; }
  done <"$work/listed.txt"
  left=$(paths_of_root | grep -i corvan | grep -v '^/var/cache/man/' || true)  # pages that man-db formatted above
  [ -z "$left" ] || { echo "left: $left"; return 1; }
}
# With what came for its sake, and with the tools of these checks. Left by others: caches of the loader, of man-db and of
# fontconfig, and the settings that packages of the base system write when a library of theirs is first used.
as_before() {
  in_root apt-get purge -y -qq faketime libfaketime man-db bsdextrautils xvfb x11-utils
  in_root apt-get autoremove --purge -y -qq
  local left
  left=$(diff <(echo "$before") <(paths_of_root) | grep '^[<>]' |
    grep -vE '^> /(var/cache/(man|fontconfig|ldconfig)(/|$)|etc/ld\.so\.cache$)' || true)
  [ -z "$left" ] || { echo "$left"; return 1; }
}

check "it is installed with nothing but what it depends on" installs
check "both programs tell version $version" tell_version
check "the samples are read where they are installed" samples_read
check "the command line processes and paints" process_there
check "the window opens without a screen" opens_offscreen
check "outputs are those of the built program, byte for byte" same_as_built
check "the manual pages show" page_shows
check "the completions load" completion_loads
check "tools for a virtual screen are installed" install_in_root xvfb x11-utils
check "the window opens without a survey" window_empty
check "the window shows the samples" window_shows_survey
check "the window opens a project" window_opens_project
check "the installed files are those of the package" listed_whole
check "it is removed without a trace" purged
check "the system is as it was before" as_before
echo "pictures of the window: $work/shots"
finish "$(basename "$deb") in a Debian of its own" 15
