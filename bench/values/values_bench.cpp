// Values and their texts side by side with their peers: dates, times, hours, amounts, numbers, masks, matching.
//
// Each line tells the time of one operation, over many different values. The peer "hand" is written for
// this program and takes and makes the library's own types; the peers of the C library, of the standard
// library and of fmt take and make std::string. They are measured as calls into another source, as ours.
// Where values may lie below 0, one of ten does. An argument names the one routine to measure.
#include <array>
#include <cstring>
#include <numeric>
#include <random>

#include "bench/support/Bench.h"
#include "bench/values/HandWritten.h"
#include "bench/values/LibraryPeers.h"
#include "core/uVxFunctions.h"
#include "core/uVxFunctionsTime.h"
#include "platform/Calendar.h"
#include "platform/DateText.h"
#include "platform/NumberMasks.h"
#include "platform/Numbers.h"

static size_t Allocations = 0;

// Blocks of texts come from malloc and operator new takes its memory there too, so both are counted here.
extern "C" void* __libc_malloc(size_t Size);
extern "C" void* malloc(size_t Size) noexcept {
  ++Allocations;
  return __libc_malloc(Size);
}

namespace vx::bench {

namespace {

constexpr int kRounds = 7;
constexpr size_t kFew = 100000, kMany = 1000000;
// Ours takes at most twice the time of the peer that is written by hand, and at most half of that of a library.
constexpr double kHandBar = 0.5, kLibraryBar = 2;

// What a result adds to the sum of a loop: some of it is enough to have it made and told apart, as the
// results are compared whole outside the loop.
uint64_t Bits(double Value) { return std::bit_cast<uint64_t>(Value); }
uint64_t Bits(Extended Value) { return Bits(static_cast<double>(Value)); }
uint64_t Bits(Currency Value) { return static_cast<uint64_t>(Value.Units); }
uint64_t Bits(std::integral auto Value) { return static_cast<uint64_t>(Value); }
template <typename TText>
uint64_t Bits(const TText& Text) requires requires {
  Text.begin();
}
{
  if (Text.empty()) return 0;
  auto size = static_cast<uint64_t>(Text.size());
  auto unit = [&](uint64_t i) { return static_cast<uint64_t>(Text.begin()[static_cast<std::ptrdiff_t>(i)]); };
  return size << 48 | unit(0) << 32 | unit(size / 2) << 16 | unit(size - 1);
}

bool Equal(const String& A, const std::string& B) { return std::equal(A.begin(), A.end(), B.begin(), B.end()); }
template <typename T>
bool Equal(const T& A, const T& B) {
  return A == B;
}

// What a peer stands for.
enum TRole : unsigned {
  plMeasured = 0,
  plSame = 1,  // gives the same as ours, or the program fails
  plBar = 2    // its ratio is held against the bar
};

template <typename TCall>
struct TPeer {
  const char* Name;
  unsigned Role;
  TCall Call;
  uint64_t Sum = 0;
};

template <typename TCall>
TPeer<TCall> Peer(const char* Name, unsigned Role, TCall Call) {
  return {Name, Role, Call};
}
template <typename TCall>
TPeer<TCall> Hand(TCall Call) {
  return {"hand", plSame | plBar, Call};
}

[[noreturn]] void Fail(const char* Name, const char* Who, size_t Index) {
  Expect(false, std::string(Name) + ": " + Who + " has something else for value " + std::to_string(Index));
  std::_Exit(1);
}

template <typename TOurs, typename TPeers>
void CheckSame(const char* Name, TOurs& Ours, TPeers& Other) {
  if (!(Other.Role & plSame)) return;
  if constexpr (requires { Equal(Ours.Call(0), Other.Call(0)); }) {
    for (size_t i = 0; i < kMany; ++i) {
      if (!Equal(Ours.Call(i), Other.Call(i))) Fail(Name, Other.Name, i);
    }
  } else {
    Fail(Name, Other.Name, 0);
  }
}

// The seconds for kFew values from First on.
template <typename TCall>
double Run(TPeer<TCall>& Work, size_t First) {
  return Time([&] {
    uint64_t sum = Work.Sum;
    for (size_t i = First; i < First + kFew; ++i) sum = sum * 31 + Bits(Work.Call(i));
    Work.Sum = sum;
  });
}

// The times of the works, medians over rounds: those over all values first, then those over the first
// kFew of them, taken kMany / kFew times with warm caches. The works take turns after each slice of
// the values, so that a change of the machine's mood meets all of them.
template <typename... TWorks>
std::vector<double> TimesOf(TWorks&... Works) {
  constexpr size_t kWorks = sizeof...(Works);
  std::array<std::vector<double>, 2 * kWorks> times;
  for (int round = 0; round < kRounds; ++round) {
    std::array<double, 2 * kWorks> total{};
    for (size_t first = 0; first < kMany; first += kFew) {
      size_t at = 0;
      auto run = [&](auto& Work) {
        total[at] += Run(Work, first);
        auto again = Work;
        Run(again, 0);
        total[kWorks + at++] += Run(again, 0);
      };
      (run(Works), ...);
    }
    for (size_t at = 0; at < times.size(); ++at) times[at].push_back(total[at]);
  }
  std::vector<double> medians;
  for (auto& each : times) medians.push_back(Median(each));
  return medians;
}

// The one routine to measure, or null for all of them.
const char* Only = nullptr;

// Measures Call(i) and each peer's Call(i) for the values i. The bars hold for the many values; the few ones stay in
// the processor's cache and tell how much of the time is the memory's.
template <typename TOurs, typename... TPeers>
void Measure(const char* Name, bool HasBar, TOurs Call, TPeers... Peers) {
  if (Only && std::strcmp(Name, Only) != 0) return;
  TPeer<TOurs> ours = Peer("ours", plMeasured, Call);
  (CheckSame(Name, ours, Peers), ...);
  std::string what = std::string("values/") + Name;
  const std::vector<double> times = TimesOf(ours, Peers...);
  const double* many = times.data();
  const double* few = many + 1 + sizeof...(Peers);
  size_t at = 1;
  auto report = [&](auto& Other) {
    if (Other.Role & plSame && Other.Sum != ours.Sum) Fail(Name, Other.Name, kMany);
    const TBar bar = TBar::AtLeast(std::strcmp(Other.Name, "hand") == 0 ? kHandBar : kLibraryBar);
    Report(what, many[0], Other.Name, many[at], kMany, HasBar && Other.Role & plBar ? bar : TBar());
    Report(what + "_100k", few[0], Other.Name, few[at], kMany);
    ++at;
  };
  (report(Peers), ...);
  ReportGrowth(what, "at_1m", many[0] * 1e9 / kMany, "at_100k", few[0] * 1e9 / kMany, "ns");
  size_t before = Allocations;
  for (size_t first = 0; first < kMany; first += kFew) Run(ours, first);
  std::printf("ALLOC %s %zu\n", what.c_str(), Allocations - before);
  std::fflush(stdout);
}

// kMany different numbers from 0 to Range - 1, spread evenly, in no order.
std::vector<int64_t> Distinct(int64_t Range, unsigned Seed) {
  std::mt19937_64 random(Seed);
  int64_t step = Range / static_cast<int64_t>(kMany);
  std::vector<int64_t> result(kMany);
  for (size_t i = 0; i < kMany; ++i) {
    result[i] = static_cast<int64_t>(i) * step + static_cast<int64_t>(random() % static_cast<uint64_t>(step));
  }
  std::shuffle(result.begin(), result.end(), random);
  return result;
}

// Texts as the library has them and as bytes, and some of the bytes with a point for the comma.
struct TTexts {
  std::vector<String> Units;
  std::vector<std::string> Bytes;

