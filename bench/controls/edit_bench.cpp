// The masked editor. There is no peer: what counts is that nobody waits for a key.
#include <string>

#include "bench/controls/Topic.h"
#include "bench/support/Bench.h"
#include "controls/uVxMaskEdit.h"

namespace vx::bench {
namespace {

constexpr int kRounds = 51;
constexpr int kFields = 100;         // that are filled in in a round
constexpr double kMostPerKey = 5e3;  // ns

struct TMode {
  const char* Name;
  TVxMaskMode Mode;
  std::u16string_view Keys, Left;  // what is typed, and how the text stays
};
constexpr TMode kModes[] = {{"none", mmNone, u"Pflegedienst Süd", u"Pflegedienst Süd"},
                            {"integer", mmInteger, u"-1234567", u"-1.234.567"},
                            {"float", mmFloat, u"123456,789", u"123.456,789"},
                            {"currency", mmCurrency, u"123456,78", u"123.456,78"},
                            {"date", mmDate, u"11.02.2015", u"11.02.2015"},
                            {"month", mmMonth, u"02.2015", u"02.2015"},
                            {"hour", mmHour, u"1234:45", u"1234:45"},
                            {"time", mmTime, u"06:30", u"06:30"},
                            {"second", mmSecond, u"06:30:15", u"06:30:15"},
                            {"percent", mmPerc, u"12,5", u"12,5"},
                            {"mask", mmMask, u"A12-3456 xY", u"A12-3456 xY"}};

struct TField {
  TPlainEdit Line;
  TVxMaskEdit Edit{Line};
  TField(TVxMaskMode Mode, bool HasHint) {
    Edit.SetMaskString(u">00-0000_<>");
    Edit.SetMaskMode(Mode);
    Edit.SetUseTausend(true);
    Edit.SetLimitationMin(-2000000);
    Edit.SetLimitationMax(2000000);
    Edit.SetLimitDTMin(Mode == mmDate || Mode == mmMonth ? 1 : 0);
    Edit.SetLimitDTMax(Mode == mmDate || Mode == mmMonth ? 50000 : 1000);
    Edit.SetHintShow(HasHint);
  }
};

// Seconds for the keys of many fields; each key is judged with limits, and with a hint where told.
double TypeKeys(const TMode& Mode, bool HasHint) {
  TField field(Mode.Mode, HasHint);
  return Time([&] {
    for (int i = 0; i < kFields; ++i) {
      field.Line.Enter();
      if (Mode.Mode == mmMask) field.Line.SetSelStart(0);
      field.Line.Type(Mode.Keys);
    }
    benchmark::DoNotOptimize(field.Edit.GetIsValid());
  });
}

double Step(const TMode& Mode) {
  TField field(Mode.Mode, false);
  field.Edit.SetText(String(Mode.Left));
  return Time([&] {
    for (int i = 0; i < kFields; ++i) field.Line.Down(i % 2 == 0 ? vkUp : vkDown);
    benchmark::DoNotOptimize(field.Edit.GetIsValid());
  });
}

double Leave(const TMode& Mode) {
  TField field(Mode.Mode, false);
  field.Edit.SetText(String(Mode.Left));
  return Time([&] {
    for (int i = 0; i < kFields; ++i) field.Line.Exit();
  });
}

void ExpectGood(const TMode& Mode) {
  TField field(Mode.Mode, true);
  field.Line.Enter();
  if (Mode.Mode == mmMask) field.Line.SetSelStart(0);
  field.Line.Type(Mode.Keys);
  Expect(field.Edit.GetIsValid(), Mode.Name);
  field.Line.Exit();
  Expect(field.Edit.GetText() == Mode.Left, Mode.Name);
}

void RunKeys() {
  for (const TMode& mode : kModes) {
    ExpectGood(mode);
    const auto times = Medians(
        kRounds, [&] { return TypeKeys(mode, false); }, [&] { return TypeKeys(mode, true); },
        [&] { return Step(mode); }, [&] { return Leave(mode); });
    const double keys = static_cast<double>(mode.Keys.size()) * kFields;
    const TBar bar = TBar::AtMost(kMostPerKey);
    ReportOurs(std::string("edit_key_") + mode.Name, times[0], keys, bar);
    ReportOurs(std::string("edit_key_hint_") + mode.Name, times[1], keys, bar);
    ReportOurs(std::string("edit_arrow_") + mode.Name, times[2], kFields, bar);
    ReportOurs(std::string("edit_leave_") + mode.Name, times[3], kFields);
  }
}

// A template of any length is walked once a key.
void RunLongTemplate() {
  const auto keyAt = [](int length) {
    TPlainEdit line;
    TVxMaskEdit edit(line);
    edit.SetMaskString(String(length, u'0'));
    edit.SetMaskMode(mmMask);
    constexpr int kKeys = 200;
    const double seconds = Time([&] {
      for (int i = 0; i < kKeys; ++i) line.Type(u"7");
    });
    return seconds * 1e9 / kKeys;
  };
  const auto times = Medians(
      kRounds, [&] { return keyAt(10000); }, [&] { return keyAt(1000); });
  ReportGrowth("edit_key_template", "10000", times[0], "1000", times[1], "ns", TBar::AtMost(12));
}

const TTopic topic("edit", [] {
  RunKeys();
  RunLongTemplate();
});

}  // namespace
}  // namespace vx::bench
