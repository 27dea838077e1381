#include "bench/tables/GermanTable.h"

#include <cstdio>
#include <random>
#include <string_view>

namespace vx::bench {

namespace {

constexpr std::string_view kSurnames[] = {"M\xFCller",
                                          "Schmidt",
                                          "Schneider",
                                          "Fischer",
                                          "Weber",
                                          "Meyer",
                                          "Wagner",
                                          "Becker",
                                          "Schulz",
                                          "Hoffmann",
                                          "Sch\xE4"
                                          "fer",
                                          "Koch",
                                          "Bauer",
                                          "Richter",
                                          "Klein",
                                          "Wolf",
                                          "Schr\xF6"
                                          "der",
                                          "Neumann",
                                          "Schwarz",
                                          "Zimmermann",
                                          "Braun",
                                          "Kr\xFCger",
                                          "Hofmann",
                                          "Hartmann",
                                          "Lange",
                                          "Schmitt",
                                          "Werner",
                                          "Krause",
                                          "Lehmann",
                                          "K\xF6hler",
                                          "M\xFCller-L\xFC"
                                          "denscheid",
                                          "von der Heide",
                                          "Wei\xDF",
                                          "Gro\xDFmann",
                                          "J\xE4ger",
                                          "B\xF6hm"};
constexpr std::string_view kFirstNames[] = {
    "Anna",     "J\xFCrgen", "Ursula",   "Hans-Peter", "Karin",     "Wolfgang", "Renate", "Horst",
    "Helga",    "Klaus",     "Monika",   "Dieter",     "Ingrid",    "Manfred",  "Erika",  "G\xFCnter",
    "Brigitte", "Heinz",     "K\xE4the", "S\xF6ren",   "B\xE4rbel", "Gisela",   "Uwe",    "Marie Luise"};
constexpr std::string_view kTowns[] = {"Berlin",
                                       "Hamburg",
                                       "M\xFCnchen",
                                       "K\xF6ln",
                                       "Frankfurt am Main",
                                       "Stuttgart",
                                       "D\xFCsseldorf",
                                       "Leipzig",
                                       "Dortmund",
                                       "Essen",
                                       "Bremen",
                                       "Dresden",
                                       "Hannover",
                                       "N\xFCrnberg",
                                       "Duisburg",
                                       "Bochum",
                                       "Wuppertal",
                                       "Bielefeld",
                                       "Bonn",
                                       "M\xFCnster",
                                       "Bad Homburg",
                                       "G\xF6ttingen",
                                       "L\xFC"
                                       "beck",
                                       "Rostock"};
constexpr std::string_view kWords[] = {"Pflege",
                                       "nach",
                                       "Absprache",
                                       "mit",
                                       "der",
                                       "Tochter",
                                       "Schl\xFCssel",
                                       "beim",
                                       "Nachbarn",
                                       "Medikamente",
                                       "morgens",
                                       "und",
                                       "abends",
                                       "Hausbesuch",
                                       "vor",
                                       "dem",
                                       "Fr\xFChst\xFC"
                                       "ck",
                                       "Verordnung",
                                       "liegt",
                                       "Arztgespr\xE4"
                                       "ch",
                                       "am"};

class TMaker {
 public:
  TMaker(std::string& Target, unsigned Seed) : FTarget(Target), FRandom(Seed) {}

  void Row(int Number) {
    FTarget += std::to_string(Number);
    Cell(Pick(kSurnames));
    Cell(Pick(kFirstNames));
    Print(";%02u.%02u.%04u", 1 + Below(28), 1 + Below(12), 1925 + Below(100));
    Print(";%05u", 1000 + Below(98000));
    Cell(Pick(kTowns));
    Print(";%u", 1 + Below(5));
    Print(";%02u:%02u", Below(24), Below(60));
    Print(";%u.%03u,%02u", 1 + Below(9), Below(1000), Below(100));
    Remark();
    FTarget += "\r\n";
  }

 private:
  unsigned Below(unsigned Limit) { return static_cast<unsigned>(FRandom() % Limit); }
  template <size_t N>
  std::string_view Pick(const std::string_view (&Words)[N]) {
    return Words[Below(N)];
  }
  template <typename... T>
  void Print(const char* Format, T... Values) {
    char buffer[32];
    FTarget.append(buffer, static_cast<size_t>(std::snprintf(buffer, sizeof buffer, Format, Values...)));
  }
  void Cell(std::string_view Text) {
    FTarget += ';';
    if (Text.find_first_of(" \r\n\t\";") == Text.npos) {
      FTarget += Text;
      return;
    }
    FTarget += '"';
    for (char c : Text) {
      if (c == '"') FTarget += '"';
      FTarget += c;
    }
    FTarget += '"';
  }
  void Remark() {
    size_t length = Below(61);
    std::string text;
    while (text.size() < length) {
      if (!text.empty()) text += ' ';
      text += Pick(kWords);
    }
    text.resize(length);
    if (length > 8 && Below(5) == 0) {
      static constexpr std::string_view kSpecial[] = {"; ", "\"\"", "\r\n"};
      text.replace(length / 2, 2, Pick(kSpecial));
    }
    while (!text.empty() && text.back() == ' ') text.back() = '.';
    Cell(text);
  }

  std::string& FTarget;
  std::mt19937 FRandom;
};

}  // namespace

std::string MakeGermanTable(int Rows, unsigned Seed) {
  std::string result;
  TMaker maker(result, Seed);
  for (int i = 1; i <= Rows; ++i) maker.Row(i);
  return result;
}

}  // namespace vx::bench
