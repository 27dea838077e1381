#!/bin/sh
# What a document names between backquotes is there: files in the tree, all else in a header.
#   CheckNames.sh ROOT DOCUMENT
# Left out are spans with "..." and commands of vxtab.
set -eu
cd "$1"
document=$2
folders=$(ls -d core objects tables services rendering controls platform)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# shellcheck disable=SC2086
grep -rhoE --include='*.h' '[A-Za-z_][A-Za-z0-9_]*' $folders | LC_ALL=C sort -u >"$scratch/known"
grep -oE '`[^`]+`' "$document" | tr -d '`' | grep -v -e '\.\.\.' -e '^vxtab ' >"$scratch/spans"
grep -E '\.h$' "$scratch/spans" | sort -u | while read -r file; do
  [ -f "$file" ] || echo "$document: there is no file $file" >>"$scratch/missing"
done
grep -vE '\.h$' "$scratch/spans" | grep -oE '[A-Za-z_][A-Za-z0-9_]*' | LC_ALL=C sort -u >"$scratch/names"
LC_ALL=C comm -23 "$scratch/names" "$scratch/known" | sed "s|^|$document: in no header: |" >>"$scratch/missing"
[ -s "$scratch/names" ] || echo "$document: names nothing" >>"$scratch/missing"
if [ -s "$scratch/missing" ]; then
  cat "$scratch/missing" >&2
  exit 1
fi
