#!/bin/sh
# Compares hours and money with exact rational numbers, texts with regular expressions, and periods with a walk through
# each of their minutes by the time zones of Python:
#
#   amounts_vs_python.sh CALCULATOR [COUNT [SEED]]
#
# CALCULATOR is the built program amounts_calculator; COUNT the random cases of each kind.
set -eu
calculator=${1:?the path of amounts_calculator is missing}

if ! command -v python3 >/dev/null; then
  echo "skipped: no python3"
  exit 0
fi

python3 - "$calculator" "${2:-20000}" "${3:-18}" <<'PYTHON'
import datetime, random, re, subprocess, sys
from fractions import Fraction

calculator, count, seed = sys.argv[1], int(sys.argv[2]), int(sys.argv[3])
random.seed(seed)
MOST, FACTOR = 2 ** 63 - 1, 10 ** 18 - 1
failed = False


def compare(kind, cases):
    """Each case is a list of words and what has to come of it; in pieces, for cases may be many."""
    global failed
    total = wrong = refused = 0
    while piece := [case for _, case in zip(range(200000), cases)]:
        given = "".join("\t".join(map(str, words)) + "\n" for words, _ in piece)
        told = subprocess.run([calculator], input=given.encode(), stdout=subprocess.PIPE, check=True).stdout
        lines = told.decode().split("\n")[:-1]
        assert len(lines) == len(piece), (kind, len(lines), len(piece))
        for line, (words, wanted) in zip(lines, piece):
            total += 1
            refused += wanted == "!"
            if line.strip() != wanted:
                wrong += 1
                if wrong <= 5:
                    print("  DIFFERENT", words, "gave", line, "not", wanted)
    failed = failed or wrong > 0
    print(f"{kind}: {total} cases, {refused} of them refused, {wrong} different")


def size(most):
    """A number of any size up to most, of both signs."""
    return random.choice((1, -1)) * random.randint(0, min(10 ** random.randint(0, 19), most))


def rounded(exact, step, even):
    """The multiple of step nearest to exact."""
    steps = Fraction(exact) / step
    if even:
        return round(steps) * step
    nearest = int(abs(steps) + Fraction(1, 2))
    return (nearest if steps >= 0 else -nearest) * step


def amount(exact, places, even):
    if places < -3:
        return "!"
    units = rounded(exact, 10 ** (4 - min(places, 4)), even)
    return str(units) if -MOST - 1 <= units <= MOST else "!"


def factor():
    digits, decimals = size(FACTOR), random.randint(0, 18)
    if random.random() < 0.5:
        digits, decimals = size(10 ** 6), random.randint(0, 6)
    return digits, decimals, Fraction(digits, 10 ** decimals)


def decimals_of(value):
    """The decimals that value needs, and its digits."""
    for decimals in range(40):
        if (value * 10 ** decimals).denominator == 1:
            return decimals, abs(value * 10 ** decimals)


def fits(value):
    decimals, digits = decimals_of(value)
    return decimals <= 18 and digits <= FACTOR


def factor_text(value):
    decimals, digits = decimals_of(value)
    text = str(digits).rjust(decimals + 1, "0")
    sign = "-" if value < 0 else ""
    return sign + (text[:-decimals] + "." + text[-decimals:] if decimals else text)


def calculations():
    for _ in range(count):
        units, (digits, decimals, value) = size(MOST), factor()
        places, even = random.randint(-4, 5), random.randint(0, 1)
        if random.random() < 0.3:  # midpoints and their neighbours
            units = random.randint(-2000, 2000) * 50 + random.randint(-1, 1)
            digits, decimals, value = random.choice(((1, 0, 1), (5, 1, Fraction(1, 2)), (-25, 2, Fraction(-1, 4))))
        tail = [digits, decimals, places, even]
        share = Fraction(value) / 100
        yield ["product", units] + tail, amount(units * value, places, even)
        quotient = "!" if value == 0 else amount(units / Fraction(value), places, even)
        yield ["quotient", units] + tail, quotient
        yield ["percent", units] + tail, amount(units * share, places, even) if fits(share) else "!"
        isGood = fits(share) and fits(1 + share)
        yield ["with", units] + tail, amount(units * (1 + share), places, even) if isGood else "!"
        without = amount(units / (1 + share), places, even) if isGood and share != -1 else "!"
        yield ["without", units] + tail, without
        yield ["wage", units] + tail, amount(units * Fraction(digits, 60), places, even)
        whole, places = size(MOST), random.randint(0, 18)
        ratio = rounded(Fraction(units, whole), Fraction(1, 10 ** places), even) if whole else None
        isGood = whole != 0 and abs(ratio) * 10 ** places <= FACTOR
        yield ["ratio", units, whole, 0, places, even], factor_text(ratio) if isGood else "!"


