// The serial form of a decoration.
#include "core/uVxFunctions/LayoutText.h"
#include "core/uVxFunctionsSerialize/FieldTypes.h"
#include "core/uVxFunctionsSerialize/FontText.h"
#include "rendering/uDecoration/TDecoration.h"
#include "rendering/uDecoration/detail/Letters.h"
#include "rendering/uDecoration/detail/SerialCells.h"

namespace vx {

namespace {

constexpr int kCellCount = 27;
constexpr size_t kLeastCells = 22;

}  // namespace

String TDecoration::GetCommatext() const {
  detail::TCellWriter writer(kCellCount);
  writer.Number(iRangeType);
  writer.Rect(iRange);
  writer.Text(AlignSetToString(iAlignSet));
  writer.Color(iColor, clWhite);
  writer.Number(iFieldType);
  writer.Text(iFont ? FontToString(*iFont, true) : String());
  writer.Text(iFormatString);
  writer.Text(AlignSetToString(iImageAlignSet));
  writer.Text(detail::ToLetters(iOptions, detail::kDecorationOptionLetters));
  for (TColor edge : {iSelectColor.Left, iSelectColor.Top, iSelectColor.Right, iSelectColor.Bottom}) {
    writer.Color(edge, clSilver);
  }
  writer.Rect(iSelectRange);
  writer.Text(detail::ToLetters(iTrimModes, detail::kTrimModeLetters));
  writer.Number(iImageIndex);
  writer.Number(iTextAngle);
  for (int limit : {iWidthMin, iWidthMax, iHeightMin, iHeightMax}) writer.Limit(limit);
  return WriteCommatext(writer.Cells());
}

void TDecoration::SetCommatext(std::u16string_view aText) {
  const TCells cells = ReadCommatext(aText);
  if (cells.size() < kLeastCells) {
    detail::TellRefused(u"Die Dekoration",
                        Concat({u"hat ", IntToStr(static_cast<int>(cells.size())), u" statt 22 Felder:"}), cells);
    return;
  }
  detail::TRecordReader reader(cells);
  const int rangeType = reader.Number(rtUnknown);
  SetRangeType(rangeType > rtUnknown && rangeType <= rtContent ? static_cast<TRangeType>(rangeType) : rtUnknown);
  SetRange(reader.Rect(-1));
  iAlignSet = StringToAlignSet(reader.Text());
  iColor = reader.Color(clWhite);
  iFieldType = IntToVxFieldType(reader.Number(vftUnknown));
  const String& font = reader.Text();
  SetFontOwner(!font.empty());
  if (iFont) StringToFont(font, *iFont);
  iFormatString = reader.Text();
  iImageAlignSet = StringToAlignSet(reader.Text());
  iOptions = detail::FromLetters<TDecorationOption>(reader.Text(), detail::kDecorationOptionLetters);
  for (TColor* edge : {&iSelectColor.Left, &iSelectColor.Top, &iSelectColor.Right, &iSelectColor.Bottom}) {
    *edge = reader.Color(clSilver);
  }
  iSelectRange = reader.Rect(0);
  iTrimModes = detail::FromLetters<TTrimMode>(reader.Text(), detail::kTrimModeLetters);
  iImageIndex = reader.Number(-1);
  const int angle = reader.AtEnd() ? int{taHorz} : reader.Number(taNone);
  iTextAngle = angle > taNone && angle <= taVert ? static_cast<TTextAngle>(angle) : taNone;
  for (int* limit : {&iWidthMin, &iWidthMax, &iHeightMin, &iHeightMax}) *limit = reader.Number(-1);
}

}  // namespace vx
