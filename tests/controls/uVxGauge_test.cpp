#include "controls/uVxGauge.h"

#include "platform/Drawing.h"
#include "platform/MainThread.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uBitmapX.h"
#include "services/uMsg.h"
#include "tests/support/Test.h"

namespace {

constexpr Extended kInf = std::numeric_limits<Extended>::infinity(), kNan = std::numeric_limits<Extended>::quiet_NaN();

// Writes down what it is given, and what it is asked.
struct TNotingWindow : TGaugeWindow {
  bool IsWindowVisible() override { return ++Asked, Visible; }
  bool BitBlt(int x, int y, const TBitmap& picture) override {
    if (Fails) throw Exception(u"no device");
    const std::lock_guard lock(Mutex);
    Places += std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(picture.GetWidth()) + "x" +
              std::to_string(picture.GetHeight()) + ";";
    ++Painted;
    return true;
  }
  std::string TakePlaces() {
    const std::lock_guard lock(Mutex);
    return std::exchange(Places, {});
  }
  std::atomic<bool> Visible{true}, Fails{false};
  std::atomic<int> Asked{0}, Painted{0};
  std::mutex Mutex;
  std::string Places;
};

// Canvases of bitmaps that leave their lines behind.
struct TNotingBackend : TDrawingBackend {
  struct TNotingCanvas : TRecordingCanvas {
    explicit TNotingCanvas(String& text) : Text(text) {}
    ~TNotingCanvas() override { Text += GetText(); }
    String& Text;
  };
  std::unique_ptr<TCanvas> NewBitmapCanvas(TBitmap&) override { return std::make_unique<TNotingCanvas>(Text); }
  void LoadPictureFile(const String&, TBitmap&) override {}
  std::string EncodePng(const TBitmap&) override { return {}; }
  String Text;
};

// A painter whose rounds the test runs.
struct TRounds : TVxGaugeThread {
  TRounds() : TVxGaugeThread(false) { SetFreeOnTerminate(false); }
  void Start() override { ++Starts; }
  void Round() { doExecute(); }
  int Starts = 0;
};

bool Comes(const std::function<bool()>& isTrue) {
  const int64_t end = SystemClock().Ticks() + 60000;
  while (!isTrue() && SystemClock().Ticks() < end) (void)CheckSynchronize(1);
  return isTrue();
}

// All setters, and what they make of a new object.
TVxPaintValues AllSet(TVxPaintObject& o, const std::shared_ptr<TGaugeWindow>& window) {
  const TFont font{u"Arial", clRed, {fsBold}, 9, 96};
  o.SetBgColorFirst(1), o.SetBgColorSecond(2), o.SetBgColorThird(3), o.SetCaption(u"a"),
      o.SetCaptionAlignment(taCenter);
  o.SetCaptionMargin(-4), o.SetCaptionShadow(true), o.SetCaptionShadowColor(5), o.SetCaptionShow(true);
  o.SetGaugeColorFirst(6), o.SetGaugeColorSecond(7), o.SetGaugeColorThird(8), o.SetGlowBrightness(9);
  o.SetGlowColorActive(true), o.SetGlowColorFirst(10), o.SetGlowColorSecond(11), o.SetGlowColorThird(12);
  o.SetGlowDelay(0), o.SetGlowState(ggsOn), o.SetGlowTick(-13), o.SetGlowWidthPercent(500), o.SethParent(window);
  o.SetKITT(true), o.SetValues(1, 0, 0), o.SetMax(50), o.SetMin(-20), o.SetPaintRect({1, 2, INT_MAX, INT_MIN});
  o.SetPercentShow(true), o.SetPosition(15), o.SetValueShow(true), o.SetFont(font), o.SetVisible(false);
  return {false, 1,    2,   3,  u"a", taCenter, -4,  true, 5,      true, 6,  7,   8,  9,
          true,  10,   11,  12, 1,    ggsOn,    -13, 100,  window, true, 50, -20, 15, {1, 2, 1 << 27, -(1 << 27)},
          true,  true, font};
}

TEST(Gauge, EverySetterSetsItsValueAlsoUnderTheLock) {
  TRounds rounds;
  const auto window = std::make_shared<TNotingWindow>();
  TVxPaintObjectData plain;
  TVxPaintObjectThreadListed listed(&rounds);
  const TVxPaintValues ofPlain = AllSet(plain, window), ofListed = AllSet(listed, window);
  EXPECT_EQ((TFacts{ofPlain == plain.GetValues(), ofListed == listed.GetSnapshot()}), "yes yes");
}

TEST(Gauge, WhatCallsForARepaint) {
  struct TObject : TVxPaintObjectData {
    using TVxPaintObject::BeginPainting;
  } gauge;
  gauge.SetPaintRect({0, 0, 100, 10});
  const auto due = [&](const std::function<void()>& change) {
    gauge.BeginPainting();
    change();
    return gauge.GetBasicsChanged();
  };
  const auto to = [&](Extended position) { return [&, position] { gauge.SetPosition(position); }; };
  EXPECT_EQ((TFacts{due([&] { gauge.SetCaption({}); }), due([&] { gauge.SetCaption(u"a"); }), due(to(0.5)), due(to(1)),
                    due(to(1.99)), due(to(2)), due([&] { gauge.SetMax(199); }), due([&] { gauge.SetMax(150); }),
                    due([&] { gauge.SetMin(-2); })}),
            "no yes no yes no yes yes no yes");
  std::mt19937 random(7);
  gauge.SetValues(8, -3, 0);
  for (int i = 0; i < 10000; ++i) {
    const TGaugeValues before{8, -3, gauge.GetPosition()}, now{8, -3, Extended(random() % 1099 + 1) / 100 - 3};
    const bool isDue = TVxPaintObject::CalcBarEnd(100, before) != TVxPaintObject::CalcBarEnd(100, now);
    EXPECT_EQ(due(to(now.Position)), isDue) << double(before.Position) << " to " << double(now.Position);
  }
  gauge.SetValues(100, 0, 0.5);
  EXPECT_EQ((TFacts{due(to(0.7)), due(to(0))}), "no yes") << "a glow that ends leaves nothing behind";
  gauge.SetCaptionShow(true);
  EXPECT_EQ((TFacts{due(to(0.1)), due(to(0.1)), due(to(101)), due(to(-1))}), "yes no no no");
}

TEST(Gauge, LimitsOfAllKinds) {
  for (const auto& [max, min, position, facts] :
       TCases<Extended, Extended, Extended, const char*>{{100, 0, 25, "25 50"},
                                                         {-10, -20, -15, "50 100"},
                                                         {7, 7, 7, "7 0"},
                                                         {0, 10, 5, "50 0"},
                                                         {50, 0, 80, "160 320"},
                                                         {100, 0, -4e9L, "-4e+09 -2147483647"},
                                                         {3, 0, 3, "100 200"}}) {
    EXPECT_EQ((TFacts{TVxPaintObject::CalcPercent(position, max, min),
                      TVxPaintObject::CalcBarEnd(200, {max, min, position})}),
              facts);
  }
  const Extended most = std::numeric_limits<Extended>::max();
  TVxPaintObjectData gauge;
  gauge.SetPaintRect({0, 0, 20, 1});
  for (const Extended odd : {kInf, -kInf, kNan}) {
    gauge.SetMax(odd), gauge.SetMin(odd), gauge.SetPosition(odd), gauge.SetValues(1, 0, odd);
    EXPECT_EQ((TFacts{gauge.GetMax(), gauge.GetMin(), gauge.GetPosition()}), "100 0 0") << double(odd);
  }
  TBitmap bitmap;
  for (const auto& [max, min, position] :
       TCases<Extended, Extended, Extended>{{most, -most, most}, {0, 10, 5}, {5, 5, 5}, {10, 0, 90}, {10, 0, -90}}) {
    gauge.SetValues(max, min, position);
    gauge.PaintBitmap(bitmap);
    EXPECT_EQ((TFacts{gauge.GetPosition() == position, bitmap.GetWidth()}), "yes 20");
  }
}

TEST(Gauge, Texts) {
  for (const auto& [caption, percent, value, alignment, text] :
       TCases<bool, bool, bool, TAlignment, String>{{false, false, false, taLeftJustify, u""},
                                                    {true, false, false, taLeftJustify, u"Import"},
                                                    {false, true, false, taLeftJustify, u"1.250,00%"},
                                                    {false, false, true, taLeftJustify, u"2,5 von 0,2"},
                                                    {false, true, true, taLeftJustify, u"1.250,00%   2,5 von 0,2"},
                                                    {false, true, true, taRightJustify, u"1.250,00% 2,5 von 0,2"},
                                                    {true, false, true, taCenter, u"Import 2,5 von 0,2"},
                                                    {true, true, true, taCenter, u"Import  1.250,00%   2,5 von 0,2"}}) {
    TVxPaintObjectData gauge;
    gauge.SetCaption(u"Import"), gauge.SetCaptionShow(caption), gauge.SetPercentShow(percent);
    gauge.SetValueShow(value), gauge.SetCaptionAlignment(alignment), gauge.SetValues(-9.8L, -10, -7.5L);
    EXPECT_EQ(gauge.GetText(), text);
  }
  const auto backend = std::make_shared<TNotingBackend>();
  const auto before = SetDrawingBackend(backend);
  const auto drawn = [&](TAlignment alignment, int margin, const String& caption) {
    backend->Text = {};
    TVxPaintObjectData gauge;
    gauge.SetPaintRect({5, 5, 65, 25}), gauge.SetCaption(caption), gauge.SetCaptionShow(true);
    gauge.SetCaptionMargin(margin), gauge.SetCaptionAlignment(alignment);
    gauge.SetCaptionShadow(alignment == taCenter), gauge.SetCaptionShadowColor(clRed);
    gauge.PaintBitmap(*std::make_unique<TBitmap>());
    return backend->Text;
  };
  EXPECT_EQ(drawn(taLeftJustify, 4, u"Abc"), u"text 4,3 21x14 \"Abc\" clWindowText Tahoma 8 in 0,0 60x20\n");
  EXPECT_EQ(drawn(taRightJustify, 4, u"Abc"), u"text 35,3 21x14 \"Abc\" clWindowText Tahoma 8 in 0,0 60x20\n");
  EXPECT_EQ(drawn(taCenter, 4, u"Abc"),
            u"text 20,4 21x14 \"Abc\" clRed Tahoma 8 in 0,0 60x20\n"
            u"text 19,3 21x14 \"Abc\" clWindowText Tahoma 8 in 0,0 60x20\n");
  EXPECT_EQ(drawn(taLeftJustify, 1, u"Abcdefghijk"),
            u"text 1,3 54x14 \"Abcdefg..\" clWindowText Tahoma 8 in 0,0 60x20\n");
  EXPECT_EQ(drawn(taLeftJustify, 12, u"Abcd😀fgh"), u"text 12,3 36x14 \"Abcd..\" clWindowText Tahoma 8 in 0,0 60x20\n");
  EXPECT_EQ((TFacts{drawn(taLeftJustify, 28, u"Abc"), drawn(taLeftJustify, INT_MAX, u"Abc")}), " ");
  EXPECT_EQ(drawn(taRightJustify, INT_MIN, u"A"), u"text 134217728,3 7x14 \"A\" clWindowText Tahoma 8 in 0,0 60x20\n");
  SetDrawingBackend(before);
}

// The red of a row, from left to right.
std::vector<int> Reds(TVxPaintObject& gauge, int row) {
  TBitmap bitmap;
  gauge.PaintBitmap(bitmap);
  std::vector<int> reds;
  for (int x = 0; x < bitmap.GetWidth(); ++x) reds.push_back(TBitmap24(&bitmap).GetPixels(x, row).Red);
  return reds;
}

TEST(Gauge, LayersAndGlowAsPixels) {
  TClockAt clock(46000);
  TVxPaintObjectData gauge;
  gauge.SetPaintRect({0, 0, 12, 5});
  gauge.SetBgColorFirst(0x10), gauge.SetBgColorSecond(0x20), gauge.SetBgColorThird(0x40);
  gauge.SetGaugeColorFirst(0x60), gauge.SetGaugeColorSecond(0x80), gauge.SetGaugeColorThird(0xC0);
  gauge.SetGlowColorFirst(0xF0), gauge.SetGlowColorSecond(0xF0), gauge.SetGlowColorThird(0xF0);
  gauge.SetGlowState(ggsOff), gauge.SetPosition(50), gauge.SetGlowWidthPercent(34);
  for (const auto& [row, reds] : TCases<int, const char*>{{0, "96,96,96,96,96,96,16,16,16,16,16,16"},
                                                          {1, "112,112,112,112,112,112,24,24,24,24,24,24"},
                                                          {2, "128,128,128,128,128,128,32,32,32,32,32,32"},
                                                          {4, "192,192,192,192,192,192,64,64,64,64,64,64"}}) {
    EXPECT_EQ((TFacts{Reds(gauge, row)}), reds) << row;
  }
  clock.Advance(777);
  gauge.SetGlowState(ggsAuto);
  EXPECT_EQ((TFacts{gauge.GetGlowPeriod(), gauge.GetGlowTick()}), "160 777");
  const auto at = [&](int milliseconds) { return TFacts{(clock.Advance(milliseconds), Reds(gauge, 2))}; };
  EXPECT_EQ(at(0), "128,128,128,128,128,128,32,32,32,32,32,32");
  EXPECT_EQ(at(20), "212,143,128,128,128,128,32,32,32,32,32,32");
  EXPECT_EQ(at(59), "128,128,128,143,212,212,47,32,32,32,32,32");
  EXPECT_EQ(at(71), "128,128,128,128,128,128,32,32,32,32,32,47");
  EXPECT_EQ(at(160), "128,128,128,128,128,128,32,32,32,32,32,47");
  gauge.SetGlowBrightness(20), gauge.SetGlowColorActive(true), gauge.SetKITT(true), gauge.SetGlowTick(0x7FFFFFFF);
  clock.Advance(int64_t{0x7FFFFFFF} - GetTickCount());
  EXPECT_EQ((TFacts{gauge.GetGlowPeriod()}), "160");
  EXPECT_EQ(at(0), "147,235,235,147,128,128,32,32,32,32,32,32");
  EXPECT_EQ(at(80), "128,128,128,128,128,128,32,32,66,220,220,66") << "the tick count wraps";
  EXPECT_EQ(at(20), "128,128,128,128,128,128,66,220,220,66,32,32");
  gauge.SetPosition(100);
  EXPECT_EQ(at(0), "128,128,128,128,128,128,128,128,128,128,128,128");
  gauge.SetPaintRect({3, 3, 4, 4});
  EXPECT_EQ((TFacts{Reds(gauge, 0)}), "128") << "one row is the middle colour";
}

TEST(GaugeThread, RoundsPaintWhatIsDue) {
  TRounds rounds;
  const auto window = std::make_shared<TNotingWindow>();
  auto first = std::make_unique<TVxPaintObjectThreadListed>(&rounds);
  auto second = std::make_unique<TVxPaintObjectThreadListed>(&rounds);
  for (auto* gauge : {&*first, &*second}) gauge->SethParent(window), gauge->SetPaintRect({2, 3, 12, 7});
  second->SetPaintRect({2, 9, 12, 10});
  const auto round = [&] { return rounds.Round(), window->TakePlaces(); };
  EXPECT_EQ(rounds.Starts, 1);
  EXPECT_EQ(round(), "2,3 10x4;2,9 10x1;");
  EXPECT_EQ((TFacts{window->Asked.exchange(0), round(), window->Asked.load()}), "2  2") << "an idle one costs a test";
  first->SetPosition(50);
  EXPECT_EQ((TFacts{first->GetGlowChanged(), round(), first->GetGlowChanged(), round()}), "yes 2,3 10x4; no 2,3 10x4;")
      << "the glow runs";
  first->SetPosition(100);
  first->SetPosition(0);
  EXPECT_EQ((TFacts{first->GetGlowChanged(), round(), first->GetGlowChanged(), round()}), "yes 2,3 10x4; yes ")
      << "a change without a glow stays pending";
  window->Visible = false;
  second->SetCaption(u"a");
  EXPECT_EQ(round(), "");
  window->Visible = true;
  EXPECT_EQ(round(), "2,9 10x1;");
  second->SetPaintRect({2, 9, 2, 10});
  EXPECT_EQ(round(), "") << "an empty rectangle";
  TScriptedDialogs dialogs;
  Msg().SetLog({false, laDestroy, u"", u""});
  window->Fails = true;
  for (const bool show : {true, false, true}) first->SetPercentShow(show), first->SetPosition(0), round();
  (void)CheckSynchronize();
  EXPECT_EQ(dialogs.Shown.size(), 1u);
  uMsg::FreeBuffersForLeakPrevention();
  first.reset(), second.reset();
  EXPECT_FALSE(rounds.GetTerminated());
  round();
  EXPECT_TRUE(rounds.GetTerminated());
}

TEST(GaugeThread, TheLastObjectEndsTheThreadAndTheNextStartsAnother) {
  for (int i = 0; i < 3; ++i) {
    const auto window = std::make_shared<TNotingWindow>();
    {
      TVxPaintObjectThreadListed gauge;
      gauge.SetPaintRect({0, 0, 10, 10}), gauge.SethParent(window);
      EXPECT_TRUE(Comes([&] { return window->Painted > 0; }));
      EXPECT_EQ((TFacts{TVxThread::GetThreadCount(), gauge.GetListedCount()}), "1 1");
    }
    EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 0; }));
    EXPECT_EQ((TFacts{window.use_count(), TVxPaintObjectThreadListed::GetListedCount()}), "1 0");
  }
}

