#!/bin/sh
# Compares rich texts in other forms with what other programs make of them: plain text with Python's html.parser, RTF
# for other programs with unrtf and pandoc. Then lists what becomes of RTF files of other programs.
#
#   richtext_vs_others.sh FORMS [DATA]
#
# FORMS is the built program richtext_forms; DATA a directory with rtf/. What is missing is skipped with a message.
set -eu
forms=${1:?the path of richtext_forms is missing}
data=${2:-}

if ! command -v python3 >/dev/null; then
  echo "skipped: no python3"
  exit 0
fi

python3 - "$forms" "$data" <<'PYTHON'
import glob, html.parser, json, os, random, re, shutil, subprocess, sys, tempfile

forms, data = sys.argv[1:3]
END = b"\x1e"
failed = False


def convert(form, texts):
    given = b"".join(text + END for text in texts)
    return subprocess.run([forms, form], input=given, stdout=subprocess.PIPE, check=True).stdout.split(END)[:-1]


def compare(what, told, held):
    global failed
    differ = [(a, b) for a, b in zip(told, held) if a != b]
    if differ or len(told) != len(held):
        failed = True
        print(f"{what}: {len(differ)} of {len(told)} DIFFER, {len(held)} came back")
        for a, b in differ[:3]:
            print("  told", repr(a), "\n  held", repr(b))
    else:
        print(f"{what}: {len(told)} alike")


class Text(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.text = ""

    def handle_starttag(self, tag, attributes):
        self.text += "\n" if tag == "br" else ""

    handle_startendtag = handle_starttag

    def handle_data(self, data):
        self.text += data


# Any order of marks; entities and breaks that both know.
rng = random.Random(1)
MARKS = ["<b>", "</b>", "<i>", "</I>", "<u>", "</u>", "<s>", "</s>", '<font color = "clRed">', '<FONT size="+2" >',
         "</font>", '<a href="x">', "</a>", "<p>"]
WORDS = ["Frau", "Müller", " ", "  ", "Größe", "8:30", "\t", "x\\y", "{z}", "€", "Łódź", "Иванова", "שרה", "…", "–", "'",
         "100%", ";", "#", "=", "/"]
BREAKS = ["<br>", "<br/>", "<br />", "\n"]
ENTITIES = ["&quot;", "&apos;", "&gt;", "&lt;", "&amp;"]


def document(pieces):
    return "".join(rng.choice(rng.choice(pieces)) for _ in range(rng.randrange(40)))


documents = [document([MARKS, WORDS, WORDS, BREAKS, ENTITIES]) for _ in range(5000)]
told = []
for text in documents:
    parser = Text()
    parser.feed(text)
    parser.close()
    told.append(parser.text)
compare("plain text beside html.parser", told, [t.decode() for t in convert("text", [d.encode() for d in documents])])

# One text of many paragraphs. Blanks in a row and empty paragraphs are left to each reader's taste.
paragraphs = [document([MARKS, WORDS, WORDS, ["&quot;", "&gt;", "&lt;", "&amp;"]]) for _ in range(400)]
told = []
for text in paragraphs:
    parser = Text()
    parser.feed(text)
    parser.close()
    told.append(" ".join(parser.text.split()))
told = [t for t in told if t]
rtf = convert("rtf", ["<br>".join(paragraphs).encode()])[0]


def blocks(value):
    # The text of each paragraph of pandoc's tree.
    def inline(part):
        kind, content = part["t"], part.get("c")
        if kind == "Str":
            return content
        if kind in ("Space", "SoftBreak", "LineBreak"):
            return " "
        if kind == "Span":
            content = content[1]
        return "".join(inline(each) for each in content) if isinstance(content, list) else ""

    return ["".join(inline(part) for part in block["c"]) for block in value["blocks"] if block["t"] in ("Para", "Plain")]


def by_pandoc(path):
    return blocks(json.loads(subprocess.run(["pandoc", "-f", "rtf", "-t", "json", path], stdout=subprocess.PIPE,
                                            check=True).stdout))


def by_unrtf(path):
    page = subprocess.run(["unrtf", "--html", path], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=True).stdout.decode(errors="replace")
    parser = Text()
    parser.feed(re.sub(r"\s*\n\s*", " ", page.split("<body>", 1)[-1].split("</body>")[0]))
    parser.close()
    return parser.text.split("\n")


with tempfile.TemporaryDirectory() as directory:
    path = os.path.join(directory, "text.rtf")
    with open(path, "wb") as file:
        file.write(rtf)
    for program, read in ("unrtf", by_unrtf), ("pandoc", by_pandoc):
        if not shutil.which(program):
            print(f"RTF read by {program}: skipped: no {program}")
            continue
        held = [" ".join(text.split()) for text in read(path)]
        compare(f"RTF read by {program}, paragraphs", told, [text for text in held if text])

files = sorted(glob.glob(os.path.join(data, "rtf", "*.rtf"))) if data else []
if not files:
    print("RTF files of other programs: skipped: no directory rtf in DATA")
for path in files:
    with open(path, "rb") as file:
        result = convert("html", [file.read().replace(END, b"")])[0].decode()
    lines = [line for line in result.split("\r\n") if line.strip()]
    text = " ".join(" ".join(re.sub("<[^>]*>", "", line) for line in lines).split())
    marks = {mark: result.count(mark) for mark in ("<b>", "<i>", "<u>", "<s>", "<font") if mark in result}
    print(f"{os.path.basename(path)}: {len(lines)} lines, {len(text)} characters, marks {marks}: {text[:70]!r}")
sys.exit(failed)
PYTHON
