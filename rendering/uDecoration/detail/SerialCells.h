// What the serial forms of decorations and of their lists share.
#pragma once

#include "core/uVxFunctionsSerialize/Explode.h"
#include "platform/Dialogs.h"
#include "platform/Graphics.h"
#include "platform/Numbers.h"
#include "platform/TextForms.h"

namespace vx::detail {

// Writes the cells of a record one after the other.
class TCellWriter {
 public:
  explicit TCellWriter(size_t Count) { FCells.reserve(Count); }
  void Text(String Value) { FCells.push_back(std::move(Value)); }
  void Number(int Value) { Text(IntToStr(Value)); }
  // Empty for Unset.
  void Color(TColor Value, TColor Unset) { Text(Value == Unset ? String() : ColorToString(Value)); }
  // Empty for a negative one.
  void Limit(int Value) { Text(Value < 0 ? String() : IntToStr(Value)); }
  void Rect(const TRect& Value) {
    for (int side : {Value.Left, Value.Top, Value.Right, Value.Bottom}) Number(side);
  }
  TCells& Cells() noexcept { return FCells; }

 private:
  TCells FCells;
};

// Reads the cells of a record one after the other; behind the last one all are missing, which reads as empty.
class TRecordReader {
 public:
  explicit TRecordReader(std::span<const String> Cells) noexcept : FCells(Cells) {}
  bool AtEnd() const noexcept { return FNext == FCells.size(); }
  const String& Text() {
    static const String missing;
    return AtEnd() ? missing : FCells[FNext++];
  }
  int Number(int Default) { return StrToIntDef(Text(), Default); }
  TColor Color(TColor Default) {
    TryStringToColor(Text(), Default);
    return Default;
  }
  TRect Rect(int Default) {
    TRect sides;
    for (int* side : {&sides.Left, &sides.Top, &sides.Right, &sides.Bottom}) *side = Number(Default);
    return sides;
  }

 private:
  std::span<const String> FCells;
  size_t FNext = 0;
};

// Tells that the cells of a text can't be taken over.
inline void TellRefused(std::u16string_view What, std::u16string_view Reason, std::span<const String> Cells) {
  MessageDlg(Concat({What, u" konnte nicht zugewiesen werden!\r\n\r\nDer folgende Datensatz ", Reason, u"\r\n\r\n",
                     implode(Cells, u"\r\n")}),
             mtError, {mbOK});
}

}  // namespace vx::detail
