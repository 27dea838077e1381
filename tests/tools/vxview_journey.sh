#!/bin/sh
# A person at the desk: opens the roster, filters and sorts it, changes a date by keys, saves, and opens it again.
#
#   vxview_journey.sh VXVIEW PICTURES     the program, and where the pictures of its window stay
set -eu
vxview=${1:?the path of vxview is missing}
pictures=${2:?the directory of the pictures is missing}
data=$(cd "$(dirname "$0")/../../examples/data" && pwd)
for tool in Xvfb openbox xdotool import iconv; do
  command -v "$tool" >/dev/null || { echo "skipped: $tool is missing"; exit 77; }
done
mkdir -p "$pictures"
dir=$(mktemp -d "${TMPDIR:-/tmp}/vxjourneyXXXXXX")
server='' manager='' viewer=''
finish() {
  for id in $viewer $manager $server; do kill "$id" 2>/dev/null || true; done
  rm -rf "$dir"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM
die() { echo "journey: $*" >&2; exit 1; }

Xvfb -displayfd 3 -screen 0 1100x760x24 -nolisten tcp 3>"$dir/display" 2>/dev/null &
server=$!
for _ in $(seq 100); do [ -s "$dir/display" ] && break; sleep 0.1; done
[ -s "$dir/display" ] || die "there is no X server"
DISPLAY=:$(cat "$dir/display")
QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY
export DISPLAY QT_QPA_PLATFORM
openbox 2>/dev/null &
manager=$!
sleep 0.5

plan=$dir/plan.txt
cp "$data/dienstplan.txt" "$plan"
start() {
  "$vxview" --settings "$dir/vxview.ini" "$plan" 2>"$dir/errors" &
  viewer=$!
  window=$(timeout 40 xdotool search --sync --onlyvisible --name plan.txt | head -1)
  [ -n "$window" ] || die "no window has come"
  xdotool windowactivate --sync "$window"
  sleep 1.5
}
picture() { sleep 0.4; import -window root "$pictures/$1.png"; }
keys() { for key in "$@"; do xdotool key --window "$window" "$key"; sleep 0.15; done; }
text() { iconv -f WINDOWS-1252 -t UTF-8 "$1"; }

start
picture 1-opened
# Sorted by the nurse's name (F7 in the fifth column), then the first cell's date is changed.
keys Home Right Right Right Right F7
picture 2-sorted
keys ctrl+Home F2 ctrl+a
xdotool type --window "$window" --delay 60 05.03.2026
picture 3-editing
keys Return
picture 4-edited
# From the table up to the filters; the fifth is the nurse's, and a letter opens it.
keys shift+Tab Right Right Right Right
xdotool type --delay 80 Tim
picture 5-filtering
keys Return ctrl+s
for _ in $(seq 200); do text "$plan" | grep -q '05\.03\.2026' && break; sleep 0.1; done
picture 6-saved
text "$plan" | grep -q '^05\.03\.2026;' || die "the date is not in the file"
[ "$(text "$plan" | sed '1d;s/^[^;]*;//' | sort)" = "$(text "$data/dienstplan.txt" | sed '1d;s/^[^;]*;//' | sort)" ] ||
  die "something else than the date was changed"
[ "$(text "$plan" | grep -c '^05\.03\.2026;')" = 1 ] || die "more than one date was changed"
xdotool key alt+F4
for _ in $(seq 200); do kill -0 "$viewer" 2>/dev/null || break; sleep 0.1; done
kill -0 "$viewer" 2>/dev/null && die "the window did not close"
viewer=
grep -q 'plan.txt' "$dir/vxview.ini" || die "the settings do not know the file"
grep -qi '^Filter=.*Tim' "$dir/vxview.ini" || die "the filter is not remembered"
start
picture 7-reopened

# Killed at any moment while it saves: the file has all of its rows, and the settings can be read.
rows=$(text "$plan" | wc -l)
for delay in 0 0.005 0.01 0.02 0.04; do
  keys ctrl+Home F2 ctrl+a
  xdotool type --window "$window" --delay 20 06.03.2026
  keys Return
  xdotool key --window "$window" ctrl+s
  sleep "$delay"
  kill -9 "$viewer"
  wait "$viewer" 2>/dev/null || true
  [ "$(text "$plan" | wc -l)" = "$rows" ] || die "killed after $delay s: rows are missing"
  grep -q 'plan.txt' "$dir/vxview.ini" || die "killed after $delay s: the settings are gone"
  start
done
picture 8-after-kill
echo "pictures in $pictures"
