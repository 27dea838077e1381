#include "controls/uVxFilter.h"

#include "core/uVxFunctions/Matching.h"
#include "platform/TRecordingCanvas.h"
#include "tests/support/Test.h"

namespace {

// A view with a bar that has an item for each column.
struct TBarOfView {
  explicit TBarOfView(std::initializer_list<const char16_t*> Rows) {
    for (const char16_t* row : Rows) View.AddRow(row);
    Bind();
  }
  void Bind() {
    while (Bar.GetItems().GetCount() < View.FieldCount()) Bar.GetItems().Add();
    Bar.SetFilter(&View);
  }
  TVxFilterItem& Item(int Index) { return Bar.GetItems().Get(Index); }
  // The rows on show after a filter, with "/" between.
  String Shown() {
    Bar.Filter(&View);
    String text;
    for (int i = 0; i < View.GetCount(); ++i) text += (i > 0 ? u"/" : u"") + View.GetLines(i)->GetCommatext();
    return text;
  }
  TCsvView View;
  TVxFilter Bar;
};

void DrawValue(TCanvas& Canvas, int, int Row, TRect& Rect, TDecoration&) {
  Canvas.TextOut(Rect.Left, Rect.Top, u"row " + IntToStr(Row));
}

// The rules of the text test, one after the other.
bool PlainMatch(const String& Text, String Value, bool Strict) {
  if (!Strict) {
    const bool first = Value.view().starts_with(u'!');
    if (first) Value = Value.Slice(1);
    const bool last = Value.view().ends_with(u'!');
    if (last) Value = Value.Slice(0, Value.size() - 1);
    if (!first || !last) Value = (first ? u"" : u"*") + Value + (last ? u"" : u"*");
  }
  return StrMatch(Text, Value, false);
}
bool PlainCheck(String Cell, const String& Value, bool Multi, bool Strict, bool Commatext) {
  if (Value.empty()) return true;
  if (Commatext) {
    TVxStringList lines;
    lines.SetCommatext(Cell);
    Cell = lines.GetText();
  }
  if (Value[0] == u'=') return TRegEx(Value.Slice(1), {roIgnoreCase}).IsMatch(Cell);
  if (!Multi) return PlainMatch(Cell, Value, Strict);
  for (const String& value : ReadCommatext(Value)) {
    if (PlainMatch(Cell, value, Strict)) return true;
  }
  return false;
}

TEST(uVxFilter, FiltersAsEachRowByTheRules) {
  std::mt19937 random(17);
  auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  auto text = [&](std::u16string_view units, int longest) {
    String result;
    for (int i = below(longest + 1); i > 0; --i)
      result += units[static_cast<size_t>(below(static_cast<int>(units.size())))];
    return result;
  };
  int shown = 0;
  for (int round = 0; round < 600; ++round) {
    TBarOfView set({});
    const int columns = 1 + below(4), rows = below(30);
    for (int row = 0; row < rows; ++row) {
      const int index = set.View.AddEmpty(1 + below(columns));
      for (int col = 0; col < set.View.GetLines(index)->GetCount(); ++col)
        set.View.SetCell(col, index, text(u"abAäÄǅǆß,\"*!= ", 5));
    }
    for (int col = 0; col < columns; ++col) set.Bar.GetItems().Add();
    const int top = below(2), bottom = below(2);
    set.View.GetDecorations().SetFixed(0, top, 0, bottom);
    if (below(2) == 0) set.View.GetDecorations().CreateRange(rtColumn, 0, 0, 0, 0)->SetFieldType(vftCommatext);
    if (rows > 0 && set.View.FieldCount() == columns) set.Bar.SetFilter(&set.View);
    for (int col = 0; col < columns; ++col) {
      TVxFilterItem& item = set.Item(col);
      item.SetFilterType(below(3) == 0 ? ftAuto : ftText);
      item.SetMultiSelect(static_cast<TFilterMultiSelect>(below(3))), item.SetStrictValues(below(4) == 0);
      String value = text(u"abAÄǆ,\"*!", 4);
      for (int more = below(4) == 0 ? 9 : 0; more > 0; --more) value += u"," + text(u"abAÄ*!", 3);
      item.SetValue(below(6) == 0 ? u"=" + TRegEx::Escape(value) + u".?" : value);
    }
    std::vector<const TVxStringList*> expected;
    const std::vector<TObject*> all(set.View.Items().begin(), set.View.Items().end());
    for (int row = 0; row < rows; ++row) {
      const auto* line = static_cast<const TVxStringList*>(all[static_cast<size_t>(row)]);
      bool ok = true;
      for (int col = 0; row >= top && row < rows - bottom && col < line->GetCount(); ++col) {
        const auto* core = dynamic_cast<const TVxFilterText*>(&set.Item(col).GetFilterCore());
        ASSERT_NE(core, nullptr);
        ok = ok && PlainCheck(line->Get(col), set.Item(col).GetValue(), core->GetMultiSelect(),
                              set.Item(col).GetStrictValues(), core->GetIsCommatext());
      }
      if (ok) expected.push_back(line);
    }
    set.Bar.Filter(&set.View);
    const std::vector<TObject*> rest(set.View.Items().begin(), set.View.Items().end());
    ASSERT_EQ(std::vector<const TObject*>(expected.begin(), expected.end()),
              std::vector<const TObject*>(rest.begin(), rest.end()))
        << round;
    shown += set.View.GetCount();
    set.Bar.Reset();
    set.Bar.Filter(&set.View);
    ASSERT_EQ(set.View.GetCount(), rows);
  }
  EXPECT_GT(shown, 500);  // the values do find something
}

TEST(uVxFilter, FindsEachLetterInEachCase) {
  TVxFilterItem item;
  item.SetMultiSelect(fmsNo);
  for (int unit = u'A'; unit < 0x10000; ++unit) {
    const auto letter = static_cast<char16_t>(unit);
    for (char16_t form : {UpperCase(letter), LowerCase(letter)}) {
      item.SetValue(String(1, form));
      const String cell = u"xxxxxxxxxxx" + String(1, letter);
      ASSERT_EQ(item.Check(cell, nullptr), StrMatch(cell, u"*" + String(1, form) + u"*", false)) << unit;
    }
  }
}

TEST(uVxFilter, TextsOfTheHeader) {
  const TCases<String, bool, String> cases{{u"meier", false, u"Meier/Meierhof/Obermeier/Obermeierhof"},
                                           {u"!meier", false, u"Meier/Meierhof"},
                                           {u"meier!", false, u"Meier/Obermeier"},
                                           {u"!meier!", false, u"Meier"},
                                           {u"!!", false, u"\"\""},
                                           {u"!", false, u"Meier/Meierhof/Obermeier/Obermeierhof/\"\"/Stammer"},
                                           {u"m*r", false, u"Meier/Meierhof/Obermeier/Obermeierhof/Stammer"},
                                           {u"!m*r!", false, u"Meier"},
                                           {u"meier", true, u"Meier"},
                                           {u"*meier", true, u"Meier/Obermeier"},
                                           {u"!meier", true, u""},
                                           {u"hof st", false, u"Meierhof/Obermeierhof/Stammer"},
                                           {u"=^(ober|m)[^h]+$", false, u"Meier/Obermeier"}};
  for (const auto& [value, strict, shown] : cases) {
    TBarOfView set({u"Meier", u"Meierhof", u"Obermeier", u"Obermeierhof", u"\"\"", u"Stammer"});
    set.Item(0).SetFilterType(ftText);
    set.Item(0).SetStrictValues(strict);
    set.Item(0).SetValue(value);
    EXPECT_EQ(set.Shown(), shown) << value;
  }
}

TEST(uVxFilter, ExpressionsOfValues) {
  const String any = u"[\\w\\W]*";
  const TCases<String, bool, bool, String> cases{
      {u"a.b", false, false, any + u"a\\.b" + any},
      {u"!a", false, false, u"a" + any},
      {u"a!", false, false, any + u"a"},
      {u" !a! ", false, false, u"a"},
      {u"a*b", false, false, any + u"a\\*b" + any},
      {u"a,b", false, false, any + u"a,b" + any},
      {u"a,,\" \",!b c", true, false, any + u"a" + any + u"|b" + any + u"|" + any + u"c" + any},
      {u"a", false, true, u"a"},
      {u"*a!", false, true, any + u"a!"},
      {u"a*,*b*", true, true, u"a" + any + u"|" + any + u"b" + any},
      {u"", false, false, any},
      {u"!!", false, false, any},
      {u" , ", true, true, any},
      {u"=a|(b", true, false, u"a|(b"}};
  for (const auto& [value, multi, strict, expression] : cases) {
    TVxFilterItem item;
    item.SetMultiSelect(multi ? fmsYes : fmsNo), item.SetStrictValues(strict);
    EXPECT_EQ(item.BuildRegEx(value), expression) << value;
  }
  TVxFilterItem item;
  item.SetValue(u"=M\\w+r$");
  EXPECT_EQ((TFacts{item.Check(u"x MEIER", nullptr), item.GetRegEx().GetPattern(),
                    item.GetRegEx().GetOptions() == TRegExOptions{roIgnoreCase, roCompiled}}),
            "yes M\\w+r$ yes");
  EXPECT_THROW(item.SetValue(u"=("), ERegularExpressionError);
  EXPECT_EQ((TFacts{item.GetValue(), item.Check(u"Meier", nullptr)}), "=M\\w+r$ yes");
}

TEST(uVxFilter, KindsOfItems) {
  TBarOfView set({});
  for (int row = 0; row < 9; ++row) {
    const String number = String::FromUtf8(std::to_string(row % 8)), few = String::FromUtf8(std::to_string(row % 7));
    set.View.AddRow({u"x", number, few, row % 2 == 0 ? u"Ja" : u"JA", number, number, number, number, number, number,
                     number, u"x"});
  }
  TDecorationList& look = set.View.GetDecorations();
  const TVxFieldType types[] = {vftBoolean, vftStatus, vftCommatext, vftTinyHTML, vftImage, vftToggle, vftGrafic};
  for (int i = 0; i < 7; ++i) look.CreateRange(rtColumn, 4 + i, 0, 4 + i, 0)->SetFieldType(types[i]);
  look.SetFixed(1, 1, 1, 0);
  set.Bind();
  auto kinds = [&] {
    String text;
    for (int i = 0; i < set.Bar.GetItems().GetCount(); ++i)
      text += set.Item(i).GetFilterCore().ClassName().Slice(9) + u" ";
    return text;
  };
  EXPECT_EQ(kinds(), u"None TextBox CBox CBox CBox CBox TextBox TextBox ImgList ImgList None None ");
  EXPECT_EQ((TFacts{set.Item(0).GetIsFixedCol(), set.Item(1).GetIsFixedCol(), set.Item(11).GetIsFixedCol(),
                    set.Item(2).GetName()}),
            "yes no yes FilterItem3");
  const TVxFilterCore* core = &set.Item(2).GetFilterCore();
  set.Item(2).SetItem();
  EXPECT_EQ(core, &set.Item(2).GetFilterCore()) << "the same class stays";
  for (int i = 0; i < 12; ++i) set.Item(i).SetMultiSelect(fmsYes);
  set.Item(8).SetOnDrawCol(TCallbackPostDraw::Of<&DrawValue>());
  set.Item(0).SetFilterType(ftText);
  set.Item(10).SetFilterType(ftText);
  set.Item(3).SetFilterType(ftNone);
  set.Item(4).SetFilterType(ftData);
  EXPECT_EQ(kinds(), u"None TextBox CheckCBox None Data CheckCBox TextBox TextBox ImgDraw ImgList TextBox None ");
  EXPECT_EQ((TFacts{static_cast<TVxFilterText&>(set.Item(6).GetFilterCore()).GetIsCommatext(),
                    static_cast<TVxFilterText&>(set.Item(7).GetFilterCore()).GetIsCommatext()}),
            "yes no");
  // Row 0 is fixed: without it the column has seven values; hidden rows count.
  set.View.Hide(4);
  look.SetFixed(0, 2, 0, 0);
  set.Item(1).SetMultiSelect(fmsAuto);
  EXPECT_EQ(set.Item(1).GetFilterCore().ClassName(), u"TVxFilterCBox") << "1..7, 0";
}

TEST(uVxFilter, Images) {
  // Of several values, strict; found where it is drawn, and of a list.
  for (const auto& [cell, value, multi, strict, facts] :
       TCases<String, String, bool, bool, const char*>{{u"3", u"", false, false, "yes yes"},
                                                       {u"3", u"", true, false, "yes yes"},
                                                       {u"3", u"3", false, false, "yes yes"},
                                                       {u"13", u"3", false, false, "no no"},
                                                       {u"3", u"1,3", true, false, "yes yes"},
                                                       {u"3", u"1,3", false, false, "no no"},
                                                       {u"2,3", u"3", false, false, "yes yes"},
                                                       {u"2,3", u"3", false, true, "no yes"},
                                                       {u"2,3", u"1,3", true, false, "no yes"},
                                                       {u"2,3", u"3", true, false, "yes yes"},
                                                       {u"2,3", u"2,3", false, true, "yes no"},
                                                       {u"2,3", u"\"2,3\"", true, false, "yes no"},
                                                       {u"", u"3", false, false, "no no"}}) {
    TVxFilterItem items[2];
    items[0].SetOnDrawCol(TCallbackPostDraw::Of<&DrawValue>());
    for (TVxFilterItem& item : items) {
      item.SetFilterType(ftImage), item.SetMultiSelect(multi ? fmsYes : fmsNo), item.SetStrictValues(strict);
      item.SetValue(value);
    }
    EXPECT_EQ((TFacts{items[0].Check(cell, nullptr), items[1].Check(cell, nullptr)}), facts) << cell << ' ' << value;
  }
}

struct TListener : TObject {
  void Hear(TObject* Sender) { Text += Sender == Bar ? u"c" : u"?"; }
  void Emitted(TObject*) { Text += u"s"; }
  TVxFilter* Bar = nullptr;
  String Text;
};

TEST(uVxFilter, TellsChangesOfValues) {
  TBarOfView set({u"a,b", u"c,d"});
  TListener listener;
  listener.Bar = &set.Bar;
  set.Bar.SetOnChanged(TNotifyEvent::Of<&TListener::Hear>(listener));
  set.Bar.GetSigChanged().Add(TNotifyEvent::Of<&TListener::Emitted>(listener));
  set.Item(0).SetValue(u"a");
  set.Item(0).SetValue(u"a");
  const String many[] = {u"x y", u"z"};
  set.Item(1).SetValues(many);
  EXPECT_EQ((TFacts{set.Item(1).GetValue(), listener.Text}), "\"x y\",z cscs");
  set.Bar.Reset();
  EXPECT_EQ((TFacts{set.Item(1).GetValues().size(), listener.Text}), "0 cscscscs");
  TObject marks[2];
  set.View.SetObject(1, 1, &marks[1]);
  set.Item(1).SetFilterType(ftData);
  EXPECT_EQ(set.Shown(), u"a,b/c,d");
  set.Item(1).SetData(&marks[1]);
  EXPECT_EQ(set.Shown(), u"c,d");
  set.Item(1).SetData(&marks[0]);
  EXPECT_EQ(set.Shown(), u"");
  set.Item(1).SetFilterType(ftNone);
  EXPECT_EQ(set.Shown(), u"a,b/c,d");
  set.View.SetViewMode(false);
  set.View.DeleteCol(1);
  set.Bar.SetFilter(&set.View);
  set.Bar.Filter(nullptr);
  EXPECT_EQ(set.Bar.GetItems().GetCount(), 1);
}

TEST(uVxFilter, TellsOnceWhatIsTooMuch) {
  TScriptedDialogs dialogs;
  TBarOfView set({u"x", u"y"});
  set.View.SetCell(0, 0, String(1'000'000, u'a'));
  set.Item(0).SetFilterType(ftText);
  set.Item(0).SetValue(u"=(a+)+[bd]");
  EXPECT_EQ((TFacts{set.Shown().size(), set.Shown().size()}), "0 0");
  ASSERT_EQ(dialogs.Shown.size(), 1u);
  EXPECT_EQ(dialogs.Shown[0].Text,
            u"Der Ausdruck \"=(a+)+[bd]\" ist für manche Zellen zu aufwendig. Diese Zellen gelten als nicht passend.");
  // Long cells and many values cost no more than their length.
  String values = u"q0";
  for (int i = 0; i < 10'000; ++i) values += u"," + String(20, u'a') + String::FromUtf8(std::to_string(i));
  set.Item(0).SetMultiSelect(fmsYes);
  for (const String& value : {String(30'000, u'a') + u"b", values, u"*a*a*a*b*a*c" + String(40, u'a')}) {
    set.Item(0).SetValue(value);
    EXPECT_EQ((TFacts{set.Shown().size(), set.Item(0).GetFilterCore().ClassName()}), "0 TVxFilterTextBox");
  }
  set.Bar.SetFilter(&set.View);
  EXPECT_EQ(set.Bar.GetItems().GetCount(), 1) << "hidden rows have columns, too";
}

// --- the window and the bar ---

TEST(uVxFilter, ChoosesByClicks) {
  TBarOfView set({u"Bonn,1", u"Bonn-Beuel,\"2,3\"", u"Köln,2", u"\"\",1"});
  set.View.GetDecorations().CreateRange(rtColumn, 1, 0, 1, 0)->SetFieldType(vftImage);
  set.Bind();
  auto click = [&](int x, int y) { set.Item(x / 51).GetFilterForm().MouseDown(mbLeft, {}, x % 51, y); };
  auto lines = [&](int item) {
    const TVxFilterForm& form = set.Item(item).GetFilterForm();
    String text = String::FromUtf8(std::to_string(form.GetKind()));
    for (int i = 0; i < form.GetLineCount(); ++i)
      text += (i == form.GetItemIndex() ? u">" : form.GetLine(i).Checked ? u"x" : u"|") + form.GetLine(i).Caption;
    return text;
  };
  set.Bar.MouseDown(mbLeft, {}, 5, 5);
  TVxFilterForm& form = set.Item(0).GetFilterForm();
  EXPECT_EQ((TFacts{form.GetVisible(), form.GetCaption(), form.GetButton().Hint, lines(0)}),
            "yes Filterwert mehrere auswählen 1>ohne Wert|Bonn|Bonn-Beuel|Köln");
  click(5, 3 * 18 + 5);  // behind head and text the second line
  EXPECT_EQ((TFacts{set.Shown(), form.GetVisible(), lines(0)}), "Bonn,1 no 1|ohne Wert>Bonn|Bonn-Beuel|Köln");
  for (char16_t key : std::u16string_view(u"\b\bnn")) form.KeyPress(key);  // typed, it need only be in the cell
  EXPECT_EQ(set.Shown(), u"Bonn,1/Bonn-Beuel,\"2,3\"");
  form.ClickButton();
  EXPECT_EQ((TFacts{set.Item(0).GetMultiSelect() == fmsYes, lines(0)}), "yes 3|(leer)xBonn|Bonn-Beuel|Köln");
  form.ClickLine(0);
  EXPECT_EQ((TFacts{set.Item(0).GetValue(), set.Shown()}), ",Bonn Bonn,1/,1");
  form.KeyPress(27);
  set.Bar.MouseDown(mbLeft, {}, 60, 5);
  TVxFilterForm& images = set.Item(1).GetFilterForm();
  EXPECT_EQ(lines(1), u"2>ohne Wert|1|2|3");
  images.ClickLine(2);
  set.Item(0).SetValue({});
  EXPECT_EQ(set.Shown(), u"Bonn-Beuel,\"2,3\"/Köln,2");
  images.ClickButton();
  images.ClickLine(0);
  EXPECT_EQ((TFacts{lines(1), set.Item(1).GetValue(), set.View.GetCount()}), "3x1x2|3 1,2 2");
  // An expression is taken by Enter alone; a wrong one leaves the window open.
  set.Item(0).SetFilterType(ftText);
  set.Item(0).Click();
  for (char16_t key : std::u16string_view(u"=(")) form.KeyPress(key);
  EXPECT_THROW(form.KeyPress(13), ERegularExpressionError);
  EXPECT_EQ((TFacts{form.GetVisible(), set.Item(0).GetValue(), form.GetText()}), "yes  =(");
  form.KeyPress(u')');
  form.KeyPress(13);
  EXPECT_EQ((TFacts{form.GetVisible(), set.Item(0).GetValue()}), "no =()");
  // The menu.
  const TShowPopup before = SetShowPopup([](TPopupMenu& menu, int, int) { return &menu.GetItems(0); });
  set.Bar.MouseDown(mbRight, {}, 300, 5);
  SetShowPopup(before);
  EXPECT_EQ((TFacts{set.Bar.GetFilterPopup().GetItems(0).GetCaption(), set.Bar.GetFilterPopup().GetItems(0).GetHint(),
                    set.Item(0).GetValue() + set.Item(1).GetValue()}),
            "Filter zurücksetzen löscht alle gesetzten Filterwerte ");
}

TEST(uVxFilter, Paints) {
  TBarOfView set({u"Bonn,1", u"Köln,2"});
  set.Item(0).SetValue(u"Bonn");
  set.Item(1).SetFilterType(ftNone);
  set.Bar.SetBorderStyle(bsSingle);
  TRecordingCanvas canvas;
  set.Bar.SetCanvas(&canvas);
  set.Bar.Paint();
  EXPECT_EQ(canvas.GetText(),
            u"fill 0,0 400x18 clBtnFace\n"
            "fill 0,0 50x18 clWindow in 0,0 50x18\n"
            "text 2,2 28x14 \"Bonn\" clWindowText Tahoma 8 in 0,0 36x18\n"
            "line 39,7 to 46,7 clWindowText in 0,0 50x18\n"
            "line 40,8 to 45,8 clWindowText in 0,0 50x18\n"
            "line 41,9 to 44,9 clWindowText in 0,0 50x18\n"
            "line 42,10 to 43,10 clWindowText in 0,0 50x18\n"
            "fill 50,0 1x18 clBtnShadow\n"
            "fill 101,0 1x18 clBtnShadow\n"
            "frame 0,0 400x18 clBtnShadow\n");
  set.Bar.SetLeftCol(1);
  set.Bar.Realign();
  EXPECT_EQ((TFacts{set.Item(0).GetLeft(), set.Item(1).GetLeft(), set.Bar.ItemAt(10, 5) == &set.Item(1),
                    set.Bar.ItemAt(50, 5) == nullptr}),
            "-51 0 yes yes");
  set.Item(0).SetMultiSelect(fmsYes);
  set.Item(0).Click();
  TVxFilterForm& form = set.Item(0).GetFilterForm();
  canvas.Clear();
  form.SetCanvas(&canvas);
  form.Paint();
  EXPECT_EQ(canvas.GetText(),
            u"fill 0,0 160x55 clWindow\n"
            "fill 0,0 160x18 clBtnFace\n"
            "text 3,2 56x14 \"Filterwert\" clWindowText Tahoma 8 in 1,0 141x18\n"
            "fill 142,1 17x17 clHighlight\n"
            "fill 143,2 11x11 clWindow\n"
            "frame 143,2 11x11 clBtnShadow\n"
            "fill 146,5 11x11 clWindow\n"
            "frame 146,5 11x11 clBtnShadow\n"
            "line 148,10 to 151,13 clWindowText\n"
            "line 151,13 to 155,7 clWindowText\n"
            "fill 3,20 13x13 clWindow\n"
            "frame 3,20 13x13 clBtnShadow\n"
            "line 6,26 to 9,29 clWindowText 2\n"
            "line 9,29 to 14,23 clWindowText 2\n"
            "text 21,20 28x14 \"Bonn\" clWindowText Tahoma 8 in 19,18 140x18\n"
            "fill 3,38 13x13 clWindow\n"
            "frame 3,38 13x13 clBtnShadow\n"
            "text 21,38 25x14 \"Köln\" clWindowText Tahoma 8 in 19,36 140x18\n"
            "frame 0,0 160x55 clBtnShadow\n");
  // Images are painted by the program, with a row that has them.
  set.Item(1).SetFilterType(ftImage);
  set.Item(1).SetOnDrawCol(TCallbackPostDraw::Of<&DrawValue>());
  set.Item(1).SetValue(u"2");
  canvas.Clear();
  set.Item(1).GetFilterCore().Paint(canvas, {0, 0, 50, 18});
  EXPECT_EQ(canvas.GetText(),
            u"fill 0,0 50x18 clWindow\n"
            "fill 0,0 33x14 clWindow in 0,0 18x18\n"
            "text 0,0 33x14 \"row 1\" clWindowText Tahoma 8 in 0,0 18x18\n");
}

}  // namespace
