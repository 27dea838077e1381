// Visits joined with patients and grouped by nurse and month, beside a loop by hand over unordered_map that does the
// same; keys looked up, and an index of a million rows built.
#include <algorithm>
#include <ctime>
#include <random>
#include <unordered_map>
#include <utility>

#include "bench/support/Bench.h"
#include "core/ExactSum.h"
#include "core/StrictDates.h"
#include "platform/Calendar.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "tables/Csv.h"
#include "tables/Relations.h"

namespace vx::bench {

namespace {

constexpr int kRounds = 15;

String Padded(int Number, int Digits) {
  const String text = IntToStr(Number);
  return String(Digits - text.size(), u'0') + text;
}
String PatientKey(int Number) { return u"P-" + Padded(Number, 7); }

void MakePatients(THeadCsv& Table, int Count) {
  Table.AddRow({u"Nummer", u"Name", u"Ort"});
  for (int i = 0; i < Count; ++i) Table.AddRow({PatientKey(i * 7), u"Name der Person " + IntToStr(i), u"Köln"});
}

// As a program has it, from a file: the texts stand where LoadCsv puts them.
void LoadPatients(THeadCsv& Table, int Count) {
  const char* told = std::getenv("TMPDIR");
  const String path = String::FromUtf8(told ? told : "/tmp") + u"/vx_bench_relations.csv";
  {
    THeadCsv made;
    MakePatients(made, Count);
    Expect(SaveCsv(made, path).IsSaved, "the patients are saved");
  }
  LoadCsv(Table, path);
  FileDelete(path);
  Expect(Table.GetCount() == Count + 1, "all patients are loaded");
}

// Of each thousand visits some have no patient, and some a cell that can't be read.
void MakeVisits(THeadCsv& Table, int Count, int Patients) {
  std::mt19937 random(20261123);
  const auto below = [&](int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); };
  Table.AddRow({u"Patient", u"Pflegekraft", u"Datum", u"Stunden"});
  for (int i = 0; i < Count; ++i) {
    const String day = Padded(1 + below(28), 2), month = Padded(1 + below(12), 2);
    Table.AddRow({PatientKey(7 * below(Patients + Patients / 500)), u"Pflegekraft Nr. " + IntToStr(below(40)),
                  below(1000) == 0 ? String(u"31.02.2026") : Concat({day, u".", month, u".2026"}),
                  below(1000) == 0 ? String(u"1;30") : IntToStr(below(9)) + u":" + Padded(below(60), 2)});
  }
}

// What both give, for comparing.
struct TResult {
  std::vector<String> Lines;
  size_t WithoutPatient = 0, Unreadable = 0;
  bool operator==(const TResult&) const = default;
};

struct THandSum {
  String Key;
  THourSum Sum;
  THourAmount Least, Most;
  int Count = 0, Read = 0, Empty = 0;
};

struct THandKey {
  std::u16string_view Nurse;
  int Month;
  bool operator==(const THandKey&) const = default;
};
struct THandHash {
  size_t operator()(const THandKey& Key) const noexcept {
    return std::hash<std::u16string_view>()(Key.Nurse) * 31 + static_cast<size_t>(Key.Month);
  }
};

// The loop that a program without the library's relations has, with the same readers and as exact.
struct THandWork {
  std::vector<THandSum> Groups;
  std::vector<int> WithoutPatient, Visitless;
  std::vector<TUnreadableCell> Unreadable;

