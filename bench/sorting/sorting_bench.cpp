// Sorting and looking up side by side with ICU and with what the standard library gives: a million rows in
// the order of a column, single comparisons, rows by their key, and the subtypes.
//
// Each side begins with its own table in memory and ends with the order of its rows. The results are compared
// before they count. An argument names the one topic to measure: subtypes, orders, comparisons, keys or tables.
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <random>

#include "bench/sorting/Peers.h"
#include "bench/support/Bench.h"
#include "bench/tables/GermanTable.h"
#include "core/uConst.h"
#include "platform/CodePage.h"
#include "platform/Collation.h"
#include "platform/Numbers.h"
#include "tables/uFileCsv.h"
#include "tables/uSort.h"

namespace vx::bench {

namespace {

enum TColumn {
  colNumber,
  colSurname,
  colFirstName,
  colDate,
  colPostCode,
  colTown,
  colLevel,
  colHours,
  colAmount,
  colRemark
};
constexpr std::string_view kHead = "Nummer;Name;Vorname;Datum;PLZ;Ort;Stufe;Stunden;Betrag;Bemerkung\r\n";

constexpr int kRounds = 5;
constexpr int kLookUps = 200;
constexpr size_t kTexts = 16384, kPairs = 32768;

// Fills Table from a file that is there for this only.
void Load(TFileCsv& Table, const std::string& Bytes) {
  const char* directory = std::getenv("TMPDIR");
  std::string path = std::string(directory ? directory : "/tmp") + "/vx_bench_sorting.txt";
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file || std::fwrite(Bytes.data(), 1, Bytes.size(), file) != Bytes.size()) std::abort();
  std::fclose(file);
  Expect(Table.LoadFromFile(String::FromUtf8(path)), path);
  unlink(path.c_str());
}

TNarrowTable Narrow(const TFileCsv& Table) {
  TNarrowTable result;
  for (int row = 0; row < Table.GetCount(); ++row) {
    std::vector<std::string>& cells = result.emplace_back();
    cells.reserve(Table.GetLines(row)->Items().size());
    for (const String& cell : Table.GetLines(row)->Items()) cells.push_back(GetSystemCodePage().Encode(cell));
  }
  return result;
}

TWideTable Wide(const TFileCsv& Table) {
  TWideTable result;
  for (int row = 0; row < Table.GetCount(); ++row) {
    std::vector<std::u16string>& cells = result.emplace_back();
    cells.reserve(Table.GetLines(row)->Items().size());
    for (const String& cell : Table.GetLines(row)->Items()) cells.emplace_back(cell.view());
  }
  return result;
}

// --- rows in the order of a column ---

TOrder OrderOurs(const TFileCsv& Table, int Col, TVxFieldType FieldType) {
  std::vector<const TVxStringList*> rows;
  rows.reserve(static_cast<size_t>(Table.GetCount()));
  for (int row = 0; row < Table.GetCount(); ++row) rows.push_back(Table.GetLines(row));
  const TSortColumn by[] = {{.Index = Col, .SortType = FieldType, .SortDirection = 1, .DateTimeFormat = {}}};
  return OrderRows(rows, by);
}

// What the order has to be.
template <typename TCompare>
TOrder OrderPlain(const TFileCsv& Table, int Col, TCompare Comparison) {
  std::vector<std::pair<String, int>> entries;
  for (int row = 0; row < Table.GetCount(); ++row) entries.emplace_back(Table.GetCell(Col, row), row);
  std::stable_sort(entries.begin(), entries.end(),
                   [&](const auto& A, const auto& B) { return Comparison(A.first, B.first) < 0; });
  TOrder order;
  for (const auto& entry : entries) order.push_back(entry.second);
  return order;
}

template <typename TWork>
auto Timed(TWork Work) {
  return [Work] { return Time([&] { ::benchmark::DoNotOptimize(Work()); }); };
}

// A column of texts beside ICU and bytes. Returns our seconds.
double MeasureTexts(const std::string& What, const TFileCsv& Ours, const TNarrowTable& NarrowTable, TColumn Col,
                    TBar Bar = {}) {
  const TWideTable wide = Wide(Ours);
  const TIcuOrder icu;
  const size_t col = Col;
  TOrder order = OrderOurs(Ours, Col, vftString);
  Expect(order == OrderPlain(Ours, Col, AnsiCompareText), What + " beside AnsiCompareText");
  Expect(order == icu.ByKeys(wide, col), What + " beside ICU's keys");
  Expect(order == icu.ByCompare(wide, col), What + " beside ICU's comparison");
  auto times = Medians(kRounds, Timed([&] { return OrderOurs(Ours, Col, vftString); }),
                       Timed([&] { return icu.ByKeys(wide, col); }), Timed([&] { return icu.ByCompare(wide, col); }),
                       Timed([&] { return OrderByBytes(NarrowTable, col); }));
  Report(What, times[0], "icu_keys", times[1], 1, Bar);
  Report(What, times[0], "icu_compare", times[2]);
  Report(What, times[0], "bytes", times[3]);
  return times[0];
}

// A column of values beside values read once by hand. Returns our seconds.
double MeasureValues(const std::string& What, const TFileCsv& Ours, const TNarrowTable& NarrowTable, TColumn Col,
                     TVxFieldType FieldType, TOrder (*Peer)(const TNarrowTable&, size_t)) {
  TOrder order = OrderOurs(Ours, Col, FieldType);
  auto comparison = [&](const String& A, const String& B) { return Compare(A, B, FieldType, u""); };
  Expect(order == OrderPlain(Ours, Col, comparison), What + " beside Compare");
  Expect(order == Peer(NarrowTable, Col), What + " beside values read by hand");
  auto times = Medians(kRounds, Timed([&] { return OrderOurs(Ours, Col, FieldType); }),
                       Timed([&] { return Peer(NarrowTable, Col); }));
  Report(What, times[0], "hand", times[1], 1, TBar::AtLeast(1));
  return times[0];
}

std::vector<double> MeasureOrders(int Rows, const std::string& Size) {
  TFileCsv ours;
  Load(ours, MakeGermanTable(Rows));
  const TNarrowTable narrow = Narrow(ours);
  const std::string prefix = "sorting/";
  return {MeasureTexts(prefix + "surname" + Size, ours, narrow, colSurname, TBar::AtLeast(1.5)),
          MeasureTexts(prefix + "remark" + Size, ours, narrow, colRemark),
          MeasureValues(prefix + "date" + Size, ours, narrow, colDate, vftDate, OrderByDate),
          MeasureValues(prefix + "amount" + Size, ours, narrow, colAmount, vftCurrency, OrderByAmount),
          MeasureValues(prefix + "hours" + Size, ours, narrow, colHours, vftHour, OrderByHours)};
}

void MeasureAllOrders() {
  const std::vector<double> small = MeasureOrders(100000, "_100k"), big = MeasureOrders(1000000, "");
  const char* const names[] = {"surname", "remark", "date", "amount", "hours"};
  for (size_t i = 0; i < small.size(); ++i) {
    ReportGrowth(std::string("sorting/") + names[i], "tenth_of_1m", big[i] * 100, "at_100k", small[i] * 1e3, "ms");
  }
}

// --- single comparisons ---

using TPair = std::pair<std::u16string_view, std::u16string_view>;

std::vector<TPair> RandomPairs(const std::vector<std::u16string>& Texts) {
  std::mt19937 random(17);
  auto any = [&]() -> std::u16string_view { return Texts[random() % Texts.size()]; };
  std::vector<TPair> pairs;
  for (size_t i = 0; i < kPairs; ++i) {
    std::u16string_view first = any();
    pairs.emplace_back(first, any());
  }
  return pairs;
}

template <typename TLess>
std::vector<TPair> Neighbours(std::vector<std::u16string>& Texts, TLess Less) {
  std::stable_sort(Texts.begin(), Texts.end(), Less);
  std::vector<TPair> pairs;
  for (size_t i = 0; i < kPairs; ++i)
    pairs.emplace_back(Texts[i % (Texts.size() - 1)], Texts[i % (Texts.size() - 1) + 1]);
  return pairs;
}

template <typename TCompare>
auto TimedPairs(const std::vector<TPair>& Pairs, TCompare Comparison) {
  return Timed([&Pairs, Comparison] {
    int sum = 0;
    for (const auto& [a, b] : Pairs) sum += Comparison(a, b) < 0;
    return sum;
  });
}

int Sign(int Value) { return (Value > 0) - (Value < 0); }

void MeasurePairs(std::string_view What, const std::vector<TPair>& Pairs, TBar OfOurs = {}, TBar OfRatio = {}) {
  const TIcuOrder icu;
  auto ours = [](std::u16string_view A, std::u16string_view B) { return AnsiCompareText(A, B); };
  auto peer = [&](std::u16string_view A, std::u16string_view B) { return icu.Compare(A, B); };
  for (const auto& [a, b] : Pairs) Expect(Sign(ours(a, b)) == Sign(peer(a, b)), What);
  auto times = Medians(31, TimedPairs(Pairs, ours), TimedPairs(Pairs, peer));
  Report(What, times[0], "icu", times[1], kPairs, OfRatio);
  ReportOurs(What, times[0], kPairs, OfOurs);
}

void MeasureTextPairs(const TFileCsv& Table) {
  auto less = [](const std::u16string& A, const std::u16string& B) { return AnsiCompareText(A, B) < 0; };
  std::vector<std::u16string> names, doubleNames;
  for (int row = 0; row < static_cast<int>(kTexts); ++row) names.emplace_back(Table.GetCell(colSurname, row).view());
  MeasurePairs("sorting/compare_random", RandomPairs(names), TBar::AtMost(15));
  MeasurePairs("sorting/compare_neighbours", Neighbours(names, less), {}, TBar::AtLeast(2));
  // Hardly two of these are equal, and neighbours have their beginnings in common.
  names.erase(std::unique(names.begin(), names.end()), names.end());
  for (const std::u16string& first : names) {
    for (const std::u16string& second : names) doubleNames.push_back(first + u"-" + second);
  }
  MeasurePairs("sorting/compare_double_names_random", RandomPairs(doubleNames));
  MeasurePairs("sorting/compare_double_names_neighbours", Neighbours(doubleNames, less));
}

// The text of a row for each comparison.
String TextFor(TVxFieldType FieldType, const TFileCsv& Table, int Row) {
  auto cell = [&](TColumn Col) { return Table.GetCell(Col, Row); };
  switch (FieldType) {
    case vftBoolean:
      return IntToStr(StrToIntDef(cell(colLevel), 0) % 2);
    case vftInteger:
      return cell(colPostCode);
    case vftFloat: {
      std::u16string text(cell(colAmount).view());
      std::erase(text, u'.');
      return text;
    }
    case vftDate:
      return cell(colDate);
    case vftTime:
    case vftHour:
      return cell(colHours);
    case vftDateTime:
      return cell(colDate) + u" " + cell(colHours);
    case vftCurrency:
      return cell(colAmount);
    case vftCommatext: {
      TVxStringList list;
      list.Add(cell(colSurname));
      list.Add(cell(colFirstName));
      list.Add(cell(colTown));
      return list.GetCommatext();
    }
    default:
      return cell(colSurname);
  }
}

void MeasureTypedPairs(const TFileCsv& Table) {
  for (TVxFieldType type : {vftBoolean, vftInteger, vftFloat, vftDate, vftTime, vftCommatext, vftDateTime, vftHour,
                            vftCurrency, vftString}) {
    auto comparison = [&](std::u16string_view A, std::u16string_view B) { return Compare(A, B, type, u""); };
    std::vector<std::u16string> texts;
    for (int row = 0; row < static_cast<int>(kTexts); ++row) texts.emplace_back(TextFor(type, Table, row).view());
    const std::string what = "sorting/" + String(FIELDTYPESTRINGS[type]).ToUtf8();
    const std::vector<TPair> random = RandomPairs(texts);
    for (const auto& [a, b] : random) Expect(Sign(comparison(a, b)) == -Sign(comparison(b, a)), what);
    ReportOurs(what + "_random", Medians(15, TimedPairs(random, comparison))[0], kPairs);
    auto less = [&](const std::u16string& A, const std::u16string& B) { return comparison(A, B) < 0; };
    const std::vector<TPair> neighbours = Neighbours(texts, less);
    ReportOurs(what + "_neighbours", Medians(15, TimedPairs(neighbours, comparison))[0], kPairs);
  }
}

// --- rows by their key ---

// Find gives ours of a key. The two take turns key by key, as each look-up takes long enough to be measured alone.
template <typename TFind>
void MeasureKeys(const std::string& What, const THeadCsv& Ours, const TNarrowTable& Peer, const std::vector<int>& Rows,
                 size_t First, TFind Find) {
  std::vector<std::pair<String, std::string>> keys;
  for (int row : Rows) {
    keys.emplace_back(Ours.GetCell(colNumber, row), Peer[static_cast<size_t>(row)][colNumber]);
    Expect(Find(keys.back().first) == Ours.GetLines(row), What);
  }
  double ours = 0, linear = 0;
  for (size_t i = 0; i < keys.size(); ++i) {
    const TVxStringList* found = nullptr;
    int row = -1;
    ours += Time([&] { found = Find(keys[i].first); });
    linear += Time([&] { row = FindRow(Peer, First, colNumber, keys[i].second); });
    Expect(row == Rows[i] && found == Ours.GetLines(row), What);
  }
  Report(What, ours, "linear", linear, kLookUps, TBar::AtLeast(1));
}

void MeasureLookUps(const THeadCsv& Ours, const TNarrowTable& Peer) {
  std::mt19937 random(23);
  std::vector<int> same(kLookUps, Ours.GetCount() / 2), any;
  for (int i = 0; i < kLookUps; ++i) {
    any.push_back(1 + static_cast<int>(random() % static_cast<unsigned>(Ours.GetCount() - 1)));
  }
  auto byColumn = [&](const String& Key) -> const TVxStringList* {
    int row = Ours.IndexForColKey(colNumber, Key);
    return row < 0 ? nullptr : Ours.GetLines(row);
  };
  auto byField = [&](const String& Key) -> const TVxStringList* { return Ours.ItemForField(u"Nummer", Key); };
  MeasureKeys("sorting/indexforcolkey_same", Ours, Peer, same, 0, byColumn);
  MeasureKeys("sorting/indexforcolkey_random", Ours, Peer, any, 0, byColumn);
  MeasureKeys("sorting/itemforfield_same", Ours, Peer, same, 1, byField);
  MeasureKeys("sorting/itemforfield_random", Ours, Peer, any, 1, byField);
}

// --- whole tables put in order ---

void MeasureSortByField(const THeadCsv& Ours) {
  struct TLess {
    bool operator()(const String& A, const String& B) const { return AnsiCompareText(A, B) < 0; }
  };
  using TMap = std::map<String, int, TLess>;
  std::unique_ptr<TFileCsv> copy;
  TMap map;
  auto sort = [&] {
    copy = Ours.Duplicate();
    return Time([&] { static_cast<THeadCsv&>(*copy).SortByField(u"Nummer", true); });
  };
  auto peer = [&] {
    map.clear();
    return Time([&] {
      for (int row = 1; row < Ours.GetCount(); ++row) map.insert_or_assign(Ours.GetCell(colNumber, row), row);
    });
  };
  auto times = Medians(3, sort, peer);
  bool isSame = static_cast<size_t>(copy->GetCount()) == map.size() + 1;
  int row = 0;
  for (const auto& entry : map) isSame = isSame && copy->GetCell(colNumber, ++row) == entry.first;
  Expect(isSame, "sorting/sortbyfield");
  Report("sorting/sortbyfield", times[0], "map", times[1]);
}

void MeasureSortCsv(const TFileCsv& Ours, const TNarrowTable& Peer) {
  TSortCsv sorted;
  std::map<std::string, std::vector<std::string>> map;
  auto load = [&] {
    sorted.Init();
    return Time([&] { sorted.AddFileCsv(Ours); });
  };
  auto peer = [&] {
    map.clear();
    return Time([&] {
      for (const auto& row : Peer) map.insert_or_assign(row[colNumber], row);
    });
  };
  auto times = Medians(3, load, peer);
  bool isSame = static_cast<size_t>(sorted.GetCount()) == map.size();
  int row = 0;
  for (const auto& entry : map) isSame = isSame && sorted.GetCell(colNumber, row++).ToUtf8() == entry.first;
  Expect(isSame, "sorting/sortcsv_load");
  Report("sorting/sortcsv_load", times[0], "map", times[1]);
}

// --- subtypes ---

void MeasureSubtypes() {
  auto firstUse = [] {
    uConst::FreeBuffersForLeakPrevention();
    return Time([] { ::benchmark::DoNotOptimize(SubtypeSymbolToText(u"FEDERALSTATE", u"5")); });
  };
  ReportOurs("sorting/subtypes_first_use_in_program", firstUse(), 1, TBar::AtMost(1));
  ReportOurs("sorting/subtypes_first_use", Medians(101, firstUse)[0], 1, TBar::AtMost(1));
  std::vector<std::pair<String, String>> symbols;
  TVxStringList keys;
  keys.SetCommatext(SubtypeKeys());
  for (const String& key : keys.Items()) {
    TVxStringList entries;
    entries.SetCommatext(SubtypeIdContent(key));
    for (const String& entry : entries.Items()) {
      TVxStringList parts;
      parts.SetCommatext(entry);
      if (parts.GetCount() < 2 || parts.Get(0).empty()) continue;
      symbols.emplace_back(key, parts.Get(0));
    }
  }
  for (const auto& [key, symbol] : symbols) {
    Expect(SubtypeSymbolToText(key, symbol) == getSubTypeText(key, getSubTypeIndex(key, symbol)), "sorting/subtypes");
  }
  std::shuffle(symbols.begin(), symbols.end(), std::mt19937(29));
  constexpr size_t kTimes = 100000;
  auto times = Medians(kRounds, [&] {
    return Time([&] {
      for (size_t i = 0; i < kTimes; ++i) {
        const auto& [key, symbol] = symbols[i % symbols.size()];
        ::benchmark::DoNotOptimize(SubtypeSymbolToText(key, symbol));
      }
    });
  });
  ReportOurs("sorting/subtypesymboltotext", times[0], kTimes);
}

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx::bench;
  const std::string topic = argc > 1 ? argv[1] : "";
  auto is = [&](const char* Topic) { return topic.empty() || topic == Topic; };
  if (is("subtypes")) MeasureSubtypes();
  if (is("orders")) MeasureAllOrders();
  vx::THeadCsv ours;
  Load(ours, std::string(kHead) + MakeGermanTable(1000000));
  if (is("comparisons")) MeasureTextPairs(ours);
  if (is("comparisons")) MeasureTypedPairs(ours);
  const TNarrowTable narrow = Narrow(ours);
  if (is("keys")) MeasureLookUps(ours, narrow);
  if (is("tables")) MeasureSortByField(ours);
  if (is("tables")) MeasureSortCsv(ours, narrow);
  return 0;
}
