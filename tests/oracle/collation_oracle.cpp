// Compares the German order of Collation.h with ICU's German collator, as an independent oracle:
//   collation_oracle [directory of name lists in UTF-8, *.csv]
// All pairs of single letters and signs always; with a directory also the cells of its lists, each
// with its neighbours and in random pairs. Exit status 1 for a difference that isn't a documented one.
#include <unicode/coll.h>
#include <unicode/normalizer2.h>
#include <unicode/uscript.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/Collation.h"
#include "platform/Text.h"

namespace {

int Sign(int Value) { return (Value > 0) - (Value < 0); }

std::unique_ptr<icu::Collator> MakeCollator(icu::Collator::ECollationStrength Strength) {
  UErrorCode error = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> result(icu::Collator::createInstance(icu::Locale("de"), error));
  if (result != nullptr) {
    result->setAttribute(UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, error);
    result->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, error);
    result->setStrength(Strength);
  }
  if (U_FAILURE(error)) {
    std::fprintf(stderr, "ICU: %s\n", u_errorName(error));
    std::exit(2);
  }
  return result;
}

// Sorted behind the letters by code unit: other scripts and control characters.
bool IsBehind(char16_t Unit) {
  UErrorCode error = U_ZERO_ERROR;
  UScriptCode script = uscript_getScript(Unit, &error);
  bool common = script == USCRIPT_LATIN || script == USCRIPT_COMMON || script == USCRIPT_INHERITED;
  bool listed = Unit < 0x370 || (Unit >= 0x1E00 && Unit <= 0x20C0) || (Unit >= 0x2C60 && Unit <= 0x2C7F) ||
                (Unit >= 0xFB00 && Unit <= 0xFB06) || (Unit >= 0xFEFF && Unit <= 0xFF5E);
  bool control = Unit < 9 || (Unit > 13 && Unit < 32) || (Unit > 126 && Unit < 160 && Unit != 0x85);
  return !common || !listed || control || Unit == u'µ';
}

// Holds marks that have another canonical order than the one they stand in.
bool HasLooseMarks(const std::u16string& Text) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2& nfd = *icu::Normalizer2::getNFDInstance(error);
  icu::UnicodeString units;
  for (char16_t unit : Text) units += nfd.normalize(icu::UnicodeString(unit), error);
  return nfd.normalize(units, error) != units;
}

class TComparison {
 public:
  void Pair(const std::u16string& A, const std::u16string& B) {
    ++FPairs;
    int text = Compare(*FSecondary, A, B), str = Compare(*FTertiary, A, B);
    Check("Text", A, B, Sign(vx::AnsiCompareText(A, B)), text, false);
    Check("Str", A, B, Sign(vx::AnsiCompareStr(A, B)), str, text == 0);
  }

  // Prints counts and examples; true if every difference is a documented one.
  bool Report(const char* What) const {
    std::printf("%s: %ld pairs, each in both forms\n", What, FPairs);
    for (const auto& [kind, entry] : FDifferences) {
      std::printf("  %s: %ld\n", kind.c_str(), entry.first);
      for (const std::string& line : entry.second) std::printf("    %s\n", line.c_str());
    }
    return FDifferences.count("UNDOCUMENTED") == 0;
  }

 private:
  static int Compare(const icu::Collator& Collator, const std::u16string& A, const std::u16string& B) {
    UErrorCode error = U_ZERO_ERROR;
    return Collator.compare(A.data(), static_cast<int>(A.size()), B.data(), static_cast<int>(B.size()), error);
  }

