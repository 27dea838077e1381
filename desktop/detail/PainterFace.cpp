#include <QFontDatabase>
#include <QGlyphRun>
#include <QTextLayout>
#include <algorithm>
#include <climits>
#include <cmath>

#include "desktop/QtValues.h"
#include "desktop/detail/PainterDevice.h"
#include "platform/cairo/CairoDrawing.h"

namespace vx::detail {

namespace {

// A text that is laid out is at most so long; longer ones are laid out piece by piece.
constexpr size_t kMostUnits = 4096;
constexpr qreal kEndless = 1e7;

QString FamilyOf(const String& Name) {
  const QString own = ToQt(Name);
  if (QFontDatabase::hasFamily(own)) return own;
  for (std::u16string_view family : FontStandIns(Name)) {
    if (QFontDatabase::hasFamily(ToQt(family))) return ToQt(family);
  }
  return own;
}

// Letters and signs that stand side by side as they are.
bool NeedsNoShaping(char16_t Unit) noexcept {
  constexpr std::pair<char16_t, char16_t> ranges[] = {{0x20, 0x2FF},    {0x370, 0x482},   {0x48A, 0x58F},
                                                      {0x1E00, 0x1FFF}, {0x2010, 0x2027}, {0x2030, 0x205E},
                                                      {0x20A0, 0x20BF}, {0x2100, 0x22FF}};
  return std::any_of(std::begin(ranges), std::end(ranges),
                     [Unit](const auto& range) { return Unit >= range.first && Unit <= range.second; });
}

bool IsBlank(QChar Unit) noexcept { return Unit < u' ' || Unit == u'\u2028' || Unit == u'\u2029'; }

// The pieces of a text, laid out in one line each.
template <typename TTake>
void ForEachPiece(const QFont& Font, std::u16string_view Text, TTake Take) {
  while (!Text.empty()) {
    size_t end = std::min(Text.size(), kMostUnits);
    if (end < Text.size() && (Text[end] & 0xFC00) == 0xDC00) --end;
    QString piece = ToQt(Text.substr(0, end));
    Text.remove_prefix(end);
    std::replace_if(piece.begin(), piece.end(), IsBlank, QChar(u' '));
    QTextLayout layout(piece, Font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(kEndless);
    layout.endLayout();
    Take(layout, line);
  }
}

}  // namespace

TPainterFace::TPainterFace(const TFont& Font) : FFont(FamilyOf(Font.Name)) {
  FFont.setPixelSize(FontPixels(Font));
  FFont.setBold(Font.Style.Has(fsBold));
  FFont.setItalic(Font.Style.Has(fsItalic));
  FFont.setKerning(false);
  FFont.setHintingPreference(QFont::PreferNoHinting);
  FRaw = QRawFont::fromFont(FFont);
}

TFontMetrics TPainterFace::Metrics() const {
  return {static_cast<int>(std::ceil(FRaw.ascent())), static_cast<int>(std::ceil(FRaw.descent())), 0};
}

TPainterFace::TLetter TPainterFace::Letter(char16_t Unit) {
  if (Unit < u' ') Unit = u' ';
  if (!NeedsNoShaping(Unit)) return {};
  const auto known = FLetters.constFind(Unit);
  if (known != FLetters.constEnd()) return *known;
  TLetter letter;
  const QList<quint32> glyphs = FRaw.glyphIndexesForString(QString(QChar(Unit)));
  if (glyphs.size() == 1 && glyphs.constFirst() != 0) {
    letter = {glyphs.constFirst(), qRound(FRaw.advancesForGlyphIndexes(glyphs).constFirst().x())};
  }
  FLetters.insert(Unit, letter);
  return letter;
}

bool TPainterFace::IsSimple(std::u16string_view Text) {
  return std::all_of(Text.begin(), Text.end(), [this](char16_t unit) { return Letter(unit).Advance >= 0; });
}

int TPainterFace::Width(std::u16string_view Text) {
  int64_t width = 0;
  if (IsSimple(Text)) {
    for (char16_t unit : Text) width += Letter(unit).Advance;
  } else {
    ForEachPiece(FFont, Text, [&width](QTextLayout&, const QTextLine& line) {
      width += static_cast<int64_t>(std::ceil(line.horizontalAdvance()));
    });
  }
  return static_cast<int>(std::min<int64_t>(width, INT_MAX));
}

void TPainterFace::Draw(QPainter& Painter, std::u16string_view Text) {
  if (!IsSimple(Text)) {
    qreal place = 0;
    ForEachPiece(FFont, Text, [&](QTextLayout& layout, const QTextLine& line) {
      layout.draw(&Painter, QPointF(place, -line.ascent()));
      place += std::ceil(line.horizontalAdvance());
    });
    return;
  }
  QList<quint32> glyphs;
  QList<QPointF> places;
  qreal place = 0;
  for (char16_t unit : Text) {
    const TLetter letter = Letter(unit);
    glyphs.append(letter.Glyph);
    places.append(QPointF(place, 0));
    place += letter.Advance;
  }
  QGlyphRun run;
  run.setRawFont(FRaw);
  run.setGlyphIndexes(glyphs);
  run.setPositions(places);
  Painter.drawGlyphRun(QPointF(), run);
}

}  // namespace vx::detail
