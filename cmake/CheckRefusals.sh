#!/bin/sh
# The compiler refuses what would lose something, and says so in few lines:
#   CheckRefusals.sh COMPILER ROOT FILE SCRATCH
# Each line of FILE that ends in "// refused: WORDS" is an error, told by a message with these words; without such lines
# FILE compiles.
set -eu
CXX=$1
root=$2
file=$3
mkdir -p "$4"
cd "$4"
most=20 # lines of a message, on the average

compiles() { $CXX -std=c++20 -fsyntax-only -Werror=unused-result -fno-diagnostics-color -x c++ -I"$root" "$1" 2>messages; }
fail() { echo "$file: $1" >&2; cat messages >&2; exit 1; }

sed '/\/\/ refused: /d' "$file" >good.txt
compiles good.txt || fail "does not compile without the lines that are refused"
cp "$file" all.txt
if compiles all.txt; then fail "nothing is refused"; fi
count=0
grep -n '// refused: ' all.txt >lines
while IFS= read -r line; do
  number=${line%%:*}
  words=${line##*// refused: }
  count=$((count + 1))
  grep -q "^all.txt:$number:" messages || fail "line $number is not refused"
  grep -qF -- "$words" messages || fail "no message has the words: $words"
done <lines
[ "$count" -gt 0 ] && [ "$(wc -l <messages)" -le $((count * most)) ] || fail "more than $most lines for each error"