def shares():
    for _ in range(count // 4):
        places, parts = random.randint(-3, 4), random.randint(1, 12)
        step = 10 ** (4 - places)
        units = size(MOST // step) * step + (random.random() < 0.1)
        good, sign, steps = units % step == 0, -1 if units < 0 else 1, abs(units) // step
        each = [steps // parts + (i < steps % parts) for i in range(parts)]
        wanted = " ".join(str(sign * step * part) for part in each)
        yield ["equal", units, places, parts], wanted if good else "!"
        weights = [random.choice((0, 1, random.randint(0, 100), abs(size(MOST // 12)))) for _ in range(parts)]
        total = sum(weights)
        if total == 0 or not good:
            yield ["weighted", units, places] + weights, "!"
            continue
        exact = [Fraction(steps * weight, total) for weight in weights]
        each = [int(share) for share in exact]
        order = sorted(range(parts), key=lambda i: (each[i] - exact[i], i))
        for i in order[:steps - sum(each)]:
            each[i] += 1
        yield ["weighted", units, places] + weights, " ".join(str(sign * step * part) for part in each)


def hours():
    for _ in range(count):
        minutes = size(MOST)
        hundredths = rounded(Fraction(minutes * 5, 3), 1, False)
        sign, size_of = "-" if minutes < 0 else "", abs(minutes)
        text = f"{sign}{size_of // 60}:{size_of % 60:02}"
        yield ["industry", minutes], str(hundredths) if abs(hundredths) <= MOST else "!"
        yield ["minutes", minutes], str(rounded(Fraction(minutes * 3, 5), 1, False))
        yield ["hourtext", minutes], text
        yield ["hours", text], str(minutes)
        if abs(hundredths) <= MOST:
            text = f"{sign}{abs(hundredths) // 100},{abs(hundredths) % 100:02}"
            yield ["industrytext", minutes], text
            yield ["industryhours", text], str(minutes)


DASH, BLANK, APOSTROPHE = "[-\u2212\u2013\u2014]", "[ \u00a0\u2009\u202f]", "['\u2019]"
MONEY = re.compile(
    f"{BLANK}*(?:(?P<sign>{DASH}|\\+)?{BLANK}*(?P<front>€|euro?)?|(?P<first>€|euro?){BLANK}*(?P<second>{DASH}|\\+))"
    f"{BLANK}*"
    f"(?:(?P<whole>[1-9][0-9]{{0,2}}(?:(?P<mark>[.]|{BLANK}|{APOSTROPHE})[0-9]{{3}}(?:(?P=mark)[0-9]{{3}})*)|[0-9]+)"
    f"(?:(?P<point>[,.])(?:(?P<decimals>[0-9]{{1,4}})|{DASH}{{1,2}}))?|,(?P<bare>[0-9]{{1,4}}))"
    f"(?P<behind>{DASH})?{BLANK}*(?P<last>€|euro?)?{BLANK}*", re.I)


def money(text):
    match = MONEY.fullmatch(text)
    if not match:
        return "!"
    part = match.groupdict()
    sign = part["sign"] or part["second"]
    decimals = part["decimals"] or part["bare"] or ""
    if part["last"] and (part["front"] or part["first"]) or part["bare"] and sign:
        return "!"
    if part["behind"] and (sign or len(decimals) < 2):
        return "!"
    if part["point"] == "." and part["decimals"] and not (part["mark"] and re.match(APOSTROPHE, part["mark"])):
        return "!"
    units = int(re.sub("[^0-9]", "", part["whole"] or "0")) * 10 ** 4 + int(decimals.ljust(4, "0"))
    if sign and sign != "+" or part["behind"]:
        units = -units
    return str(units) if -MOST - 1 <= units <= MOST else "!"


def hour_text(text, industry):
    blank = f"(?:{BLANK})*"
    match = re.fullmatch(f"{blank}({DASH}|\\+)?([0-9]*):([0-5][0-9]){blank}", text)
    if match:
        minutes = int(match[2] or 0) * 60 + int(match[3])
    elif industry and (match := re.fullmatch(f"{blank}({DASH}|\\+)?([0-9]*)(?:,([0-9]{{1,2}}))?{blank}", text)):
        if not match[2] and not match[3]:
            return "!"
        minutes = int(match[2] or 0) * 60 + rounded(Fraction(int((match[3] or "").ljust(2, "0")) * 3, 5), 1, False)
    else:
        return "!"
    minutes = -minutes if match[1] and match[1] != "+" else minutes
    return str(minutes) if -MOST - 1 <= minutes <= MOST else "!"


def factor_of(text):
    match = re.fullmatch(f"{BLANK}*({DASH}|\\+)?([0-9]+)(?:,([0-9]+))?{BLANK}*(%)?{BLANK}*", text)
    if not match:
        return "!"
    decimals = (match[3] or "").rstrip("0")
    value = Fraction(int(match[2] + decimals), 10 ** len(decimals) * (100 if match[4] else 1))
    value = -value if match[1] and match[1] != "+" else value
    return factor_text(value) if fits(value) and int(match[2] + decimals) < 2 ** 64 else "!"


def texts():
    pieces = ["", "", "", " ", "-", "+", "€", "EUR", "euro", ",", ".", ":", "'", "\u2019", "\u2212", "\u2013", "\u00a0",
              "0", "00", "5", "25", "234", "1234", "59", "60", "%", "x", ",5", ",50", ",-", ".-", ".234", " 234",
              "'234", ":30", "\u202f", "922337203685477", "153722867280912930", "007"]
    whole = ["1", "25", "1.234", "1 234", "1'234.567", "1'234'567", "1234", "0", "", "001", "12.345.678"]
    for _ in range(count):
        text = "".join(random.choice(pieces) for _ in range(random.randint(1, 6)))
        kind = random.random()
        if kind < 0.3:
            digits = lambda most: "".join(random.choice("0123456789") for _ in range(random.randint(0, most)))
            text = "".join((random.choice(["", " ", "-", "+", "\u2212"]), digits(random.choice((3, 19))),
                            random.choice(":,"), digits(random.choice((2, 2, 19))), random.choice(["", "", " ", "%", " %"])))
        elif kind < 0.7:
            text = "".join((random.choice(["", "", "-", "+", "- ", "€", "EUR ", "€ -", "-€"]), random.choice(whole),
                            random.choice(["", ",5", ",50", ",5000", ".50", ",-", ",--", ".-", ",\u2013", ",12345"]),
                            random.choice(["", "", "-", " €", "€", " EUR", " Euro", "- €", " x"])))
        yield ["money", text], money(text)
        yield ["hours", text], hour_text(text, False)
        yield ["industryhours", text], hour_text(text, True)
        yield ["factor", text], factor_of(text)


def walks(zone):
    """Periods around changes of summer time and elsewhere, walked minute by minute in universal time."""
    utc, epoch = datetime.timezone.utc, datetime.datetime(1899, 12, 30)
    minute = datetime.timedelta(minutes=1)

    def last_sunday(year, month):
        day = datetime.date(year, month, 31 if month != 9 else 30)
        return day - datetime.timedelta(days=day.isoweekday() % 7)

    for _ in range(min(count // 20, 3000)):
        year = random.randint(1981, 2040)
        day = last_sunday(year, random.choice((3, 10 if year > 1995 else 9)))
        if random.random() < 0.3:
            day = datetime.date(year, 1, 1) + datetime.timedelta(days=random.randint(0, 364))
        middle = datetime.datetime(day.year, day.month, day.day, 1, tzinfo=utc)
        start = middle - random.randint(0, 2000) * minute
        end = start + random.randint(1, 3000) * minute
        window = random.choice(((1200, 360), (1320, 300), (0, 360), (1200, 1440), (361, 1199)))
        parts, key, at = [], None, start
        local, following = start.astimezone(zone), None
        while at < end:
            following = (at + minute).astimezone(zone)
            now = local.hour * 60 + local.minute
            night = window[0] <= now < window[1] if window[0] < window[1] else now >= window[0] or now < window[1]
            if (local.date(), night) != key:
                key = local.date(), night
                parts.append([night, local.isoweekday(), local.replace(tzinfo=None), None, 0])
            parts[-1][3], parts[-1][4] = following.replace(tzinfo=None), parts[-1][4] + 1
            at, local = at + minute, following
        first, last = start.astimezone(zone), end.astimezone(zone)
        # A part ends where the next one begins; a window that is skipped has no minute, so none may be.
        skipped = any(b[2] != a[3] for a, b in zip(parts, parts[1:]))
        assert not skipped, (start, end)
        shown = [f"{'N' if n else 'D'}{w},{(b - a) // minute},{e}" for n, w, a, b, e in parts]
        words = ["split"] + [(m.replace(tzinfo=None) - epoch) // minute for m in (first, last)]
        yield words + [int(first.fold), int(last.fold), *window], " ".join(shown)


compare("products, quotients, percentages", calculations())
compare("shares", shares())
compare("hours", hours())
compare("texts", texts())
try:
    import zoneinfo
    berlin = zoneinfo.ZoneInfo("Europe/Berlin")
except Exception as error:
    print("periods skipped:", error)
else:
    compare("periods", walks(berlin))
sys.exit(failed)
PYTHON
