#!/bin/sh
# Shows the table tool on the sample tables, and compares what it saved with what it loaded.
#
#   demo.sh VXTAB EXAMPLES DRAWINGS     the tool, the directory of the built example programs, and where drawings stay
set -eu
vxtab=${1:?the path of vxtab is missing}
programs=${2:-}
drawings=${3:-}
data=$(cd "$(dirname "$0")" && pwd)/data
[ -z "$drawings" ] || mkdir -p "$drawings"
dir=$(mktemp -d "${TMPDIR:-/tmp}/vxdemoXXXXXX")
trap 'rm -rf "$dir"' EXIT
trap 'exit 1' HUP INT TERM

say() { printf '\n== %s\n' "$*"; }
die() { echo "demo: $*" >&2; exit 1; }
# The cells of two table files, read by the library, have to be the same.
same() {
  "$vxtab" dump "$1" >"$dir/one.json"
  "$vxtab" dump "$2" >"$dir/two.json"
  cmp "$dir/one.json" "$dir/two.json" || die "$1 and $2 hold different cells"
  echo "same cells: $(basename "$1") and $(basename "$2")"
}

say "A table of patients: commas, Windows-1252, cells with commas, quotes and line breaks"
"$vxtab" info "$data/patienten.csv"
"$vxtab" show "$data/patienten.csv" --cols 0-2,5-8 --rows 6

say "The duty roster (semicolons), the price list (ESC) and the hours (tab)"
for file in dienstplan.txt leistungen.vxt stunden.tab; do "$vxtab" show "$data/$file" --rows 4; done

say "One cell edited in a copy of the roster, the file replaced in one step"
cp "$data/dienstplan.txt" "$dir/plan.txt"
"$vxtab" set "$dir/plan.txt" "$dir/plan.txt" --cell 4,1="Jörg Süß" --cell "6,1=Große Morgenpflege; \"schnell\""
"$vxtab" show "$dir/plan.txt" --rows 3
"$vxtab" dump "$dir/plan.txt" | grep -q '"Jörg Süß", "P-1001", "Große Morgenpflege; \\"schnell\\""' || die "the cells were not set"

say "The edited roster saved in all forms, each loaded again and compared cell for cell"
for form in csv txt vxt tab; do
  "$vxtab" convert "$dir/plan.txt" "$dir/again.$form"
  same "$dir/plan.txt" "$dir/again.$form"
done

say "The patients as a .tab file: that form has no empty cells, and the tool says what is lost"
"$vxtab" convert "$data/patienten.csv" "$dir/lossy.tab" 2>"$dir/note"
cat "$dir/note"
grep -q '^note: ' "$dir/note" || die "the note is missing"
"$vxtab" convert "$data/patienten.csv" "$dir/whole.txt"
same "$data/patienten.csv" "$dir/whole.txt"

say "A file of another program: UTF-8, blanks without quotes. The library's rules do not fit it:"
"$vxtab" show "$data/adressen_utf8.csv" --rows 3 2>&1
echo "with --foreign they do, and what the code page lacks is told:"
"$vxtab" convert --foreign "$data/adressen_utf8.csv" "$dir/adressen.csv" 2>&1
"$vxtab" show "$dir/adressen.csv" --rows 5

say "The address table turned, and turned back"
"$vxtab" turn "$dir/adressen.csv" "$dir/turned.csv"
"$vxtab" show "$dir/turned.csv" --cols 0-3
"$vxtab" turn "$dir/turned.csv" "$dir/back.csv"
same "$dir/adressen.csv" "$dir/back.csv"

say "A ragged table cleaned: blanks trimmed, rows balanced, empty rows and line breaks gone"
printf 'a,"  b  "\r\n"",""\r\n"c\nd",e,f\r\n' >"$dir/ragged.csv"
"$vxtab" dump "$dir/ragged.csv"
"$vxtab" clean "$dir/ragged.csv" "$dir/clean.csv" --trim --balance --drop-empty --one-line
"$vxtab" dump "$dir/clean.csv" | tee "$dir/clean.json"
printf '["a", "b", ""]\n["c d", "e", "f"]\n' | cmp - "$dir/clean.json" || die "the table is not clean"

