#!/bin/sh
# The examples of public headers compile, and give the results that they show (ExtractExamples.awk tells how):
#   CheckExamples.sh COMPILER ROOT SCRATCH [option of the link...]
# Public is a header that is neither in a folder detail/ nor of the operating system's. Surroundings that examples take
# for granted stand in tests/examples/ of ROOT.
set -eu
CXX=$1
cmake=$(cd "$(dirname "$0")" && pwd)
root=$2
mkdir -p "$3"
scratch=$(cd "$3" && pwd)
shift 3
cd "$root"
folders=$(ls -d core objects tables services rendering controls platform 2>/dev/null || true)
# shellcheck disable=SC2086
headers=$(grep -rlE --include='*.h' '^// Example.*:$' $folders | grep -vE '/(detail|os|posix)/' | sort)
# shellcheck disable=SC2086
{
  echo '#include "tests/examples/Shown.h"'
  for header in $headers; do echo "#include \"$header\""; done
  awk -f "$cmake/ExtractExamples.awk" tests/examples/surroundings.txt $headers || exit 1
} >"$scratch/examples.cpp"
# A result that must not be dropped must not be dropped in an example, either. What examples that are not run would
# need of the drawing component is left out with them.
$CXX -std=c++20 -O0 -Werror -Wno-unused-value -Wunused-result -Wno-return-type -ffunction-sections -Wl,--gc-sections \
  -I"$cmake/.." -I. -o "$scratch/examples" "$scratch/examples.cpp" "$@"
cd "$scratch"
./examples
