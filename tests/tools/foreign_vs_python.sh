#!/bin/sh
# Compares what "vxtab dump --foreign" reads with what Python's csv module reads, on real files.
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
  separator=$("$vxtab" info --foreign "$file" | sed -n 's/^separator: //p')
  "$vxtab" dump --foreign "$file" | python3 -c '
import codecs, csv, io, itertools, json, sys

path, name = sys.argv[1:3]
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
        text = raw.decode("cp1252", "same")
separator = {"comma": ",", "semicolon": ";", "tab": "\t", "esc": "\x1b"}[name]
theirs = csv.reader(io.StringIO(text, newline=""), delimiter=separator)
ours = (json.loads(line) for line in io.TextIOWrapper(sys.stdin.buffer, "utf-8", newline="\n"))
rows = 0
for rows, (a, b) in enumerate(itertools.zip_longest(ours, theirs), 1):
    if a != b:
        sys.exit(f"row {rows - 1}: vxtab has {a}, Python {b}")
print(f"{rows} rows, {name}: {path}")
' "$file" "$separator" || { echo "DIFFERENT: $file"; failed=$((failed + 1)); }
done
echo "$count files compared, $failed different"
[ "$failed" = 0 ]