say "Numbers: what the cells look like, sums of amounts and hours, and thousands separators"
printf 'Posten;Betrag;Dauer\r\nPflege;1234567,89;12:00\r\nFahrt;-1000,5;24:30\r\nSumme;;\r\n' >"$dir/posten.txt"
"$vxtab" info --types "$dir/posten.txt" | grep '^column '
echo "$("$vxtab" sum "$dir/posten.txt" --col 1 --type Currency) in $("$vxtab" sum "$dir/posten.txt" --col 2 --type hour) hours" |
  tee "$dir/sums"
grep -qx '1233567,39 in 36:30 hours' "$dir/sums" || die "the sums are wrong"
"$vxtab" clean "$dir/posten.txt" "$dir/posten.txt" --thousands
"$vxtab" show "$dir/posten.txt"
"$vxtab" dump "$dir/posten.txt" | grep -q '"1.234.567,89"' || die "the separators are missing"

say "The duty roster sorted by date, the last days first and within a day by name; then by name, and by hours"
"$vxtab" sort "$data/dienstplan.txt" "$dir/bydate.txt" --by Datum --type vftDate --desc --stable-with Pflegekraft
"$vxtab" show "$dir/bydate.txt" --cols 0-4
"$vxtab" dump "$dir/bydate.txt" | sed -n '2p;$p' | cut -d'"' -f2,10 | tr '\n' ' ' >"$dir/ends"
grep -qx '03.03.2026"Anja Bößer 02.03.2026"Tim Sörensen ' "$dir/ends" || die "the dates are not in their order"
"$vxtab" sort "$data/dienstplan.txt" "$dir/byname.txt" --by Pflegekraft --stable-with Beginn
"$vxtab" dump "$dir/byname.txt" | sed 1d | cut -d'"' -f4,10 | tr '"' ' ' >"$dir/names"
cat "$dir/names"
LC_ALL=C sort -k2 -k1,1 "$dir/names" | cmp - "$dir/names" || die "the roster is not in the order of its names"
"$vxtab" dump "$data/dienstplan.txt" | sort >"$dir/all"
"$vxtab" dump "$dir/byname.txt" | sort | cmp - "$dir/all" || die "a row is lost"
"$vxtab" sort "$data/dienstplan.txt" "$dir/byhours.txt" --by Dauer --type hour --desc
"$vxtab" dump "$dir/byhours.txt" | sed -n 2p | grep -q '"1:30"' || die "the longest visit is not the first"

say "A selection: the visits from ten o'clock on, those of Svenja Groß among them, and the names once each"
"$vxtab" select "$data/dienstplan.txt" "$dir/late.txt" --where Beginn '>=' 10:00 --type Zeit
"$vxtab" select "$dir/late.txt" "$dir/hers.txt" --where Pflegekraft enthält GROß
"$vxtab" show "$dir/hers.txt"
"$vxtab" dump "$dir/hers.txt" | cut -d'"' -f4 | tr '\n' ' ' | grep -qx 'Beginn 16:00 20:30 ' || die "not her visits"
"$vxtab" unique "$dir/late.txt" "$dir/who.txt" --col Pflegekraft
"$vxtab" dump "$dir/who.txt"
[ "$("$vxtab" dump "$dir/who.txt" | wc -l)" -eq 5 ] || die "the names are not each there once"

say "A second address list merged into the first by its names: a number changed, a row and a column new"
printf '%s\r\n' 'Telefon,Name,Notiz' '"0228 555 0999","Apotheke zum Löwen","bis 20:00"' ',"Fahrdienst ""Mobil""",neu' |
  iconv -f UTF-8 -t WINDOWS-1252 >"$dir/more.csv"
"$vxtab" merge "$dir/adressen.csv" "$dir/more.csv" --key Name --add-fields "$dir/merged.csv"
"$vxtab" show "$dir/merged.csv" --cols 0,3-4,6
key='name=Apotheke zum Löwen'
[ "$("$vxtab" get "$dir/merged.csv" "$key" telefon)" = "0228 555 0999" ] || die "the number is the old one"
[ "$("$vxtab" get "$dir/merged.csv" "$key" Ort)" = Bonn ] || die "the merge lost a cell"
[ "$("$vxtab" dump "$dir/merged.csv" | wc -l)" -eq 14 ] || die "the merged list has not 14 rows"
"$vxtab" merge "$dir/adressen.csv" "$dir/more.csv" --key PLZ "$dir/none.csv" 2>"$dir/note" && die "merged without a key"
cat "$dir/note"
[ ! -e "$dir/none.csv" ] || die "a failed merge wrote a file"

