// Makes the tables of a care service for examples/care_office: patients, prices, and a year of visits, with what goes
// wrong in an office planted among them. The same on every machine.
//
//   care_office_data DIRECTORY
#include <cstdio>

#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/Format.h"
#include "platform/SafeFiles.h"
#include "tables/Csv.h"

namespace {

using namespace vx;

constexpr int kPatients = 5000, kVisits = 20000, kNurses = 60;
constexpr const char16_t* kFirst[] = {u"Anna", u"Łukasz", u"Jörg", u"Zoë", u"Heinz", u"Ayşe", u"Grete", u"Paul"};
constexpr const char16_t* kLast[] = {u"Müller", u"Weiß",           u"Wiśniewski",         u"von der Heide", u"Öztürk",
                                     u"Groß",   u"\"Anni\" Bößer", u"Meier; geb. Schulz", u"Ernst"};
constexpr const char16_t* kServices[] = {u"GP", u"BP", u"HW", u"NW", u"BE"};

unsigned Random(unsigned End) {
  static uint64_t state = 4711;
  state = state * 6364136223846793005u + 1442695040888963407u;
  return static_cast<unsigned>((state >> 33) % End);
}

String PatientId(int Number) { return Format(u"P-%.4d", {Number}); }
String TimeText(TDateTime Value) { return FormatDateTime(u"dd.mm.yyyy hh:nn", Value); }

void WritePatients(const String& Directory) {
  TCsvWriter writer({.Separator = u';', .HasMark = false});
  writer.Write({u"Nummer", u"Name", u"Geboren", u"Pflegegrad"});
  for (int i = 1; i <= kPatients; ++i) {
    const String name = Concat({kFirst[Random(8)], u" ", kLast[Random(9)]});
    String born = FormatDateTime(u"dd.mm.yyyy", EncodeDate(1925, 1, 1) + Random(9000));
    String level = Format(u"%d", {static_cast<int>(1 + Random(5))});
    if (i == 1313) born = u"31.02.1940";
    if (i == 2626) level = u"6";
    writer.Write({PatientId(i == 4000 ? 3999 : i), name, born, level});  // one number stands twice, one is missing
  }
  ReplaceFileContent(Concat({Directory, u"/patienten.csv"}), writer.Bytes());
}

void WritePrices(const String& Directory) {
  TCsvWriter writer({.Separator = u';', .HasMark = false});
  writer.Write({u"Leistung", u"Text", u"Stundensatz", u"Nachtzuschlag"});
  writer.Write({u"GP", u"Grundpflege", u"38,53 €", u"25 %"});
  writer.Write({u"BP", u"Behandlungspflege", u"52,-", u"25 %"});
  writer.Write({u"HW", u"Hauswirtschaft", u"29,99", u"0"});
  writer.Write({u"NW", u"Nachtwache", u"1.034,50 EUR", u"12,5 %"});
  writer.Write({u"BE", u"Betreuung", u"31,17 €", u"10 %"});
  ReplaceFileContent(Concat({Directory, u"/preise.csv"}), writer.Bytes());
}

// What is wrong with visit number i; most are as they should be.
void Plant(int i, String& Patient, String& Begin, String& End, String& Service, String& Factor) {
  switch (i) {
    case 100:
      Patient = u"P-9999";
      break;  // nobody
    case 2000:
      Begin = u"30.02.2026 10:00";
      break;  // no such day
    case 3000:
      End = u"25:61";
      break;  // no moment
    case 4000:
      std::swap(Begin, End);
      break;  // ends before it begins
    case 5000:
      Service = u"XY";
      break;  // no such service
    case 6000:
      Factor = u"1.25";
      break;  // a point for a comma
    case 7000:
      Begin = u"";
      break;  // forgotten
    case 8000:
      Factor = u"1,1O";
      break;  // the letter O
    case 9000:
      Begin = u"29.03.2026 01:30", End = u"29.03.2026 03:30";
      break;  // right: an hour passed
    case 9500:
      Begin = u"25.10.2026 01:00", End = u"25.10.2026 04:00";
      break;  // right: four hours
    default:
      break;
  }
}

void WriteVisits(const String& Directory) {
  TCsvWriter writer({.Separator = u';', .HasMark = false});
  writer.Write({u"Nummer", u"Patient", u"Pflegekraft", u"Beginn", u"Ende", u"Leistung", u"Faktor"});
  for (int i = 1; i <= kVisits; ++i) {
    // No visit touches the hours that the clock skips or shows twice, but for the planted ones.
    const int day = static_cast<int>(Random(365)), hour = static_cast<int>(6 + Random(13));
    const bool isNight = Random(10) == 0 && day != 86 && day != 296;
    const TDateTime begin =
        EncodeDate(2026, 1, 1) + day + EncodeTime((hour + (isNight ? 4 : 0)) % 24, Random(12) * 5, 0, 0);
    const int minutes = static_cast<int>(15 + Random(200));
    String patient = PatientId(static_cast<int>(1 + Random(3900))), service = kServices[Random(5)];
    String from = TimeText(begin), to = TimeText(begin + (minutes + 0.01) / 1440);
    String factor = Format(u"1,%.2d", {static_cast<int>(Random(30))});
    const String nurse = Format(u"N-%.2d", {static_cast<int>(1 + Random(kNurses))});
    Plant(i, patient, from, to, service, factor);
    writer.Write({Format(u"%d", {i}), patient, nurse, from, to, service, factor});
  }
  ReplaceFileContent(Concat({Directory, u"/einsaetze.csv"}), writer.Bytes());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const String directory = String::FromUtf8(argv[1]);
  WritePatients(directory);
  WritePrices(directory);
  WriteVisits(directory);
  return 0;
}