  template <typename TMake>
  explicit TTexts(TMake Make) {
    for (size_t i = 0; i < kMany; ++i) {
      Units.push_back(Make(i));
      Bytes.push_back(Units.back().ToUtf8());
    }
  }
  std::vector<std::string> WithPoint() const {
    std::vector<std::string> result = Bytes;
    for (std::string& text : result) {
      std::erase(text, '.');
      std::replace(text.begin(), text.end(), ',', '.');
    }
    return result;
  }
};

// The years 1900 to 9999 have days enough for each value to be another.
constexpr int kFirstDay = 2, kDays = 2958464;

void MeasureDates() {
  std::vector<double> dates;
  for (int64_t day : Distinct(kDays, 1)) dates.push_back(static_cast<double>(kFirstDay + day));
  TTexts texts([&](size_t i) { return HandDateToStr(dates[i]); });
  Measure(
      "StrToDateDef", true, [&](size_t i) { return StrToDateDef(texts.Units[i], 0); },
      Hand([&](size_t i) { return HandStrToDate(texts.Units[i], 0); }),
      Peer("strptime+timegm", plSame | plBar, [&](size_t i) { return CStrToDate(texts.Bytes[i]); }),
      Peer("strptime", plMeasured, [&](size_t i) { return CStrToDay(texts.Bytes[i]); }));
  Measure(
      "VxDateToStr", true, [&](size_t i) { return VxDateToStr(dates[i]); },
      Hand([&](size_t i) { return HandDateToStr(dates[i]); }),
      Peer("gmtime+strftime", plSame | plBar, [&](size_t i) { return CDateToStr(dates[i]); }));
  // Days from 30 to 39, of which few exist.
  TTexts wrong([&](size_t i) {
    String text = texts.Units[i];
    text.SetUnit(0, u'3');
    return text;
  });
  Measure(
      "StrToDateDef_wrong", false, [&](size_t i) { return StrToDateDef(wrong.Units[i], 0); },
      Hand([&](size_t i) { return HandStrToDate(wrong.Units[i], 0); }));
}

// Times of whole minutes are 1440 only, which come in no order; the values of the writer differ in their
// milliseconds.
void MeasureTimes() {
  std::vector<int64_t> minutes = Distinct(kMany, 2);
  TTexts texts([&](size_t i) { return HandTimeToStr(static_cast<double>(minutes[i] % 1440) / 1440); });
  Measure(
      "StrToTimeDef", true, [&](size_t i) { return StrToTimeDef(texts.Units[i], 0); },
      Hand([&](size_t i) { return HandStrToTime(texts.Units[i], 0); }),
      Peer("strptime", plSame | plBar, [&](size_t i) { return CStrToTime(texts.Bytes[i]); }));
  std::vector<double> times;
  for (int64_t time : Distinct(MSecsPerDay, 3)) times.push_back(static_cast<double>(time) / MSecsPerDay);
  Measure(
      "VxTimeToStr24", true, [&](size_t i) { return VxTimeToStr24(times[i]); },
      Hand([&](size_t i) { return HandTimeToStr(times[i]); }),
      Peer("gmtime+strftime", plSame | plBar, [&](size_t i) { return CTimeToStr(times[i]); }));
}

void MeasureHours() {
  std::vector<double> hours;
  for (int64_t minutes : Distinct(kMany, 4)) {
    hours.push_back(static_cast<double>(minutes % 10 == 3 ? -minutes : minutes) / 1440);
  }
  TTexts texts([&](size_t i) { return HandHourToStr(hours[i]); });
  auto read = [](auto Read, const String& Text) {
    TDateTime hour;
    return Read(Text, hour) ? hour : 1e9;
  };
  Measure(
      "VxStrToHour", false, [&](size_t i) { return read(VxStrToHour, texts.Units[i]); },
      Hand([&](size_t i) { return read(HandStrToHour, texts.Units[i]); }));
  Measure(
      "VxHourToStr", false, [&](size_t i) { return VxHourToStr(hours[i]); },
      Hand([&](size_t i) { return HandHourToStr(hours[i]); }));
}

// Amounts up to 99.999,99. The writer's have four decimals that never lie in the
// middle, as an amount in a double does not either.
void MeasureAmounts() {
  std::vector<Currency> amounts;
  std::vector<double> doubles;
  for (int64_t cents : Distinct(10000000, 5)) {
    int64_t units = cents * 100 + (cents % 99 - 49);
    amounts.push_back(Currency::FromUnits(cents % 10 == 3 ? -units : units));
    doubles.push_back(static_cast<double>(amounts.back().Units) / Currency::Scale);
  }
  TTexts texts([&](size_t i) { return HandCurrToStr(amounts[i]); });
  std::vector<std::string> plain = texts.WithPoint();
  auto read = [](auto Read, const String& Text) {
    Currency value;
    return Read(Text, value) ? value : Currency::FromUnits(INT64_MAX);
  };
  Measure(
      "TryStrToCurr", true, [&](size_t i) { return read(TryStrToCurr, texts.Units[i]); },
      Hand([&](size_t i) { return read(HandStrToCurr, texts.Units[i]); }),
      Peer("from_chars_cleaned", plBar, [&](size_t i) { return GermanFromChars(texts.Bytes[i]); }),
      Peer("from_chars_plain", plMeasured, [&](size_t i) { return FromChars<double>(plain[i]); }));
  Measure(
      "VxCurrToStr", true, [&](size_t i) { return VxCurrToStr(amounts[i], {ctsThousendDivider}, 2); },
      Hand([&](size_t i) { return HandCurrToStr(amounts[i]); }),
      Peer("fmt", plSame | plBar, [&](size_t i) { return FmtCurrToStr(doubles[i]); }));
}

void MeasureNumbers() {
  std::vector<int64_t> numbers = Distinct(10000000, 6);
  TTexts ints([&](size_t i) { return IntToStr(numbers[i] % 10 == 3 ? -numbers[i] : numbers[i]); });
  Measure(
      "StrToIntDef", true, [&](size_t i) { return StrToIntDef(ints.Units[i], 0); },
      Hand([&](size_t i) { return HandStrToInt(ints.Units[i], 0); }),
      Peer("from_chars", plSame | plBar, [&](size_t i) { return FromChars<int>(ints.Bytes[i]); }));

  // Up to nine digits, one to five of them behind the comma.
  std::vector<int64_t> digits = Distinct(1000000000, 7);
  TTexts floats([&](size_t i) {
    std::string text = std::to_string(digits[i]);
    size_t decimals = 1 + static_cast<size_t>(digits[i]) % 5;
    if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
    text.insert(text.size() - decimals, 1, ',');
    return String::FromUtf8(digits[i] % 10 == 3 ? "-" + text : text);
  });
  std::vector<std::string> plain = floats.WithPoint();
  Measure(
      "StrToExtDef", true, [&](size_t i) { return StrToExtDef(floats.Units[i], 0); },
      Hand([&](size_t i) { return HandStrToExt(floats.Units[i], 0); }),
      Peer("from_chars_extended", plSame | plBar, [&](size_t i) { return FromChars<Extended>(plain[i]); }),
      Peer("strtold", plSame, [&](size_t i) { return CStrToExt(plain[i]); }),
      Peer("from_chars_double", plMeasured, [&](size_t i) { return FromChars<double>(plain[i]); }));
}

// Masks give the texts of the C library by settings of its language.
void MeasureMasks() {
  TFormatSettings english;
  english.DecimalSeparator = u'.';
  english.ThousandSeparator = u',';
  english.LongMonthNames = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                            u"July",    u"August",   u"September", u"October", u"November", u"December"};
  english.LongDayNames = {u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};

