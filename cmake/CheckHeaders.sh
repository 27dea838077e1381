#!/bin/sh
# Each header compiles alone, without a warning, and may be included twice:
#   CheckHeaders.sh COMPILER ROOT FOLDER...
# Headers under a folder that is missing are none. Those of platform/cairo need the options of DRAWING_INCLUDES.
set -eu
CXX=$1
cd "$2"
shift 2
export CXX
for folder; do [ ! -d "$folder" ] || folder_list="${folder_list:-} $folder"; done
# shellcheck disable=SC2086
headers=$(find ${folder_list} -name '*.h' | sort)
[ -n "${DRAWING_INCLUDES:-}" ] || headers=$(echo "$headers" | grep -v '^platform/cairo/')
[ -n "$headers" ] || { echo "no headers under $*"; exit 1; }
echo "$headers" | xargs -P 2 -n 4 sh -c '
  status=0
  for header; do
    "$CXX" -std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Wshadow -Werror -I. ${DRAWING_INCLUDES:-} -x c++ \
      -include "$header" -include "$header" /dev/null || { echo "$header does not compile alone"; status=1; }
  done
  exit $status' sh
echo "$(echo "$headers" | wc -l) headers compile alone"
