// Lets each allocation of the library's jobs fail in turn: the caller gets a bad_alloc, nothing leaks, and what was
// worked on is whole, so that the same work gives the right result afterwards.
//
// A program of its own, since it replaces operator new, malloc and realloc. Only allocations of the thread that works
// fail.
#include <new>

#include "objects/uVxClasses.h"
#include "objects/uVxClassesString.h"
#include "objects/uVxContnrs.h"
#include "objects/uVxGenerics.h"
#include "objects/uVxObjects.h"
#include "objects/uVxTree.h"
#include "platform/Collation.h"
#include "platform/DateText.h"
#include "platform/Format.h"
#include "platform/MainThread.h"
#include "platform/MemIniFile.h"
#include "platform/NumberMasks.h"
#include "platform/SafeFiles.h"
#include "rendering/uRGBSpace.h"
#include "services/uHandleFile.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"
#include "services/uThreadPool.h"
#include "services/uVxEvents.h"
#include "services/uVxXml.h"
#include "tables/uFileCsv.h"
#include "tests/support/Test.h"

// The library's own calls, which the linker leads here (see tests/CMakeLists.txt), and where they would have gone.
extern "C" {
void* __real_malloc(size_t Size);                // NOLINT(bugprone-reserved-identifier)
void* __real_realloc(void* Place, size_t Size);  // NOLINT(bugprone-reserved-identifier)
void __real_free(void* Place);                   // NOLINT(bugprone-reserved-identifier)
}

namespace {
std::atomic<int64_t> Alive{0};
thread_local int64_t Left = 0;                         // the allocation that fails, counted down; 0: none
thread_local bool HasFailed = false, WasTold = false;  // told by null

bool FailsHere() {
  if (Left == 0 || --Left > 0) return false;
  return HasFailed = true;
}
void* Counted(void* Place) {
  if (Place != nullptr) ++Alive;
  return Place;
}
void* Allocate(size_t Size, size_t Alignment) {
  if (FailsHere()) return nullptr;
  const size_t size = (Size + Alignment - 1) / Alignment * Alignment;
  return Counted(std::aligned_alloc(Alignment, size == 0 ? Alignment : size));
}
void* Raising(void* Place) {
  if (Place == nullptr) throw std::bad_alloc();
  return Place;
}
void Free(void* Place) noexcept {
  if (Place != nullptr) --Alive;
  __real_free(Place);
}
constexpr size_t kPlain = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
}  // namespace

extern "C" {
void* __wrap_malloc(size_t Size) { return FailsHere() ? nullptr : Counted(__real_malloc(Size)); }
void* __wrap_realloc(void* Place, size_t Size) {
  if (FailsHere()) return nullptr;
  return Place == nullptr ? Counted(__real_malloc(Size)) : __real_realloc(Place, Size);
}
void __wrap_free(void* Place) { Free(Place); }
}
void* operator new(size_t Size) { return Raising(Allocate(Size, kPlain)); }
void* operator new[](size_t Size) { return operator new(Size); }
void* operator new(size_t Size, std::align_val_t Alignment) { return Raising(Allocate(Size, size_t(Alignment))); }
// What asks this way goes on without the memory.
void* operator new(size_t Size, const std::nothrow_t&) noexcept {
  void* place = Allocate(Size, kPlain);
  WasTold = WasTold || place == nullptr;
  return place;
}
void operator delete(void* Place) noexcept { Free(Place); }
void operator delete(void* Place, size_t) noexcept { Free(Place); }
void operator delete[](void* Place) noexcept { Free(Place); }
void operator delete[](void* Place, size_t) noexcept { Free(Place); }
void operator delete(void* Place, std::align_val_t) noexcept { Free(Place); }
void operator delete(void* Place, size_t, std::align_val_t) noexcept { Free(Place); }

namespace {

using TWork = std::function<void()>;
using TState = std::function<String()>;

// One run of a job, in which the allocation Point of its work fails; 0: none.
class TRun {
 public:
  explicit TRun(int64_t Point) : FPoint(Point) {}
  // Does Work, that begins by itself from any state, with the failure, and then again without; State reads all of what
  // was worked on, also in between.
  void operator()(const String& Expected, const TWork& Work, const TState& State) {
    std::string raised;
    HasFailed = WasTold = false, Left = FPoint;
    try {
      Work();
    } catch (const std::bad_alloc&) {
      raised = "bad_alloc";
    } catch (const std::exception& error) {
      raised = error.what();
    }
    Left = 0, Failed = HasFailed;
    const bool mayBeSilent = WasTold || NeverRaises;
    EXPECT_EQ(raised, Failed && !(mayBeSilent && raised.empty()) ? "bad_alloc" : "");
    (void)State();
    Work();
    EXPECT_EQ(State(), Expected);
  }
  bool Failed = false;
  bool NeverRaises = false;  // the work may find another way without telling

