#!/bin/sh
# The check of examples on small trees, most of them with faults that it has to name:
#   CheckExamples_test.sh CheckExamples.sh COMPILER SCRATCH
set -eu
check=$1 compiler=$2 dir=$3
wrong=0

# expect NAME STATUS SURROUNDINGS TEXT...: what is told of the example on standard input, which begins in line 2 of
# core/A.h.
expect() {
  name=$1 status=$2
  rm -rf "$dir"
  mkdir -p "$dir/core/detail" "$dir/tests/examples"
  printf '%s\n' "$3" >"$dir/tests/examples/surroundings.txt"
  printf '// Example:\n//   this is none;\n' >"$dir/core/detail/B.h"
  { echo "// Example, by itself:"; sed 's/^/\/\/   /'; cat <<'CODE'; } >"$dir/core/A.h"
// Behind it.
#pragma once
#include <string>
struct TAmount { long double ToExtended() const { return 12.5L; } };
[[nodiscard]] inline int Twice(int Value) { return 2 * Value; }
inline std::u16string Name() { return u"a // \"b\"\n"; }
CODE
  shift 3
  got=0
  told=$(sh "$check" "$compiler" "$dir" "$dir/scratch" 2>&1) || got=1
  [ "$got" = "$status" ] || { printf '%s: status %s instead of %s:\n%s\n' "$name" "$got" "$status" "$told"; wrong=1; }
  for text; do
    case $told in *"$text"*) ;; *) printf '%s: does not tell "%s":\n%s\n' "$name" "$text" "$told"; wrong=1 ;; esac
  done
}

expect "results of all kinds" 0 "// A comment: none.
//// core/A.h in the function
int Missing = 3;" "1 examples compiled, 1 of them run, 0 skipped; 6 results looked at, 0 of them wrong" <<'EXAMPLE'
struct TPlace { int At = 7; };
int Seven() {
  return TPlace{}.At;
}
int place = Seven();           // 7: the first
place += Twice(Missing);       // 13; and so on
Name().substr(
    2);                        // prose, 5
TAmount{};                     // 12.5
Twice(1) == 2;                 // true
std::u16string(u"x: // y");    // u"x: // y"
Name();
// a // "b"
for (int i = 0; i < 1; ++i) ++place;   // a prose line
EXAMPLE
expect "wrong results" 1 "" "core/A.h:2: shows something else than it gives: 4" "core/A.h:3: shows something else" \
  "core/A.h:5: shows something else" "core/A.h: the example raises basic_string::at" <<'EXAMPLE'
int four = Twice(2);   // 5
Name();
// b
Twice(2) == 4;         // false
std::string().at(1);   // 'a'
EXAMPLE
expect "what does not compile" 1 "" "core/A.h:3:" <<'EXAMPLE'
int four = Twice(2);
four = Twice(u"2");
EXAMPLE
expect "a result that must not be dropped" 1 "" "core/A.h:2:" <<'EXAMPLE'
Twice(2);
EXAMPLE
expect "what can't be looked at" 1 "//// core/B.h
int none = 1;" "core/A.h:2: this line has no result that could be looked at" "surroundings for core/B.h" <<'EXAMPLE'
if (Twice(1) > 2) Name();   // u"b"
EXAMPLE
exit $wrong
