#!/bin/sh
# The example of a whole office agrees with its recomputation in Python, to the cent and the minute:
#   care_office.sh DIRECTORY_OF_PROGRAMS CHECK
set -eu
command -v python3 >/dev/null && python3 -c 'import zoneinfo; zoneinfo.ZoneInfo("Europe/Berlin")' 2>/dev/null ||
  { echo "skipped: python3 with its time zones is missing"; exit 77; }
dir=$(mktemp -d)
trap 'rm -r "$dir"' EXIT
"$1/care_office_data" "$dir"
"$1/care_office" "$dir"
python3 "$2" "$dir"
