// What every editor of one line does, with a screen or without one. The line is typed into by Enter, Exit, Type, Down
// and Paste, as a TPlainEdit is.
#pragma once

#include "platform/TCustomEdit.h"
#include "tests/support/Test.h"

namespace vx::test {

// Hears what an editor tells; deals with the key Delete and the character x.
struct TEditEar : TEditEvents {
  void KeyDown(uint16_t& Key, TShiftState) override {
    if (Key == vkDelete) Key = 0;
  }
  void KeyPress(char16_t& Key) override {
    if (Key == u'x') Key = 0;
  }
  void Change() override { Heard += 'c'; }
  void DoEnter() override { Heard += '<'; }
  void DoExit() override { Heard += '>'; }
  std::string Heard;
};

// The text with | at the cursor or [ ] around the selection.
inline String Shown(const TCustomEdit& Line) {
  const String text = Line.GetText();
  const int start = Line.GetSelStart(), length = Line.GetSelLength();
  return Concat({text.Slice(0, start), length > 0 ? u"[" : u"|", text.Slice(start, length), length > 0 ? u"]" : u"",
                 text.Slice(start + length)});
}

template <typename TLine>
void ExpectEditContract(TLine& Line) {
  TEditEar ear;
  Line.Exit();
  Line.SetEvents(&ear);
  const auto expect = [&](const String& shown, const char* heard) {
    EXPECT_EQ(Shown(Line), shown);
    EXPECT_EQ(std::exchange(ear.Heard, {}), heard) << shown;
  };
  Line.SetText(u"Pflege");
  expect(u"|Pflege", "c");
  Line.SetText(u"Pflege");
  expect(u"|Pflege", "");
  Line.Enter();
  expect(u"[Pflege]", "<");
  Line.Type(u"abxcd");
  expect(u"abcd|", "cccc");
  Line.Down(vkLeft);
  Line.Down(vkUp, {ssShift});
  expect(u"ab[c]d", "");
  Line.Type(u"\b\b");
  expect(u"a|d", "cc");
  Line.Down(vkDelete);
  expect(u"a|d", "");
  Line.Down(vkEnd);
  Line.Down(vkHome, {ssShift});
  Line.SetSelText(u"");
  expect(u"|", "c");
  Line.SetSelText(u"");
  expect(u"|", "");

  Line.SetMaxLength(4);
  Line.Paste(u"123456");
  expect(u"1234|", "c");
  Line.Type(u"5");
  Line.SetSelStart(1);
  Line.SetSelLength(99);
  expect(u"1[234]", "");
  Line.Paste(u"567890");
  expect(u"1567|", "c");
  Line.SetSelStart(-1);
  Line.SetSelText(u"abc");
  expect(u"abc|1567", "c");
  Line.SetText(u"1234567");
  Line.SetSelStart(99);
  Line.SetSelLength(-1);
  expect(u"1234567|", "c");

  Line.SetReadOnly(true);
  Line.Type(u"8\b");
  Line.Paste(u"9");
  expect(u"1234567|", "");
  Line.SetText(std::u16string_view(u"a\0\xD83D", 3));
  EXPECT_EQ(Line.GetText().size(), 3);
  Line.Exit();
  EXPECT_EQ(ear.Heard, "c>");
  Line.SetAlignment(taCenter);
  EXPECT_EQ((TFacts{Line.GetAlignment(), Line.GetMaxLength(), Line.GetReadOnly()}), "2 4 yes");
  Line.SetEvents(nullptr);
}

}  // namespace vx::test