TEST(GaugeThread, EightThreadsSetWhileOthersComeAndGo) {
  const auto window = std::make_shared<TNotingWindow>();
  {
    TVxPaintObjectThreadListed shared[2];
    for (auto& gauge : shared) gauge.SetPaintRect({0, 0, 40, 8}), gauge.SethParent(window);
    std::atomic<bool> isDone{false};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
      threads.emplace_back([&, i] {
        // Long runs of one setter, so that no other one's lock orders them.
        for (int k = 1; !isDone; ++k) {
          auto& gauge = shared[i % 2];
          if (k % 512 == 0) std::this_thread::yield();
          const int run = (k / 512 + i) % 4;
          if (run == 0) gauge.SetCaption(k % 2 ? u"ein langer Text, der einen Block braucht" : u"b");
          if (run == 1) gauge.SetValues(100 + k % 50, -k % 50, i);
          if (run > 1) gauge.SetPosition(k % 101);
        }
      });
    }
    for (int k = 0; k < 100 || (window->Painted < 20 && k < 1000000); ++k) {
      auto one = std::make_unique<TVxPaintObjectThreadListed>(), other = std::make_unique<TVxPaintObjectThreadListed>();
      for (auto* gauge : {&*one, &*other}) {
        gauge->SetPaintRect({0, 0, 20, 4}), gauge->SethParent(window), gauge->SetPosition(k);
      }
    }
    isDone = true;
    for (auto& thread : threads) thread.join();
    shared[0].SetPosition(0.5);
    const int painted = window->Painted;
    EXPECT_TRUE(Comes([&] { return window->Painted > painted; }));
  }
  EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 0; }));
  EXPECT_EQ(window.use_count(), 1);
}

