#include "services/uVxEvents.h"

#include "tests/support/Test.h"

namespace {

using namespace vx;

using TCalls = std::vector<int>;

// A listener that notes its number and then does as told.
struct TListener : TObject {
  TListener(int number, TCalls& calls) : Number(number), Calls(calls) {}
  void Hear(TObject*, int) {
    Calls.push_back(Number);
    if (auto act = Act) act();
  }
  TIdEvent Event() { return TIdEvent::Of<&TListener::Hear>(*this); }
  int Number;
  TCalls& Calls;
  std::function<void()> Act;
};

struct Signals : testing::Test {
  TListener& Make(int number) {
    return *Listeners.emplace(number, std::make_unique<TListener>(number, Calls)).first->second;
  }
  void Add(int number) { Signal->Add(Make(number).Event()); }
  void Remove(int number) { Signal->Remove(Make(number).Event()); }
  // Whoever hears of it acts so; before and behind it all do as they did.
  void Emit(const std::function<void()>& act) {
    const auto before = Listeners[0]->Act;
    for (auto& [number, listener] : Listeners) listener->Act = act;
    Signal->Emit(nullptr, 0);
    for (auto& [number, listener] : Listeners) listener->Act = before;
  }
  TCalls Emit() {
    Calls.clear();
    Signal->Emit(nullptr, 0);
    return Calls;
  }
  TCalls Calls;
  std::map<int, std::unique_ptr<TListener>> Listeners;
  std::unique_ptr<TIdSignal> Signal = std::make_unique<TIdSignal>();
};

TEST_F(Signals, CallEachMethodOnceOldestFirst) {
  TListener &a = Make(1), &b = Make(2);
  EXPECT_EQ((TFacts{Signal->Add(a.Event()), Signal->Add(b.Event()), Signal->Add(a.Event())}), "0 0 1");
  EXPECT_EQ((TFacts{Signal->Count(), Signal->IndexOf(a.Event())}), "2 1");
  EXPECT_EQ(Emit(), (TCalls{1, 2}));
  for (int i = 0; i < 2; ++i) Signal->Remove(a.Event());
  EXPECT_EQ(Emit(), (TCalls{2}));
  EXPECT_THROW(Signal->GetEventHandler(1), EListError);
}

TEST_F(Signals, BearWhateverHandlersDo) {
  for (int i : {1, 2, 3}) Signal->Add(Make(i).Event());
  TListener &a = *Listeners[1], &b = *Listeners[2], &c = *Listeners[3];
  b.Act = [&] { b.Act = nullptr, Signal->Emit(nullptr, 1), Signal->Remove(c.Event()), Signal->Add(Make(4).Event()); };
  EXPECT_EQ(Emit(), (TCalls{1, 2, 1, 2, 3})) << "the nested emission is whole, the outer one hears of the removal";
  b.Act = [] { throw EConvertError(u"no"); };
  EXPECT_THROW(Emit(), EConvertError);
  EXPECT_EQ(Calls, (TCalls{1, 2}));
  b.Act = [&] { Signal->GetHandlerList().Clear(); };
  EXPECT_EQ(Emit(), (TCalls{1, 2}));
  Signal->Add(a.Event()), Signal->Add(b.Event());
  a.Act = [&] { Signal.reset(); };
  EXPECT_EQ(Emit(), (TCalls{1})) << "a handler may free the signal";
}

// The rules as they are told: each walk has a copy of its own, from which removals are taken out.
struct TModel {
  struct TWalk {
    TCalls Copy;
    int Index;
  };
  void Add(int n) {
    if (std::ranges::find(List, n) == List.end()) List.insert(List.begin(), n);
  }
  void Remove(int n) {
    if (std::erase(List, n) == 0) return;
    for (TWalk* walk : Walks) {
      const auto at = std::ranges::find(walk->Copy, n);
      const auto place = static_cast<int>(at - walk->Copy.begin());
      if (at == walk->Copy.end() || place > walk->Index) continue;
      walk->Copy.erase(at);
      if (place < walk->Index) --walk->Index;
    }
  }
  void Emit(const std::function<void()>& act) {
    TWalk walk{List, static_cast<int>(List.size())};
    Walks.push_back(&walk);
    while (walk.Index >= 0 && --walk.Index >= 0) Calls.push_back(walk.Copy[static_cast<size_t>(walk.Index)]), act();
    Walks.pop_back();
  }
  TCalls List, Calls;
  std::vector<TWalk*> Walks;
};

// The same decisions for each side, drawn by the same generator in the same order of calls.
template <typename T>
TCalls CallsOf(T& side, unsigned seed) {
  constexpr int kListeners = 8;
  std::mt19937 random(seed);
  int budget = 60;
  const std::function<void(int)> act = [&](int depth) {
    for (int i = static_cast<int>(random() % 3); i > 0 && budget > 0; --i, --budget) {
      const int who = static_cast<int>(random() % kListeners);
      const unsigned what = random() % 5;
      if (what < 4) what < 2 ? side.Add(who) : side.Remove(who);
      if (what == 4 && depth < 3) side.Emit([&act, depth] { act(depth + 1); });
    }
  };
  for (int i = 0; i < kListeners; ++i) side.Add(i);
  for (int i = 0; i < 5; ++i) side.Emit([&act] { act(0); });
  return side.Calls;
}

TEST_F(Signals, FollowTheToldWalkUnderRandomChanges) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Signal = std::make_unique<TIdSignal>();
    Listeners.clear(), Calls.clear();
    TModel model;
    ASSERT_EQ(CallsOf<Signals>(*this, seed), CallsOf(model, seed)) << "seed " << seed;
  }
}

