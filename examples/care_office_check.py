#!/usr/bin/env python3
"""Recomputes what examples/care_office made of its tables, with exact fractions, and compares: care_office_check.py DIR"""
import csv
import re
import sys
from collections import defaultdict
from datetime import datetime, timedelta
from fractions import Fraction
from pathlib import Path
from zoneinfo import ZoneInfo

ZONE = ZoneInfo("Europe/Berlin")
folder = Path(sys.argv[1])


def rows(name):
    with open(folder / name, encoding="utf-8", newline="") as file:
        table = csv.reader(file, delimiter=";")
        head = next(table)
        for row in table:
            yield table.line_num, dict(zip(head, row))


def money(text):
    text = re.sub(r"\s*(€|EUR)$", "", text).replace(",-", "").replace(".", "").replace(",", ".")
    return Fraction(text)


def rounded(value, places=2):
    scaled = abs(value) * 10**places
    cents = int(scaled + Fraction(1, 2))
    return Fraction(cents if value >= 0 else -cents, 10**places)


def moment(text):
    return datetime.strptime(text, "%d.%m.%Y %H:%M") if re.fullmatch(r"\d\d\.\d\d\.\d{4} \d\d:\d\d", text) else None


def elapsed(begin, end):
    utc = [t.replace(tzinfo=ZONE).astimezone(ZoneInfo("UTC")) for t in (begin, end)]
    return int((utc[1] - utc[0]).total_seconds()) // 60


def night(begin, end):
    """Minutes between 20:00 and 6:00, counted one by one as time that passed."""
    count = elapsed(begin, end)
    if timedelta(minutes=count) == end - begin:
        first = begin.hour * 60 + begin.minute
        return sum(not 360 <= minute % 1440 < 1200 for minute in range(first, first + count))
    minutes, at = 0, begin.replace(tzinfo=ZONE).astimezone(ZoneInfo("UTC"))
    for _ in range(count):
        minutes += not 6 <= at.astimezone(ZONE).hour < 20
        at += timedelta(minutes=1)
    return minutes


def hours(minutes):
    return f"{minutes // 60}:{minutes % 60:02}"


def cents(value):
    text = f"{int(value * 100):03}"
    return text[:-2] + "," + text[-2:]


faults = set()
patients = {}
for line, row in rows("patienten.csv"):
    number = row["Nummer"]
    try:
        datetime.strptime(row["Geboren"], "%d.%m.%Y")
    except ValueError:
        faults.add(("patienten.csv", line))
    if not row["Pflegegrad"] in "12345":
        faults.add(("patienten.csv", line))
    if number in patients:
        faults.add(("patienten.csv", line))
    else:
        patients[number] = row
prices = {row["Leistung"]: (money(row["Stundensatz"]), Fraction(row["Nachtzuschlag"].replace(" %", "").replace(",", ".")))
          for _, row in rows("preise.csv")}

accounts = defaultdict(lambda: [0, 0, 0, Fraction(0)])
for line, row in rows("einsaetze.csv"):
    try:
        begin, end = moment(row["Beginn"]), moment(row["Ende"])
    except ValueError:
        begin = end = None
    known = row["Patient"] in patients and row["Leistung"] in prices and re.fullmatch(r"\d+,\d+", row["Faktor"])
    if not begin or not end or not known or end < begin:
        faults.add(("einsaetze.csv", line))
        continue
    rate, surcharge = prices[row["Leistung"]]
    rate *= Fraction(row["Faktor"].replace(",", "."))
    minutes, dark = elapsed(begin, end), night(begin, end)
    amount = rounded(rate * minutes / 60) + rounded(rounded(rate * dark / 60) * surcharge / 100)
    account = accounts[row["Pflegekraft"], f"{begin.year}-{begin.month:02}"]
    for at, value in enumerate((1, minutes, dark, amount)):
        account[at] += value

wanted = {key: [str(n), hours(m), hours(d), cents(a)] for key, (n, m, d, a) in accounts.items()}
found = {(row["Pflegekraft"], row["Monat"]): [row["Einsätze"], row["Stunden"], row["Nacht"], row["Betrag"].replace(".", "")]
         for _, row in rows("konten.csv")}
told = {(row["Datei"], int(row["Zeile"])) for _, row in rows("fehler.csv")}
wrong = [key for key in wanted.keys() | found.keys() if wanted.get(key) != found.get(key)]
for key in wrong[:5]:
    print(f"{key}: {found.get(key)} instead of {wanted.get(key)}")
for fault in sorted(faults ^ told):
    print(f"{fault}: {'not found' if fault in faults else 'no fault'}")
print(f"{len(wanted)} accounts and {len(faults)} faults, {len(wrong)} accounts differ, {len(faults ^ told)} faults")
sys.exit(1 if wrong or faults != told else 0)
