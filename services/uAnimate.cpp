#include "services/uAnimate.h"

#include <algorithm>
#include <utility>

#include "platform/Clock.h"
#include "platform/DateText.h"
#include "platform/Numbers.h"
#include "tables/uFileCsv/TFileCsv.h"

namespace vx {

namespace {

constinit TSWList* FAnimate = nullptr;

constexpr char16_t kLong[] = u"h:nn:ss:zzz";
constexpr char16_t kShort[] = u"n:ss:zzz";

TSWPeriod* AsPeriod(TObject* Object) { return dynamic_cast<TSWPeriod*>(Object); }

// The cells of a watch in the statistic.
TCells RowOf(const TStopWatch& Watch) {
  TDateTime sum = 0, least = -1, most = 0;
  int count = 0;
  for (TObject* object : Watch.Items()) {
    const TSWPeriod* period = AsPeriod(object);
    if (period == nullptr || !(period->GetFinish() > 0)) continue;
    const TDateTime length = period->Period();
    sum += length;
    least = count == 0 ? length : std::min(least, length);
    most = std::max(most, length);
    ++count;
  }
  return {String(Watch.GetLevel(), u'+') + Watch.GetName(),
          FormatDateTime(kLong, sum),
          IntToStr(count),
          FormatDateTime(kShort, count > 0 ? sum / count : 0),
          FormatDateTime(kShort, least),
          FormatDateTime(kShort, most),
          IntToStr(Watch.GetNr()),
          IntToStr(Watch.GetLevel())};
}

}  // namespace

void TStopWatch::Init() {
  iName.clear();
  iLevel = 0;
  iNr = 0;
}

void TStopWatch::Start(TObject* tag, const String& text) {
  auto period = std::make_unique<TSWPeriod>();
  period->SetTag(tag);
  period->SetSText(text);
  period->SetStart(Now());
  Add(period.get());
  (void)period.release();
}

bool TStopWatch::Finish(TObject* tag, const String& text) {
  for (int i = GetCount() - 1; i >= 0; --i) {
    TSWPeriod* period = AsPeriod(Get(i));
    if (period == nullptr || period->GetTag() != tag || period->GetFinish() != 0) continue;
    period->SetFinish(Now());
    period->SetFText(text);
    return true;
  }
  return false;
}

int TStopWatch::FinishCount() const {
  return static_cast<int>(std::count_if(Items().begin(), Items().end(), [](TObject* object) {
    const TSWPeriod* period = AsPeriod(object);
    return period != nullptr && period->GetFinish() > 0;
  }));
}

TSWList::TSWList() { TSWList::Init(); }

void TSWList::Init() {
  TVxStringIndex::Init();
  iActive = true;
  curlevel = 0;
  SetOptions({vxioOwnsObjects, vxioModifyAnsiChars});
}

void TSWList::Start(const String& name, TObject* tag, const String& text) {
  if (!iActive) return;
  int index;
  TStopWatch* watch = Find(name, index) ? Watch(index) : nullptr;
  if (watch == nullptr) {
    auto made = std::make_unique<TStopWatch>();
    made->SetName(name);
    made->SetNr(GetCount());
    Add(name, made.get());
    watch = made.release();
  }
  watch->Start(tag, text);
  watch->SetLevel(curlevel++);
}

bool TSWList::Stop(const String& name, TObject* tag, const String& text) {
  int index;
  if (!iActive || !Find(name, index)) return false;
  TStopWatch* watch = Watch(index);
  --curlevel;
  return watch != nullptr && watch->Finish(tag, text);
}

void TSWList::Statistic(TFileCsv& table) const {
  table.Clear();
  table.AddRow(u"Name,Zeit,Anzahl,Durchschnitt,Min,Max,Nr,Level");
  for (int i = 0; i < GetCount(); ++i) {
    if (const TStopWatch* watch = Watch(i)) table.AddRow(RowOf(*watch));
  }
}

std::unique_ptr<TFileCsv> TSWList::Statistic() const {
  auto table = std::make_unique<TFileCsv>();
  Statistic(*table);
  return table;
}

void TSWList::ShowStatistic() const { Statistic()->ShowContent(); }

void TSWList::getStatisticElement(std::u16string_view name, TVxStringList& strings) const {
  const String key = name;  // it may be one of the strings
  const std::unique_ptr<TFileCsv> table = Statistic();
  strings.Clear();
  for (int i = 0; i < table->GetCount(); ++i) {
    if (table->GetCell(0, i) != key) continue;
    strings.Assign(*table->GetLines(i));
    return;
  }
}

std::unique_ptr<TVxStringList> TSWList::getStatisticElement(std::u16string_view name) const {
  auto strings = std::make_unique<TVxStringList>();
  getStatisticElement(name, *strings);
  return strings;
}

TSWList* Animate() {
  static const struct TAtEnd {
    ~TAtEnd() { uAnimate::FreeBuffersForLeakPrevention(); }
  } atEnd;
  if (FAnimate == nullptr) FAnimate = new TSWList;
  return FAnimate;
}

void uAnimate::FreeBuffersForLeakPrevention() noexcept { delete std::exchange(FAnimate, nullptr); }

}  // namespace vx