 private:
  int64_t FPoint;
};
using TJob = std::function<void(TRun&)>;

// What reports by its result tells a failed allocation so.
void Holds(bool Result) {
  if (!Result) throw std::bad_alloc();
}

void Do(const TJob& Job, TRun& Run) {
  TScriptedDialogs quiet;
  Job(Run);
  uMsg::FreeBuffersForLeakPrevention();
}
void Sweep(const char* Name, const TJob& Job) {
  TRun first(0);
  Do(Job, first);  // makes what is kept for the whole program
  bool again = false;
  for (int64_t point = 1; !testing::Test::HasFailure();) {
    const int64_t alive = Alive;
    TRun run(point);
    Do(Job, run);
    if (testing::Test::HasFailure()) ADD_FAILURE() << Name << " with its allocation " << point << " failing";
    // What a failure makes the program keep, it makes once.
    const bool isMore = Alive != alive;
    if (isMore && again) ADD_FAILURE() << Name << " leaks with its allocation " << point << " failing";
    again = isMore && !again;
    if (!again && !run.Failed) return;
    if (!again) ++point;
  }
}
const String kLong = u"Lüdenscheid-Brügge", kCells = u"b,Lüdenscheid-Brügge,a,\"Max Müller, Köln\"";

struct TNote : TVxClassed<TNote, TVxDataIdHelper, u"TNote"> {
  explicit TNote(int Id = 0) { iId = Id; }
};

// A list that adds what has to be added by Add: it is the list's or freed.
template <typename TList>
void AddIds(TList& List) {
  List.Clear();
  for (int id : {5, 3, 9, 1, 7}) {
    auto note = std::make_unique<TNote>(id);
    if (List.Add(note.get()) >= 0) (void)note.release();
  }
}
template <typename TList>
void SweepObjects(const char* Name, const String& Expected) {
  Sweep(Name, [&](TRun& Run) {
    TList list(true);
    const auto work = [&] { AddIds(list), list.Delete(1); };
    Run(Expected, work, [&] {
      String ids;
      for (int i = 0; i < list.GetCount(); ++i)
        ids += IntToStr(static_cast<TNote*>(list.TVxObjectList::GetItem(i))->GetId());
      return ids;
    });
  });
}
template <typename TList>
void SweepNumbers(const char* Name, const String& Text, const String& Expected) {
  Sweep(Name, [&](TRun& Run) {
    TList list;
    Run(
        Expected, [&] { list.SetCommatext(Text); }, [&] { return list.GetCommatext(); });
  });
}

TEST(AllocationSweep, Lists) {
  Sweep("texts", [](TRun& Run) {
    TVxStringList list, other;
    const auto work = [&] {
      list.SetCommatext(kCells), other.SetLighttext(u"x|" + kLong), list.Sort();
      list.AddStrings(other), list.Insert(1, kLong + u"!"), list.AddObject(u"o", &other), list.Delete(0);
    };
    Run(u"Lüdenscheid-Brügge!,b,Lüdenscheid-Brügge,\"Max Müller, Köln\",x,Lüdenscheid-Brügge,o", work,
        [&] { return list.GetCommatext(); });
  });
  Sweep("sorted texts", [](TRun& Run) {
    TVxStringList list(false, true, dupIgnore, false);
    const auto work = [&] { list.Clear(), list.SetCommatext(kCells), list.Add(kLong), list.Add(kLong + u"!"); };
    Run(u"a|b|Lüdenscheid-Brügge|Lüdenscheid-Brügge!|Max Müller, Köln", work, [&] { return list.GetLighttext(); });
  });
  Sweep("an index", [](TRun& Run) {
    TVxStringIndex index({vxioOwnsObjects, vxioNotCaseSensitive});
    const auto work = [&] {
      index.Clear();
      for (const char16_t* key : {u"Lüdenscheid-Brügge", u"Köln", u"Bonn", u"KÖLN"}) {
        auto note = std::make_unique<TNote>(1);
        index.Add(key, note.get());
        (void)note.release();
      }
    };
    Run(u"Bonn,Köln,Lüdenscheid-Brügge", work, [&] { return index.GetCsl().GetCommatext(); });
  });
  Sweep("values and keys", [](TRun& Run) {
    GList<String> list;
    GSortList<String> sorted([](const String& A, const String& B) { return AnsiCompareText(A, B); });
    const auto work = [&] {
      list.Clear(), sorted.Clear();
      for (int i : {3, 1, 2}) list.Add(kLong + IntToStr(i)), sorted.AddUnique(kLong + IntToStr(i));
    };
    Run(u"312123", work, [&] {
      String text;
      for (const String& each : list.Items()) text += each.Slice(18);
      for (const String& each : sorted.Items()) text += each.Slice(18);
      return text;
    });
  });
  Sweep("chains and ids", [](TRun& Run) {
    TVxIdValueList values;
    TVxThreadList chain;
    const auto work = [&] {
      values.Clear(), chain.Clear();
      for (int id : {7, 3, 5}) values.Add(id, id * 2), chain.Add(&values);
    };
    Run(u"33", work, [&] { return IntToStr(values.GetCount()) + IntToStr(chain.GetCount()); });
  });
  SweepNumbers<TVxIntegerList>("integers", u"3,1,2", u"3,1,2");
  SweepNumbers<TVxIdList>("ids", u"3,1,2", u"1,2,3");
  SweepNumbers<TVxDoubleList>("numbers", u"\"3,5\",1,2", u"\"3,5\",1,2");
  SweepObjects<TVxObjectList>("objects", u"5917");
  SweepObjects<TVxObjectListU>("objects without duplicates", u"5917");
  SweepObjects<TVxDataIdList>("objects by id", u"1579");
}

TEST(AllocationSweep, TreesAndTexts) {
  Sweep("a tree", [](TRun& Run) {
    TVxTree tree, copy;
    const auto work = [&] {
      tree.Clear();
      TVxTreeNode* home = tree.AddChild(nullptr, kLong);
      tree.AddChild(home, u"b"), tree.AddChildFirst(home, u"a" + kLong);
      tree.AlphaSort(), copy.Assign(&tree), copy.AssignOn(&tree, true), tree.Clear();
      tree.SetSerialize(copy.GetSerialize());
    };
    Run(u"0Lüdenscheid-Brügge1aLüdenscheid-Brügge1b3", work, [&] {
      String text;
      for (auto* node = tree.GetFirstNode(); node; node = node->GetNext())
        text += IntToStr(node->GetLevel()) + node->GetText();
      return text + IntToStr(copy.GetCount());
    });
  });
  Sweep("nodes of texts", [](TRun& Run) {
    TVxTextNode root;
    const auto work = [&] {
      root.Clear();
      root.Validate(u"Bonn")->Validate(kLong), root.Validate(kLong);
      root.SetSerialize(root.GetSerialize());
    };
    Run(u"2°°°1E°4°Bonn15°12°Lüdenscheid-Brügge15°12°Lüdenscheid-Brügge", work, [&] { return root.GetSerialize(); });
  });
  Sweep("a template", [](TRun& Run) {
    TVxStringReplacer letter;
    const String holders[] = {u"%Name%", u"%Ort%"}, values[] = {u"Meier", kLong}, others[] = {kLong, u"Bonn"};
    const auto work = [&] {
      letter.ReplaceString(u"%Name% aus %Ort% und %Name%", holders, values, true), letter.Replace(others);
    };
    Run(u"Lüdenscheid-Brügge aus Bonn und Lüdenscheid-Brügge", work, [&] { return letter.ToString(); });
  });
  Sweep("values as texts", [](TRun& Run) {
    String text;
    const auto work = [&] {
      text = Format(u"%s kostet %d und mehr", {kLong, 12}) + FormatFloat(u"#,##0.00", 1234567.5L);
      text += FormatDateTime(u"dddd, d. mmmm yyyy", 46000);
    };
    Run(u"Lüdenscheid-Brügge kostet 12 und mehr1.234.567,50Dienstag, 9. Dezember 2025", work, [&] { return text; });
  });
  Sweep("elements both ways", [](TRun& Run) {
    std::unique_ptr<TXmlObject> read;
    const auto work = [&] {
      TXmlObject patient;
      patient.SetName(u"Patient"), patient.AddAttribute(u"id", kLong);
      patient.Add(u"Name", u"Müller & Söhne & Töchter"), patient.Add(u"Ort", kLong);
      TVxStringList lines;
      patient.GetXmlText(0, lines);
      read = std::make_unique<TXmlObject>(), read->Read(lines.GetTextStr());
    };
    Run(u"Müller & Söhne & Töchter\r\n  Lüdenscheid-Brügge\r\n  ", work,
        [&] { return read ? read->GetValue(u"NAME") + read->GetValue(u"ORT") : String(); });
  });
}

const char kTable[] =
    "Nr,Name,Ort\r\n10,\"M\xFCller-L\374denscheid, Max\",Bonn\r\n9,Schmidt,L\374denscheid-Br\xFCgge\r\n";

TEST(AllocationSweep, Tables) {
  test::TTempDir dir;
  test::TClockAt clock{46000.25};
  const String path = dir.Path("a.csv"), copy = dir.Path("b.txt");
  test::PutText(path, kTable);
  Sweep("load, edit, sort, save", [&](TRun& Run) {
    THeadCsv table;
    const auto work = [&] {
      Holds(table.LoadFromFile(path)), table.SetCell(2, 1, kLong + kLong), table.AddRow({u"8", kLong, u"Köln"});
      table.AddEmpty(2), table.DoAll({camTrim, camDeleteEmptyLines}), table.SortByField(u"Nr", true);
      Holds(table.SaveToFile(copy));
    };
    Run(u"Nr,Name,Ort\r\n10,\"Müller-Lüdenscheid, Max\",Lüdenscheid-BrüggeLüdenscheid-Brügge\r\n"
        u"8,Lüdenscheid-Brügge,Köln\r\n9,Schmidt,Lüdenscheid-BrüggeNr;",
        work, [&] { return table.GetText() + String::FromUtf8(test::GetText(copy)).Slice(0, 3); });
  });
  Sweep("texts and copies", [&](TRun& Run) {
    TFileCsv table;
    std::unique_ptr<TFileCsv> other;
    const auto work = [&] {
      table.SetText(u"Nr,Name\r\n1,Lüdenscheid-Brügge\r\n2,b"), table.SetAnsiCsv(table.GetAnsiCsv());
      other = table.Duplicate(), other->SetCell(1, 1, kLong + u"!"), other->AddFileCsv(table);
      other = other->TurnAxis(), other->ImportFromString(other->ExportToString(u";"), u";");
    };
    Run(u"Nr,1,2,Nr,1,2\r\nName,Lüdenscheid-Brügge!,b,Name,Lüdenscheid-Brügge,b\r\n"
        u"Nr,1,2,Nr,1,2\r\nName,Lüdenscheid-Brügge!,b,Name,Lüdenscheid-Brügge,b",
        work, [&] { return other ? other->GetText() : String(); });
  });
  Sweep("one kept in order", [&](TRun& Run) {
    TSortCsv table;
    const auto work = [&] { table.Clear(), Holds(table.LoadFromFile(path)), table.AddRow({u"95", kLong, u"Köln"}); };
    Run(u"10,\"Müller-Lüdenscheid, Max\",Bonn\r\n9,Schmidt,Lüdenscheid-Brügge\r\n"
        u"95,Lüdenscheid-Brügge,Köln\r\nNr,Name,Ort",
        work, [&] { return table.GetText(); });
  });
  Sweep("sums", [&](TRun& Run) {
    TFileCsv table;
    String sums;
    const auto work = [&] {
      table.SetText(u"n,m\r\n123456789,\"1.234.567,50\"\r\n2,3\r\n,");
      sums = table.SumY(0, vftInteger) + u" " + table.SumY(1, vftCurrency);
    };
    Run(u"123456791 1234570,50", work, [&] { return sums; });
  });
}

TEST(AllocationSweep, Pictures) {
  Sweep("bytes of a file, fewer colours, and turned", [](TRun& Run) {
    String text;
    const auto work = [&] {
      TBitmap picture(pf24bit, 3, 1);
      for (int i : {0, 5}) picture.GetScanline(0)[i] = 0;
      TBitmap read = DecodeBitmap(EncodeBitmap(picture), u"a.bmp");
      auto few = TBitmapX::CreateBitmapX(&read)->CompressColors(2, false), turned = few->Rotate(90);
      text = few->ColorStatistic()->GetCommatext() + IntToStr(turned->GetHeight());
    };
    Run(u"\"rrr.ggg.bbb - Anzahl 2\",\"003.255.255 - 001,000\",\"255.255.131 - 002,000\"3", work, [&] { return text; });
  });
}

struct TListener : TObject {
  void Hear(TObject*, int) { ++Heard; }
  int Heard = 0;
};
struct TNumber : TThreadJob {
  explicit TNumber(std::atomic<int>& sum) : Sum(sum) {}
  void doExecute(TThreadData&) override { ++Sum; }
  std::atomic<int>& Sum;
};
struct TNumbers : TThreadData {
  void Done(TThreadJob* job, TThreadQueue& queue, int doing) override {
    TThreadData::Done(job, queue, doing);
    delete job;
  }
  bool HaveToSync() override { return false; }
  void Synchronize() override {}
};

TEST(AllocationSweep, Services) {
  test::TTempDir dir;
  test::TClockAt clock{46000.25};
  test::TZoneAt zone{60};
  SetMainThread();
  const String path = dir.Path("a.ini"), log = dir.Path("messages.log"), deep = dir.Path("d1/d2");
  Sweep("signals", [](TRun& Run) {
    TIdSignal signal;
    TListener a, b;
    const auto work = [&] {
      for (TListener* each : {&a, &b}) {
        each->Heard = 0;
        signal.Remove(TIdEvent::Of<&TListener::Hear>(*each)), signal.Add(TIdEvent::Of<&TListener::Hear>(*each));
      }
      signal.Emit(nullptr, 1);
    };
    Run(u"112", work, [&] { return IntToStr(a.Heard) + IntToStr(b.Heard) + IntToStr(signal.Count()); });
  });
  Sweep("a pool", [](TRun& Run) {
    std::atomic<int> sum{0};
    const auto work = [&] {
      sum = 0;
      TNumbers data;
      TThreadPool pool(data, true);
      for (int i = 0; i < 5; ++i) {
        auto job = std::make_unique<TNumber>(sum);
        pool.Add(job.get());
        (void)job.release();
      }
      pool.Start();
      while (sum < 5) (void)CheckSynchronize(1);
    };
    Run(u"5", work, [&] { return IntToStr(sum); });
  });
  Sweep("messages", [&](TRun& Run) {
    TScriptedDialogs screen;
    const auto work = [&] {
      uMsg::FreeBuffersForLeakPrevention(), screen.Shown.clear();
      Msg().SetLog({true, laInstant, log, u"%2,%3,%4,%5,%6"});
      Msg().BeginAction();
      Msg().GetMsg()(Warning(kLong, u"Import"), true), Msg().GetMsg()(Error(u"e" + kLong, u"Import"), false);
      Msg().EndAction(Error(u"Der Import ist fehlgeschlagen!"));
    };
    Run(u"Der Import ist fehlgeschlagen!\r\n\r\nWarnung: Lüdenscheid-Brügge\r\nFehler: eLüdenscheid-Brügge", work,
        [&] { return screen.Shown.empty() ? String() : screen.Shown.back().Text; });
  });
  Sweep("shared configuration", [&](TRun& Run) {
    Run.NeverRaises = true;
    VxDeleteFile(path, false);
    TSharedIni ini(path);
    const auto work = [&] {
      ini.WriteString(u"Fenster", u"Breite", kLong), ini.WriteString(u"Lade", u"x", u"1");
      ini.DeleteKey(u"Lade", u"x"), ini.AddSection(u"Neu" + kLong), Holds(ini.Store()), Holds(ini.Reload(true, false));
    };
    Run(kLong, work, [&] { return ini.ReadString(u"Fenster", u"Breite", u""); });
  });
  Sweep("a mirror of it", [&](TRun& Run) {
    Run.NeverRaises = true;
    TDuplicateIni ini(dir.Path("local.ini"), path);
    const auto work = [&] { ini.WriteString(u"Fenster", u"Breite", kLong), Holds(ini.Store()); };
    Run(kLong, work, [&] { return ini.ReadString(u"Fenster", u"Breite", u""); });
  });
  Sweep("files", [&](TRun& Run) {
    Run.NeverRaises = true;
    const auto work = [&] {
      Holds(VxForceDirectories(deep)), Holds(VxCopyFile(path, deep + u"/b.ini", false));
      Holds(VxRenameFile(deep + u"/b.ini", deep + u"/c.ini", false)), Holds(VxDeleteFile(deep + u"/c.ini", false));
      ReplaceFileContent(log, "ab"), AppendToFile(log, "c");
    };
    Run(u"abc", work, [&] { return String::FromUtf8(test::GetText(log)); });
  });
}

}  // namespace