  void Check(const char* Form, const std::u16string& A, const std::u16string& B, int Ours, int Icu, bool OnlyCase) {
    if (Ours == Icu) return;
    std::string kind = "UNDOCUMENTED";
    if (std::any_of(A.begin(), A.end(), IsBehind) || std::any_of(B.begin(), B.end(), IsBehind)) {
      kind = "other scripts and control characters stand behind";
    } else if (Icu == 0) {
      kind = "equal for ICU, told apart by code units";
    } else if (OnlyCase && vx::LowerCase(vx::String(A)) != vx::LowerCase(vx::String(B))) {
      kind = "shape counts before case";
    } else if (HasLooseMarks(A) || HasLooseMarks(B)) {
      kind = "marks count in the order in which they stand";
    }
    auto& [count, lines] = FDifferences[kind];
    if (++count <= 5 || (kind == "UNDOCUMENTED" && count <= 40)) {
      lines.push_back(std::string(Form) + " ours " + std::to_string(Ours) + ", ICU " + std::to_string(Icu) + ": " +
                      vx::String(A).ToUtf8() + " | " + vx::String(B).ToUtf8());
    }
  }

  std::unique_ptr<icu::Collator> FSecondary = MakeCollator(icu::Collator::SECONDARY);
  std::unique_ptr<icu::Collator> FTertiary = MakeCollator(icu::Collator::TERTIARY);
  long FPairs = 0;
  std::map<std::string, std::pair<long, std::vector<std::string>>> FDifferences;
};

std::vector<std::u16string> ReadCells(const std::filesystem::path& Directory) {
  std::set<std::u16string> cells;
  for (const auto& file : std::filesystem::directory_iterator(Directory)) {
    if (file.path().extension() != ".csv") continue;
    std::ifstream stream(file.path(), std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    std::u16string cell;
    for (char16_t unit : vx::String::FromUtf8(bytes)) {
      if (unit == 0xFEFF || unit == u'\r') continue;
      if (unit != u',' && unit != u';' && unit != u'\n') {
        cell += unit;
      } else if (!cell.empty()) {
        cells.insert(std::exchange(cell, {}));
      }
    }
  }
  return {cells.begin(), cells.end()};
}

bool CompareNames(std::vector<std::u16string> Cells) {
  std::mt19937 random(20081);
  auto less = [](const std::u16string& A, const std::u16string& B) { return vx::AnsiCompareStr(A, B) < 0; };
  std::sort(Cells.begin(), Cells.end(), less);
  TComparison neighbours, pairs;
  for (size_t i = 1; i < Cells.size(); ++i) neighbours.Pair(Cells[i - 1], Cells[i]);
  for (int i = 0; i < 2000000; ++i) pairs.Pair(Cells[random() % Cells.size()], Cells[random() % Cells.size()]);
  bool good = neighbours.Report("neighbours");
  return pairs.Report("random pairs") && good;
}

bool CompareUnits() {
  TComparison alone, within;
  std::vector<char16_t> units;
  constexpr int ranges[][2] = {{0x20, 0x362},    {0x1E00, 0x1EFF}, {0x2000, 0x2056}, {0x2058, 0x205F},
                               {0x20A0, 0x20C0}, {0x2C60, 0x2C7F}, {0xFB00, 0xFB06}, {0xFF01, 0xFF5E}};
  for (const auto& [first, last] : ranges) {
    for (int unit = first; unit <= last; ++unit) units.push_back(static_cast<char16_t>(unit));
  }
  std::mt19937 random(7);
  const std::u16string frame = u"aAsSeE\u0301\u0308ß";
  for (char16_t a : units) {
    for (char16_t b : units) {
      alone.Pair({a}, {b});
      within.Pair({frame[random() % 9], a, frame[random() % 9]}, {frame[random() % 9], b, frame[random() % 9]});
    }
  }
  bool good = alone.Report("single units");
  return within.Report("units between letters") && good;
}

}  // namespace

int main(int argc, char** argv) {
  bool good = CompareUnits();
  std::vector<std::u16string> cells;
  if (argc > 1 && std::filesystem::is_directory(argv[1])) cells = ReadCells(argv[1]);
  if (cells.empty()) {
    std::printf("name lists: skipped, %s holds none\n", argc > 1 ? argv[1] : "(no directory given)");
  } else {
    good = CompareNames(std::move(cells)) && good;
  }
  std::printf("%s\n", good ? "no undocumented difference" : "UNDOCUMENTED DIFFERENCES");
  return good ? 0 : 1;
}
