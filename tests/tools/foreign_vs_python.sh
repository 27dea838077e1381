#!/bin/sh
# Compares what "vxtab dump --foreign" reads with what Python's csv module reads, on real files; and what Python reads of
# the files that vxtab makes of them.
#
#   foreign_vs_python.sh VXTAB [DATA]
#
# DATA is a directory with csv/, tab/, names/ and dos/; without it and without python3 this is skipped.
# The separator is the one that vxtab found; the encoding is found again by Python.
set -eu
vxtab=${1:?the path of vxtab is missing}
data=${2:-$(dirname "$0")/../../../shared/data}

if ! command -v python3 >/dev/null; then
  echo "skipped: no python3"
  exit 0
fi
if [ ! -d "$data" ]; then
  echo "skipped: no directory $data"
  exit 0
fi

count=0
failed=0
for file in "$data"/csv/* "$data"/tab/* "$data"/names/* "$data"/dos/*; do
  [ -f "$file" ] || continue
  count=$((count + 1))
  info=$("$vxtab" info --foreign "$file")
  separator=$(echo "$info" | sed -n 's/^separator: //p')
  page=$(echo "$info" | sed -n 's/^encoding: code page //p')
  "$vxtab" dump --foreign "$file" | python3 -c '
import codecs, csv, io, itertools, json, sys

path, name, page = sys.argv[1:4]
csv.field_size_limit(2 ** 31 - 1)
codecs.register_error("same", lambda e: ("".join(map(chr, e.object[e.start:e.end])), e.end))
raw = open(path, "rb").read()
if raw.startswith(b"\xef\xbb\xbf"):
    text = raw.decode("utf-8-sig")
elif raw[:2] in (b"\xff\xfe", b"\xfe\xff"):
    text = raw.decode("utf-16")
else:
    try:
        text = raw.decode("utf-8")
    except UnicodeDecodeError:
        text = raw.decode("cp" + (page or "1252"), "same")
separator = {"comma": ",", "semicolon": ";", "tab": "\t", "esc": "\x1b"}[name]
theirs = csv.reader(io.StringIO(text, newline=""), delimiter=separator)
ours = (json.loads(line) for line in io.TextIOWrapper(sys.stdin.buffer, "utf-8", newline="\n"))
rows = 0
for rows, (a, b) in enumerate(itertools.zip_longest(ours, theirs), 1):
    if a != b:
        sys.exit(f"row {rows - 1}: vxtab has {a}, Python {b}")
print(f"{rows} rows, {name}: {path}")
' "$file" "$separator" "$page" || { echo "DIFFERENT: $file"; failed=$((failed + 1)); }
done
# What vxtab writes, in each encoding and with several separators.
written=0
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
for file in "$data"/csv/* "$data"/tab/*; do
  [ -f "$file" ] || continue
  for form in "utf-8 ," "utf-8-plain ;" "utf-16 |" "utf-16be tab"; do
    written=$((written + 1))
    encoding=${form% *}
    separator=${form#* }
    "$vxtab" convert --foreign "$file" "$scratch/out.csv" --to-encoding "$encoding" --to-separator "$separator"
    "$vxtab" dump --foreign "$file" | python3 -c '
import csv, io, json, sys

path, encoding, separator = sys.argv[1:4]
csv.field_size_limit(2 ** 31 - 1)
codec = {"utf-8": "utf-8-sig", "utf-8-plain": "utf-8", "utf-16": "utf-16", "utf-16be": "utf-16"}[encoding]
text = open(path, encoding=codec, newline="").read()
theirs = list(csv.reader(io.StringIO(text, newline=""), delimiter="\t" if separator == "tab" else separator, strict=True))
ours = [json.loads(line) for line in io.TextIOWrapper(sys.stdin.buffer, "utf-8", newline="\n")]
if ours != theirs:
    sys.exit("Python reads something else")
' "$scratch/out.csv" "$encoding" "$separator" || { echo "DIFFERENT: $file as $form"; failed=$((failed + 1)); }
  done
done
echo "$written files written and read by Python"
echo "$count files compared, $failed different"
[ "$failed" = 0 ]