struct TFamilies : TObject {
  void Simple(TObject*, TObject*) { ++Heard; }
  void Progress(TObject*, int step, int max, bool& stop, TObject*) { Heard += step * max, stop = true; }
  void Notify(TObject*) { ++Heard; }
  int Heard = 0;
};

void Note(TObject* handler, TListNotification) { ++static_cast<TFamilies*>(handler)->Heard; }

TEST(SignalFamilies, KeepTheirOwnRules) {
  TFamilies one, two;
  int freed = 0;
  auto counted = [&freed] { return new test::TProbe([&freed] { ++freed; }); };
  TSimpleSignal simple;
  simple.SetOwnsObject(true), simple.Emit(nullptr, counted());
  EXPECT_EQ(freed, 1) << "also with no handlers";
  auto event = TSimpleEvent::Of<&TFamilies::Simple>(one);
  simple.Add(event);
  simple.Emit(nullptr, counted()), simple.Emit(nullptr, nullptr);
  TEventPointer halves{reinterpret_cast<void*>(event.GetCode()), event.GetData()};
  EXPECT_EQ(simple.IndexOf(halves), 0);
  simple.SetEventHandler(0, new TNotifyEventHandler(TNotifyEvent::Of<&TFamilies::Notify>(one)));
  simple.Emit(nullptr, nullptr);
  EXPECT_EQ((TFacts{simple.GetEventHandler(0) != nullptr, simple.IndexOf(halves)}), "no -1");
  EXPECT_EQ((TFacts{freed, one.Heard}), "2 2") << "a handler of another family is skipped";

  TProgressSignal progress;
  progress.Add(TProgressEvent::Of<&TFamilies::Progress>(one));
  progress.Add(TProgressEvent::Of<&TFamilies::Progress>(two));
  bool stop = false;
  TProgressString text(u"Import");
  progress.Emit(&one, 3, 7, stop, &text);
  EXPECT_EQ((TFacts{stop, two.Heard}), "yes 21") << "doStop does not end the emission";

  TNotifyHandlerList list;
  list.SetOnNotify(TNotifyHandlerListEvent::Of<&Note>()), list.SetOwnsObjects(false);
  list.Add(&one), list.Insert(0, &two);
  auto walk = list.GetEnumerator();
  EXPECT_EQ(walk->GetCurrent(), nullptr);
  EXPECT_TRUE(walk->MoveNext());
  list.Exchange(0, 1);
  for (TObject* current : {&one, &two}) {
    EXPECT_EQ(walk->GetCurrent(), current) << "the walk goes on over the list as it was";
    EXPECT_EQ(walk->MoveNext(), current == &one);
  }
  EXPECT_EQ(two.Heard, 22);
  auto second = list.GetEnumerator();
  TFamilies late;
  for (int i = 0; i < 50; ++i) list.Add(&late);
  EXPECT_TRUE(second->MoveNext());
  EXPECT_EQ(second->GetCurrent(), &two) << "not what was added since, at no old address";
  second.reset(), list.Clear();
}