TEST(Gauge, GroupsMoveTogether) {
  auto gauges = std::make_unique<TVxGauge[]>(5);
  const auto values = [&] {
    std::vector<Extended> all;
    for (int i = 0; i < 5; ++i)
      all.insert(all.end(), {gauges[i].GetMax(), gauges[i].GetMin(), gauges[i].GetPosition()});
    return TFacts{all};
  };
  gauges[0].SetValues(10, -5, 4);
  for (int i : {3, 0, 2, 1}) gauges[i].SetGroupIndex(i == 3 ? 7 : 2);
  gauges[4].SetGroupIndex(-9);
  EXPECT_EQ(gauges[4].GetGroupIndex(), -1);
  EXPECT_EQ(values(), "10,-5,4,10,-5,4,10,-5,4,100,0,0,100,0,0");
  gauges[1].SetPosition(9), gauges[2].SetMax(8), gauges[4].SetPosition(1);
  EXPECT_EQ(values(), "8,-5,9,8,-5,9,8,-5,9,100,0,0,100,0,1");
  gauges[3].SetGroupIndex(2), gauges[1].SetGroupIndex(0), gauges[0].SetMin(0);
  EXPECT_EQ(values(), "8,0,9,8,-5,9,8,0,9,8,0,9,100,0,1");
  TGaugeGroupList& list = TGaugeGroupList::Instance();
  list.SortByGroupIndex(-7, INT_MAX);
  EXPECT_EQ((TFacts{list.GetCount(), list.FindGroup(0), list.FindGroup(2), list.FindGroup(3)}), "4 0 1 4");
  gauges.reset();
}

