// What a cell shows, in words, by its size and painted: any type, value, format and look.
#include "fuzz/support/Values.h"
#include "objects/uVxClasses.h"
#include "platform/Dialogs.h"
#include "platform/TRecordingCanvas.h"
#include "rendering/uDecoration.h"

namespace vx::fuzz {
namespace {

class TSizes : public TDecorator {
 public:
  TObject* GetComponent() const override { return nullptr; }
  void SetComponent(TObject*) override {}
  void Trim() override {}
};

void CheckText(const String& Value, TVxFieldType Type, const String& Format) {
  bool isFraction;
  const String shown = TDecorator::FormatText(Value, Type, Format, isFraction);
  Check(!isFraction || (Type == vftFraction && shown.size() >= 2), "only a fraction is one");
  if (Type == vftBoolean && !Format.empty()) {
    TVxStringList words;
    words.SetTextStr(Format);
    const bool isTrue = Value == u"1";
    const String word = words.GetCount() >= 2 ? words.Get(isTrue) : String(isTrue ? u"ja" : u"nein");
    Check(shown == word, "the words of a boolean");
  }
}

// By the lists that read these forms.
void CheckWords(const String& Value, const TDecoration& Look) {
  TVxStringList lines;
  if (Look.GetFieldType() == vftCommatext) {
    lines.SetCommatext(Value);
  } else if (Look.GetFieldType() == vftTinyHTML) {
    lines.SetTextStr(Value);
  } else {
    TDecorator::GetText(Value, Look, false);
    return;
  }
  Check(TDecorator::GetText(Value, Look, false) == lines.GetTextStr(), "the lines of a cell");
  const String first = lines.GetCount() > 0 ? lines.Get(0) : String();
  Check(TDecorator::GetText(Value, Look, true) == first, "the first line of a cell");
}

}  // namespace

FUZZ(Input) {
  TValues values(Input);
  const auto type = static_cast<TVxFieldType>(values.Byte() % 20);
  const unsigned flags = values.Byte();
  TVxImageList images(values.Byte() + 1, values.Byte() + 1);
  images.Add(TBitmap(pf24bit, images.GetWidth() * 2, 1));
  const String format = Input.Text(), value = Input.Text();
  CheckText(value, type, format);

  TScriptedDialogs dialogs;
  TDecorationList list;
  list.SetCommatext(Input.Text());
  list.SetColCount(3);
  list.SetRowCount(3);
  list.SetDevice(static_cast<TDecorationDevice>(flags % 3));
  if ((flags & 4) != 0) list.SetImageList(&images);
  TDecoration* look = list.GetCell(1, 1, true);
  look->SetFieldType(type);
  look->SetFormatString(format);
  if ((flags & 8) != 0) look->SetImageIndex(1);
  CheckWords(value, *look);

  TRecordingCanvas canvas({.Kind = (flags & 16) != 0 ? dkMetafile : dkScreen});
  const TFont font = canvas.GetFont();
  TBitmap bitmap(pf1bit, values.Byte(), values.Byte());
  const auto cell = list.VirtualListForCell(1, 1);
  const TPoint size = TSizes().Calculate(canvas, value, (flags & 32) != 0 ? &bitmap : nullptr, *cell);
  Check(canvas.GetFont() == font && canvas.GetText().empty(), "measuring draws nothing and keeps the font");
  Check(TSizes().Calculate(canvas, value, (flags & 32) != 0 ? &bitmap : nullptr, *cell) == size, "measured alike");

  TRect rect{0, 0, size.X, size.Y};
  if ((flags & 64) != 0) rect = {values.Int(), values.Int(), values.Int(), values.Int()};
  TDecorationDrawStates state;
  const unsigned bits = values.Byte();
  for (unsigned i = ddsSelected; i <= ddsFocused; ++i) {
    if ((bits >> i & 1) != 0) state.Include(static_cast<TDecorationDrawState>(i));
  }
  const TBrush brush = canvas.GetBrush();
  TSizes().DrawCell(canvas, rect, value, (flags & 32) != 0 ? &bitmap : nullptr, *cell, state);
  Check(canvas.GetFont() == font && canvas.GetBrush() == brush && canvas.GetPen() == TPen(),
        "painting keeps the state");
}

}  // namespace vx::fuzz