  std::vector<int64_t> days = Distinct(kDays, 8), times = Distinct(MSecsPerDay, 9);
  std::vector<double> moments, numbers;
  for (size_t i = 0; i < kMany; ++i) {
    moments.push_back(static_cast<double>(kFirstDay + days[i]) + static_cast<double>(times[i]) / MSecsPerDay);
  }
  for (int64_t cents : Distinct(100000000, 10)) {
    numbers.push_back(static_cast<double>(cents * 100 + (cents % 99 - 49)) / (cents % 10 == 3 ? -10000 : 10000));
  }
  Measure(
      "FormatDateTime_date", false, [&](size_t i) { return FormatDateTime(u"dd.mm.yyyy", moments[i], english); },
      Peer("gmtime+strftime", plSame, [&](size_t i) { return CDateToStr(moments[i]); }));
  Measure(
      "FormatDateTime_names", false,
      [&](size_t i) { return FormatDateTime(u"dddd, d. mmmm yyyy hh:nn", moments[i], english); },
      Peer("gmtime+strftime", plSame, [&](size_t i) { return CFormatTime("%A, %-d. %B %Y %H:%M", moments[i]); }));
  Measure(
      "FormatFloat_fixed", false, [&](size_t i) { return FormatFloat(u"0.00", numbers[i], english); },
      Peer("snprintf", plSame, [&](size_t i) { return CFormatFloat("%.2f", numbers[i]); }));
  // printf groups no digits in its own language.
  Measure(
      "FormatFloat_grouped", false, [&](size_t i) { return FormatFloat(u"#,##0.00", numbers[i], english); },
      Peer("snprintf_ungrouped", plMeasured, [&](size_t i) { return CFormatFloat("%'.2f", numbers[i]); }));
}

void MeasureMatching() {
  static constexpr std::array kSurnames = {u"Müller", u"Schäfer", u"Meierhans", u"Groß", u"Öztürk", u"von der Mühle"};
  static constexpr std::array kNames = {u"Hans-Peter", u"Hannelore", u"Jürgen", u"JOHANNA", u"Mia"};
  std::vector<int64_t> numbers = Distinct(kMany, 11);
  std::vector<String> texts;
  for (int64_t number : numbers) {
    auto i = static_cast<size_t>(number);
    texts.push_back(Concat({kSurnames[i % 6], u", ", kNames[i % 5], u" ", IntToStr(number)}));
  }
  constexpr std::u16string_view kPattern = u"*hann*";
  Measure(
      "StrMatch", false, [&](size_t i) { return StrMatch(texts[i], kPattern, false); },
      Hand([&](size_t i) { return HandMatch(texts[i], kPattern); }));
}

}  // namespace

}  // namespace vx::bench

int main(int argc, char** argv) {
  using namespace vx::bench;
  if (argc > 1) Only = argv[1];
  MeasureDates();
  MeasureTimes();
  MeasureHours();
  MeasureAmounts();
  MeasureNumbers();
  MeasureMasks();
  MeasureMatching();
  return 0;
}