// Notes what a lambda does, and its end.
struct TNoted {
  std::string* Log;
  std::shared_ptr<void> End{nullptr, [log = Log](void*) { *log += 'x'; }};
};

TEST(Connections, EndWithWhoeverEndsFirst) {
  std::string log;
  auto signal = std::make_unique<TIdSignal>();
  TConnection kept, again;
  auto hear = [&](char name) {
    return [&log, name, noted = TNoted{&log}](TObject*, int id) { log.push_back(static_cast<char>(name + id)); };
  };
  const TCases<const char*, std::function<void()>, std::string> cases = {
      {"in their order", [&] { kept = signal->Connect(hear('a')), again = signal->Connect(hear('m')); }, "ambn"},
      {"assigned over", [&] { kept = signal->Connect(hear('d')); }, "xmdne"},
      {"moved", [&] { again = std::move(kept); }, "xde"},
      {"dropped at once", [&] { (void)signal->Connect(hear('q')); }, "xde"},
      {"ended twice", [&] { again.Disconnect(), again.Disconnect(); }, "x"},
      {"cleared", [&] { kept = signal->Connect(hear('a')), signal->GetHandlerList().Clear(); }, ""},
      {"without arguments", [&] { kept = signal->Connect([&log] { log += '-'; }); }, "x--"},
      {"ended by itself, then unheard",
       [&] { kept = signal->Connect([&, n = TNoted{&log}] { kept = {}, log += '!'; }); }, "!x"},
      {"emits and ends in the nested call",
       [&] {
         kept = signal->Connect([&, n = TNoted{&log}](TObject*, int id) {
           id > 5 ? kept.Disconnect() : signal->Emit(nullptr, id + 6);
           log += '.';
         });
       },
       "..x"},
      {"another one ended before its turn",
       [&] {
         kept = signal->Connect([&, n = TNoted{&log}] { again.Disconnect(), log += '1'; });
         again = signal->Connect(hear('a'));
       },
       "x11"},
      {"the signal goes in its handler",
       [&] { kept = {}, again = signal->Connect([&, n = TNoted{&log}] { signal.reset(), log += '?'; }); }, "x?"}};
  for (const auto& [what, act, told] : cases) {
    log.clear();
    act();
    for (int id : {0, 1}) {
      if (signal) signal->Emit(nullptr, id);
    }
    EXPECT_EQ(log, told) << what;
  }
  EXPECT_EQ((TFacts{kept.IsConnected(), again.IsConnected()}), "no no");
  again = {};
  EXPECT_EQ(log, "x?x");
  TProgressSignal progress;
  TConnections all;
  for (char name : {'a', 'b'})
    all.Add(progress.Connect([&, name, n = TNoted{&log}](TObject*, int, int, bool& stop, TObject*) {
      log += name, stop = stop || name == 'a';
    }));
  bool stop = false;
  log.clear(), progress.Emit(nullptr, 1, 2, stop, nullptr), all.Disconnect();
  EXPECT_EQ((TFacts{log, stop, all.GetCount(), progress.Count()}), "abxx yes 0 0");
}

TEST(Connections, OfAnEventLeaveAnotherHandlerAlone) {
  struct TEvents {
    TNotifyEvent Field;
    const TNotifyEvent& Get() const noexcept { return Field; }
    void Set(TNotifyEvent value) { Field = value; }
  } events;
  int heard = 0;
  for (bool isProperty : {false, true}) {
    auto connect = [&](int by) {
      auto add = [&heard, by] { heard += by; };
      return isProperty ? ConnectEvent(events, &TEvents::Get, &TEvents::Set, add) : ConnectEvent(events.Field, add);
    };
    heard = 0;
    TConnection first = connect(1);
    events.Field(nullptr);
    TConnection second = connect(10);
    events.Field(nullptr);
    EXPECT_EQ((TFacts{first.IsConnected(), second.IsConnected(), heard}), "no yes 11");
    first = {}, events.Field(nullptr), second = {};
    EXPECT_EQ((TFacts{bool(events.Field), heard}), "no 21");
  }
}

}  // namespace