struct TCounter {
  void Count(TObject*) { ++Times; }
  int Times = 0;
};

TEST(GaugeThread, TheGaugeOfAWindow) {
  const auto window = std::make_shared<TNotingWindow>();
  std::vector<int> taskbar;
  const auto before = SetTaskbarSink([&](const TTaskbarProgress& p) { taskbar.push_back(p.Shown ? p.Percent : -1); });
  {
    TVxGauge gauge(window);
    gauge.SetPaintRect({10, 20, 110, 30}), gauge.SetShowInTaskbar(true);
    TCounter counter;
    gauge.SetOnInvalidate(TNotifyEvent::Of<&TCounter::Count>(counter));
    for (const Extended position : {0.5L, 1.0L, 1.5L, 50.0L, 500.0L}) gauge.SetPosition(position);
    EXPECT_EQ(std::exchange(counter.Times, 0), 2);
    EXPECT_EQ((TFacts{taskbar}), "0,1,50");
    gauge.GlowTimer(), gauge.GetPaintObject().SetGlowState(ggsOff), gauge.GlowTimer();
    EXPECT_EQ(counter.Times, 2);
    TRecordingCanvas canvas;
    gauge.Paint(), gauge.SetCanvas(&canvas), gauge.Paint();
    gauge.SetPaintRect({}), gauge.SetBounds({5, 5, 65, 25}), gauge.Paint();
    EXPECT_EQ(canvas.GetText(), u"picture 10,20 100x10\npicture 0,0 60x20\n");
    EXPECT_FALSE(gauge.GetPaintObject().GetBasicsChanged());
    gauge.GetPaintObject().SetVisible(false);
    canvas.Clear(), gauge.Paint();
    EXPECT_EQ(canvas.GetText(), u"");
    gauge.GetPaintObject().SetVisible(true), gauge.SetThreadPainted(true);
    EXPECT_TRUE(Comes([&] { return window->Painted > 0; }));
    const int painted = window->Painted;
    gauge.SetPosition(70);
    EXPECT_TRUE(Comes([&] { return window->Painted > painted; }));
  }
  EXPECT_EQ((TFacts{taskbar}), "0,1,50,70,-1");
  SetTaskbarSink(before);
  EXPECT_TRUE(Comes([] { return TVxThread::GetThreadCount() == 0; }));
}

}  // namespace