  static std::u16string_view Cell(const TVxStringList& Row, size_t Col) {
    return Col < Row.Items().size() ? Row.Items()[Col].view() : std::u16string_view();
  }
  void Run(const THeadCsv& Visits, const THeadCsv& Patients) {
    std::unordered_map<std::u16string_view, int> patients;  // the last row of a patient; those before it in the list
    std::vector<int> before(static_cast<size_t>(Patients.GetCount()), -1);
    patients.reserve(before.size());
    for (int row = 1; row < Patients.GetCount(); ++row) {
      const auto [place, isNew] = patients.try_emplace(Cell(*Patients.GetLines(row), 0), row);
      if (!isNew) before[static_cast<size_t>(row)] = std::exchange(place->second, row);
    }
    std::unordered_map<THandKey, size_t, THandHash> groups;
    std::vector<bool> isVisited(static_cast<size_t>(Patients.GetCount()));
    for (int row = 1; row < Visits.GetCount(); ++row) {
      const TVxStringList& visit = *Visits.GetLines(row);
      const auto found = patients.find(Cell(visit, 0));
      if (found == patients.end()) {
        WithoutPatient.push_back(row);
        continue;
      }
      for (int patient = found->second; patient > 0; patient = before[static_cast<size_t>(patient)]) {
        isVisited[static_cast<size_t>(patient)] = true;
        AddVisit(visit, row, groups);
      }
    }
    for (int row = 1; row < Patients.GetCount(); ++row)
      if (!isVisited[static_cast<size_t>(row)]) Visitless.push_back(row);
  }
  void AddVisit(const TVxStringList& Visit, int Row, std::unordered_map<THandKey, size_t, THandHash>& Places) {
    TTextFault fault;
    TDateTime date = 0;
    int year = 0, month = 0, day = 0;
    if (TryStrToDateStrict(Cell(Visit, 2), date, fault)) {
      DecodeDate(date, year, month, day);
    } else if (fault.Kind != tfEmpty) {
      Unreadable.push_back({2, Row, fault});
    }
    const auto [place, isNew] = Places.try_emplace({Cell(Visit, 1), year * 12 + month}, Groups.size());
    if (isNew) {
      Groups.emplace_back().Key = Concat({Cell(Visit, 1), u" "});
      if (month > 0) Groups.back().Key += Concat({Padded(year, 4), u"-", Padded(month, 2)});
    }
    THandSum& group = Groups[place->second];
    ++group.Count;
    THourAmount hours;
    if (TryStrToHourAmount(Cell(Visit, 3), hours, fault)) {
      group.Sum.Add(hours);
      group.Least = group.Read == 0 ? hours : std::min(group.Least, hours);
      group.Most = group.Read == 0 ? hours : std::max(group.Most, hours);
      ++group.Read;
    } else if (fault.Kind == tfEmpty) {
      ++group.Empty;
    } else {
      Unreadable.push_back({3, Row, fault});
    }
  }
  TResult Result() const {
    TResult result{{}, WithoutPatient.size(), Unreadable.size()};
    for (const THandSum& group : Groups) {
      result.Lines.push_back(Concat({group.Key, u" ", IntToStr(group.Count), u" ", HourAmountToStr(group.Sum.Get()),
                                     u" ", HourAmountToStr(group.Least), u" ", HourAmountToStr(group.Most)}));
    }
    return result;
  }
};

struct TOurWork {
  TJoin Join;
  TGroups Groups;
  TGroupSums<THourAmount> Hours;
  TOurWork(const THeadCsv& Visits, const THeadCsv& Patients)
      : Join(InnerJoin(Visits, {u"Patient"}, Patients, {u"Nummer"})),
        Groups(Join, {u"Pflegekraft", ByMonth(u"Datum")}),
        Hours(SumHours(Groups, u"Stunden")) {}
  TResult Result() const {
    TResult result{{}, Join.LeftOnly.size(), Groups.GetUnreadable().size() + Hours.Unreadable.size()};
    for (int group = 0; group < Groups.GetCount(); ++group) {
      const TGroupSum<THourAmount>& sum = Hours.Groups[static_cast<size_t>(group)];
      result.Lines.push_back(
          Concat({Groups.Key(group, 0), u" ", Groups.Key(group, 1), u" ", IntToStr(Groups.Size(group)), u" ",
                  HourAmountToStr(sum.Sum), u" ", HourAmountToStr(sum.Least), u" ", HourAmountToStr(sum.Most)}));
    }
    return result;
  }
};

double TimeOurs(const THeadCsv& Visits, const THeadCsv& Patients) {
  return Time([&] { ::benchmark::DoNotOptimize(TOurWork(Visits, Patients).Hours.Groups.data()); });
}

void MeasureGrouping() {
  THeadCsv patients, visits, many;
  LoadPatients(patients, 5000);
  MakeVisits(visits, 20000, 5000);
  MakeVisits(many, 200000, 5000);
  THandWork hand;
  hand.Run(visits, patients);
  Expect(hand.Result() == TOurWork(visits, patients).Result(), "both have the same groups and sums");
  Expect(!hand.Unreadable.empty() && !hand.WithoutPatient.empty(), "there is something to tell");
  const std::vector<double> times = Medians(
      kRounds, [&] { return TimeOurs(visits, patients); },
      [&] {
        return Time([&] {
          THandWork work;
          work.Run(visits, patients);
          ::benchmark::DoNotOptimize(work.Groups.data());
        });
      },
      [&] { return TimeOurs(many, patients); });
  Report("relations/join_and_group", times[0], "by_hand", times[1], 1, TBar::AtLeast(1.0 / 3));
  ReportGrowth("relations/join_and_group", "200000", times[2] * 1e9 / 200000, "20000", times[0] * 1e9 / 20000, "ns",
               TBar::AtMost(2));
}

double TimeBuild(const THeadCsv& Table) {
  return Time([&] {
    const TKeyIndex index(Table, {u"Nummer"});
    Expect(index.IsUnique(), "no patient stands twice");
  });
}

// Seconds of the processor, as a bar in nanoseconds has to hold while others use the machine, too.
template <typename TWork>
double ProcessorTime(TWork Work) {
  const std::clock_t start = std::clock();
  Work();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void MeasureIndex(int Rows, const char* What) {
  THeadCsv patients;
  LoadPatients(patients, Rows);
  const TKeyIndex index(patients, {u"Nummer"});
  std::mt19937 random(7);
  std::vector<String> keys;  // a tenth of them is not there
  for (int i = 0; i < 200000; ++i) {
    const int row = static_cast<int>(random() % static_cast<unsigned>(Rows));
    keys.push_back(PatientKey(7 * row + (i % 10 == 0 ? 1 : 0)));
  }
  std::unordered_map<std::u16string_view, int> map;
  for (int row = 1; row < patients.GetCount(); ++row) map.emplace(patients.GetLines(row)->Items()[0].view(), row);
  size_t ours = 0, theirs = 0;
  const std::vector<double> times = Medians(
      kRounds,
      [&] {
        return ProcessorTime([&] {
          ours = 0;
          for (const String& key : keys) ours += static_cast<size_t>(index.Row(key) + 1);
        });
      },
      [&] {
        return ProcessorTime([&] {
          theirs = 0;
          for (const String& key : keys) {
            const auto found = map.find(key.view());
            if (found != map.end()) theirs += static_cast<size_t>(found->second + 1);
          }
        });
      });
  Expect(ours == theirs, "both find the same rows");
  const auto count = static_cast<double>(keys.size());
  ReportOurs(What, times[0], count, TBar::AtMost(500));
  Report(What, times[0], "unordered_map", times[1], count);
}

void MeasureBuild() {
  THeadCsv million, few;
  LoadPatients(million, 1000000);
  LoadPatients(few, 100000);
  const std::vector<double> times = Medians(
      5, [&] { return TimeBuild(million); },
      [&] {
        return Time([&] {
          std::unordered_map<std::u16string_view, int> map;
          for (int row = 1; row < million.GetCount(); ++row) map.emplace(million.GetLines(row)->Items()[0].view(), row);
          ::benchmark::DoNotOptimize(map);
        });
      },
      [&] { return TimeBuild(few); });
  Report("relations/index_million", times[0], "unordered_map", times[1], 1, TBar::AtLeast(1));
  ReportGrowth("relations/index", "1000000", times[0] * 1e9 / 1e6, "100000", times[2] * 1e9 / 1e5, "ns");
}

}  // namespace

}  // namespace vx::bench

int main() {
  vx::bench::MeasureGrouping();
  vx::bench::MeasureIndex(5000, "relations/look_up");
  vx::bench::MeasureIndex(1000000, "relations/look_up_million");
  vx::bench::MeasureBuild();
  return 0;
}