say "A configuration file as a table"
printf '[Station 1]\nName=Rheinblick\nBetten=24\n[Station 2]\nname=Am Park\n' >"$dir/haus.ini"
"$vxtab" ini "$dir/haus.ini" "$dir/haus.csv"
"$vxtab" show "$dir/haus.csv"
[ "$("$vxtab" get "$dir/haus.csv" '[sections]=[Station 2]' name)" = "Am Park" ] || die "the section is not a row"

say "The lists of domain values, and one of them"
"$vxtab" vocab | sed -n 1,5p
"$vxtab" vocab FEDERALSTATE | tee "$dir/states" | sed -n '1,5p;$p'
[ "$(wc -l <"$dir/states")" -eq 55 ] || die "there are not 53 states"
grep -qx ' 9 | 9  | Rheinland-Pfalz' "$dir/states" || die "a state is not there"

say "A database server's export (UTF-16, line breaks inside cells without quotes)"
"$vxtab" mssql "$data/abrechnung_mssql.csv" "$dir/abrechnung.csv"
"$vxtab" show "$dir/abrechnung.csv" --rows 5
"$vxtab" info "$dir/abrechnung.csv" | grep -q '^columns: 5\.\.5$' || die "the export was not read"

if [ -x "$programs/readme_example" ]; then
  say "The example program of the README: loads, changes and saves a table"
  "$programs/readme_example" "$data/patienten.csv" "$dir/changed.vxt"
  "$programs/readme_example" "$data/patienten.csv" "$dir/changed.txt"
  "$vxtab" show "$dir/changed.txt" --cols 0-1,5 --from 10
  "$vxtab" dump "$dir/changed.txt" | grep -q '"Königswinter"' || die "the example changed nothing"
fi

if [ -x "$programs/hours_account" ]; then
  say "Hours and money: the overtime of each nurse at 18,50 an hour"
  "$programs/hours_account" "$data/stunden.tab" 18,50 | tee "$dir/accounts"
  [ "$(grep -c ' h  .* €$' "$dir/accounts")" -ge 4 ] || die "the accounts are not there"
fi

if [ -x "$programs/care_plan" ]; then
  say "Classes that describe themselves: a patient, a visit, and the plan that links both"
  "$programs/care_plan" | tee "$dir/plan"
  grep -qx 'Patient|Name (vftString): Max Meier' "$dir/plan" || die "the call path leads nowhere"
fi

if [ -x "$programs/import_job" ]; then
  say "An import that reports at three depths: one dialog at the end, and a log"
  printf 'Patient,Betrag\r\nP-1001,"12,50"\r\nP-1002,zw\366lf\r\n"","7,50"\r\n' >"$dir/besuche.csv"
  "$programs/import_job" "$dir/besuche.csv" "$dir/messages.log" 2>"$dir/dialog"
  cat "$dir/dialog"
  echo "The log:"
  cut -d, -f2- "$dir/messages.log"
  [ "$(grep -c '^Error: ' "$dir/dialog")" = 1 ] || die "there is more than one dialog"
  [ "$(wc -l <"$dir/messages.log")" = 4 ] || die "the log is not whole"
fi

if [ -x "$programs/shared_settings" ]; then
  say "Two processes store 25 changes each in one configuration file at the same time"
  printf '[Besuche]\r\n\r\n' >"$dir/settings.ini"
  "$programs/shared_settings" "$dir/settings.ini" anja 25 &
  "$programs/shared_settings" "$dir/settings.ini" tim 25
  wait
  cat "$dir/settings.ini"
  grep -q '^anja=25' "$dir/settings.ini" && grep -q '^tim=25' "$dir/settings.ini" || die "a change was lost"
fi

if [ -x "$programs/edit_dialogue" ]; then
  say "Masked editors: what is typed, where the cursor stands, and whether the value is good"
  "$programs/edit_dialogue" | tee "$dir/dialogue"
fi

if [ -x "$programs/filter_table" ]; then
  say "A filter above each column of the patients"
  "$programs/filter_table" "$data/patienten.csv" ${drawings:+"$drawings/filter.png"} | tee "$dir/filter"
fi

if [ -x "$programs/form_letter" ]; then
  say "A form letter, searched once and filled a thousand times"
  "$programs/form_letter" | tee "$dir/letters"
  grep -q '^Sehr geehrte' "$dir/letters" || die "there is no letter"
fi

