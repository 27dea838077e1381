// Stop watches for finding out where time goes.
//
//   TSWPeriod    one measured span
//   TStopWatch   all spans of one name
//   TSWList      the watches by their names
//   Animate      the list of the program
//
// Example:
//   vx::Animate()->Start(u"Import", &view, path);
//   vx::Animate()->Start(u"Lesen", &view);
//   table.LoadFromFile(path);
//   vx::Animate()->Stop(u"Lesen", &view);
//   vx::Animate()->Stop(u"Import", &view);
//   vx::Animate()->ShowStatistic();
//
// Spans are told apart by a tag, any object or nullptr. The statistic, with a row for each name:
//   Name,Zeit,Anzahl,Durchschnitt,Min,Max,Nr,Level
//   Import,0:00:01:250,1,0:01:250,0:01:250,0:01:250,0,0
//   +Lesen,0:00:01:000,1,0:01:000,0:01:000,0:01:000,1,1
//
// Pitfalls:
//   - A Stop that finds no open span gives false and lowers the level all the same, if the name is known.
//   - Times are by the clock of the day: a clock that is set changes them, and each counts only within a day.
//   - No locks: watches are for one thread.
#pragma once

#include <memory>

#include "objects/uVxClasses.h"
#include "platform/TObjectList.h"

namespace vx {

class TFileCsv;

class TSWPeriod : public TObject {
 public:
  TSWPeriod() = default;
  String ClassName() const override { return u"TSWPeriod"; }
  // Empties all fields.
  void Init() { *this = TSWPeriod(); }

  // 0 while the span is open.
  TDateTime GetFinish() const noexcept { return iFinish; }
  void SetFinish(TDateTime Value) noexcept { iFinish = Value; }
  // The texts given at the end and at the start.
  const String& GetFText() const noexcept { return iFText; }
  void SetFText(const String& Value) { iFText = Value; }
  TDateTime GetStart() const noexcept { return iStart; }
  void SetStart(TDateTime Value) noexcept { iStart = Value; }
  const String& GetSText() const noexcept { return iSText; }
  void SetSText(const String& Value) { iSText = Value; }
  // Stays the caller's; only its address counts.
  TObject* GetTag() const noexcept { return iTag; }
  void SetTag(TObject* Value) noexcept { iTag = Value; }

  // Finish minus Start, in days.
  TDateTime Period() const noexcept { return iFinish - iStart; }

 private:
  TDateTime iFinish = 0;
  String iFText;
  TDateTime iStart = 0;
  String iSText;
  TObject* iTag = nullptr;
};

// A list of TSWPeriod, oldest first; other objects in it are passed over.
class TStopWatch : public TObjectList {
 public:
  TStopWatch() = default;
  explicit TStopWatch(bool OwnsObjects) noexcept : TObjectList(OwnsObjects) {}
  String ClassName() const override { return u"TStopWatch"; }
  // Empties Name, Level and Nr; the spans stay.
  void Init();

  const String& GetName() const noexcept { return iName; }
  void SetName(const String& Value) { iName = Value; }
  // How deep its last start was nested.
  int GetLevel() const noexcept { return iLevel; }
  void SetLevel(int Value) noexcept { iLevel = Value; }
  // How many watches there were before it.
  int GetNr() const noexcept { return iNr; }
  void SetNr(int Value) noexcept { iNr = Value; }

  // Begins a span.
  void Start(TObject* tag, const String& text = {});
  // Ends the latest open span with this tag; false if there is none.
  bool Finish(TObject* tag, const String& text = {});
  // How many spans have ended.
  int FinishCount() const;

 private:
  String iName;
  int iLevel = 0;
  int iNr = 0;
};

// An index of TStopWatch objects, which it owns; case counts in names.
class TSWList : public TVxStringIndex {
 public:
  TSWList();
  String ClassName() const override { return u"TSWList"; }
  // Forgets all watches, is active and at level 0 again, and owns its objects.
  void Init() override;

  // While false, Start and Stop do nothing.
  bool GetActive() const noexcept { return iActive; }
  void SetActive(bool Value) noexcept { iActive = Value; }

  // Begins a span of the watch of that name, which is made if need be, one level below the spans begun before.
  void Start(const String& name, TObject* tag, const String& text = {});
  // Ends the latest open span of that watch and tag, and goes up one level, also if there is no such span. False
  // then, and with no change for a name that is not known.
  bool Stop(const String& name, TObject* tag, const String& text = {});

  // Puts the statistic of all ended spans, by names, in the place of what table has; or gives a new table. The
  // name has a "+" for each level in front, Zeit has the form "h:nn:ss:zzz", the other times "n:ss:zzz". A watch
  // without an ended span has the count 0, the times 0 and as minimum -1, which shows as "0:00:000".
  void Statistic(TFileCsv& table) const;
  [[nodiscard]] std::unique_ptr<TFileCsv> Statistic() const;
  // Shows the rows of the statistic in a dialog.
  void ShowStatistic() const;
  // Puts the first row of the statistic, its head included, whose first cell is exactly name, with its "+" signs,
  // in the place of what strings has; or gives it as a new list. Empty if there is none.
  void getStatisticElement(std::u16string_view name, TVxStringList& strings) const;
  [[nodiscard]] std::unique_ptr<TVxStringList> getStatisticElement(std::u16string_view name) const;

 private:
  // The watch at Index; nullptr if something else stands there.
  TStopWatch* Watch(int Index) const { return dynamic_cast<TStopWatch*>(GetObjects(Index)); }

  bool iActive = true;
  int curlevel = 0;
};

// The list of the program, made at its first use; never nullptr.
TSWList* Animate();

namespace uAnimate {

// Frees that list; the next use makes a new one. The end of the program does the same.
void FreeBuffersForLeakPrevention() noexcept;

}  // namespace uAnimate

}  // namespace vx
