#!/bin/sh
# Each header compiles alone, without a warning, and may be included twice:
#   CheckHeaders.sh COMPILER ROOT FOLDER...
# A header that a source of the build includes before anything else has compiled alone with that source, and so has one
# that such a header includes first. Only the others are compiled here. Headers under a folder that is missing are none.
# Those of platform/cairo need the options of DRAWING_INCLUDES and those of windows DESKTOP_INCLUDES; without them they
# are left out.
set -eu
CXX=$1
cd "$2"
shift 2
export CXX
for folder; do [ ! -d "$folder" ] || folder_list="${folder_list:-} $folder"; done
# shellcheck disable=SC2086
headers=$(find ${folder_list} -name '*.h' | sort)
windows='^(tests/)?desktop/|^tools/vxview/|^(tests/)?tools/vxview|^examples/desktop'
[ -n "${DRAWING_INCLUDES:-}" ] || headers=$(echo "$headers" | grep -v '^platform/cairo/')
[ -n "${DESKTOP_INCLUDES:-}" ] || headers=$(echo "$headers" | grep -vE "$windows")
[ -n "$headers" ] || { echo "no headers under $*"; exit 1; }

# The headers of the list that no source of ours proves; a fault for each without #pragma once before its code.
# Strangers and oracles are not in every build, the fuzz targets in one of their own.
# shellcheck disable=SC2086
sources=$(find ${folder_list} -name '*.cpp' ! -path 'tests/consumer/*' ! -path 'tests/oracle/*' ! -path 'fuzz/*')
[ -n "${DRAWING_INCLUDES:-}" ] || sources=$(echo "$sources" | grep -v '/cairo/')
[ -n "${DESKTOP_INCLUDES:-}" ] || sources=$(echo "$sources" | grep -vE "$windows")
# shellcheck disable=SC2086
left=$(awk -v headers="$headers" '
  # What the file includes first, "-" if anything else comes before.
  FNR == 1 { seen = 0; once = FILENAME !~ /\.h$/ }
  seen || /^[ \t]*(\/\/.*)?$/ { next }
  !once { if ($0 !~ /^#pragma once$/) { print FILENAME ": no #pragma once"; seen = 1 } once = 1; next }
  { seen = 1; first[FILENAME] = "-" }
  /^#include "/ { split($0, parts, "\""); first[FILENAME] = parts[2] }
  END {
    for (file in first) {
      if (file ~ /\.cpp$/) for (at = first[file]; at != "-" && at != "" && !(at in proven); at = first[at]) proven[at]
    }
    count = split(headers, list, "\n")
    for (i = 1; i <= count; ++i) if (!(list[i] in proven)) print list[i]
  }' $headers $sources)
if echo "$left" | grep ': '; then exit 1; fi

echo "$left" | xargs -r -P 2 -n 4 sh -c '
  status=0
  for header; do
    "$CXX" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wshadow -Werror -I. ${DRAWING_INCLUDES:-} ${DESKTOP_INCLUDES:-} -x c++ \
      -include "$header" -include "$header" /dev/null || { echo "$header does not compile alone"; status=1; }
  done
  exit $status' sh
echo "$(echo "$headers" | wc -l) headers compile alone, $(echo "$left" | grep -c .) of them compiled here"