if [ -x "$programs/thread_pool" ]; then
  say "A thread pool counts primes, and tells the main thread of its progress"
  "$programs/thread_pool" 200000 2>/dev/null | tee "$dir/primes"
  grep -q '^17984 primes' "$dir/primes" || die "the primes are wrong"
fi

if [ -x "$programs/stop_watches" ]; then
  say "Stop watches around the steps of an export, the last of them another program"
  "$programs/stop_watches" 20000 | tee "$dir/watches"
  grep -q '^Müller; "$HOME"$' "$dir/watches" || die "the argument did not reach the program unchanged"
  grep -q '^+Sortieren *1$' "$dir/watches" || die "a watch is missing"
fi

if [ -x "$programs/care_office" ]; then
  say "A year of a care service: 20,000 visits checked, billed and accounted for, and recomputed by another program"
  mkdir "$dir/office"
  "$programs/care_office_data" "$dir/office"
  "$programs/care_office" "$dir/office" | tee "$dir/office.txt"
  head -n 4 "$dir/office/konten.csv" "$dir/office/briefe.txt"
  [ "$(grep -c "csv, " "$dir/office.txt")" = 11 ] || die "planted faults were not found"
  if command -v python3 >/dev/null; then
    python3 "$data/../care_office_check.py" "$dir/office" || die "the accounts differ"
  fi
fi

if [ -n "$drawings" ]; then
  say "Names in ten scripts, drawn by one routine on a picture, for a printer and as SVG"
  if [ -x "$programs/name_list" ]; then
    "$programs/name_list" "$drawings/names.png" "$drawings/names.pdf" "$drawings/names.svg"
    say "The picture of the names in at most 6 colours, and how often each occurs"
    "$programs/reduce_colours" "$drawings/names.png" 6 "$drawings/names6.bmp" | tee "$dir/colours"
    [ "$(wc -l <"$dir/colours")" -le 7 ] || die "there are more than 6 colours"
    echo "in $drawings/names6.bmp"
    say "A note with marks: drawn, with enough room and cut off; as plain text; as RTF for other programs"
    "$programs/rich_text" "$drawings/note.png" | tee "$dir/note"
    echo "in $drawings/note.png"
    grep -q '^Frau Müller-Lüdenscheid$' "$dir/note" || die "the plain text is wrong"
    grep -q '^{.rtf1.* M.u252.*}$' "$dir/note" || die "the RTF is wrong"
    say "The patients with a look of their own as a picture, and the roster on a page"
    for change in "--head 1 --zebra 2 --title Patienten" "--col Name --text-color #204080" \
      "--col Geboren --type Date --format d.mmm.yyyy --align right" "--col Pflegegrad --align centre" \
      "--row 0 --style bold"; do
      # shellcheck disable=SC2086
      "$vxtab" look "$data/patienten.csv" "$dir/patienten.look" $change
    done
    "$vxtab" look "$dir/patienten.look"
    "$vxtab" paint "$data/patienten.csv" "$drawings/patienten.png" --look "$dir/patienten.look" --cols 0-2,5-8
    "$vxtab" paint "$data/dienstplan.txt" "$drawings/dienstplan.pdf" --title Dienstplan | tee "$dir/pages"
    grep -qx 'pages: 1' "$dir/pages" || die "the roster has not one page"
    "$vxtab" paint "$data/leistungen.vxt" "$drawings/leistungen.svg"
    echo "in $drawings/patienten.png, dienstplan.pdf and leistungen.svg"
    say "Cells of all kinds: heads, stripes, images, buttons, fractions, rich and turned texts"
    "$programs/cells" "$drawings/cells.png" "$drawings/cells.pdf"
    say "A gauge through one round of its glow"
    "$programs/gauge_strip" "$drawings/gauge.png"
  else
    echo "skipped: the component vxlib::drawing was not built, since what it needs is not installed"
  fi
fi

viewer=$(dirname "$vxtab")/vxview
if [ -x "$viewer" ] && [ -n "$drawings" ]; then
  say "The viewer"
  if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    echo "start it: $viewer $data/dienstplan.txt"
  elif command -v xvfb-run >/dev/null; then
    xvfb-run -a "$viewer" --settings "$dir/vxview.ini" --picture "$drawings/vxview.png" "$data/dienstplan.txt"
    echo "in $drawings/vxview.png"
  else
    echo "skipped: xvfb-run is missing"
  fi
fi

say "All comparisons agree"
