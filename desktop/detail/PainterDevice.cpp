#include "desktop/detail/PainterDevice.h"

#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "desktop/QtPictures.h"
#include "desktop/QtValues.h"
#include "platform/TBitmap.h"

namespace vx::detail {

namespace {

constexpr size_t kMostFaces = 32;

QPen PenOf(const TPen& Pen) {
  QPen pen(ColorToQt(Pen.Color), Pen.Width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
  if (Pen.Style == psDash) pen.setDashPattern({18, 6});
  if (Pen.Style == psDot) pen.setDashPattern({3, 3});
  return pen;
}

QRectF Inset(const TRect& Rect, double By) {
  return {Rect.Left + By, Rect.Top + By, std::max(Rect.Width() - 2 * By, 0.01), std::max(Rect.Height() - 2 * By, 0.01)};
}

QLinearGradient GradientOf(const TRect& Rect, const TGradient& Gradient) {
  const bool isDown = Gradient.Direction == gdVertical;
  QLinearGradient result(Rect.Left, Rect.Top, isDown ? Rect.Left : Rect.Right, isDown ? Rect.Bottom : Rect.Top);
  const QColor from = ColorToQt(Gradient.From), to = ColorToQt(Gradient.To);
  const int steps = Gradient.Bell ? 32 : 1;
  for (int step = 0; step <= steps; ++step) {
    const double place = static_cast<double>(step) / steps;
    const double share = Gradient.Bell ? (1 - std::cos(2 * std::numbers::pi * place)) / 2 : place;
    const auto mixed = [share](int first, int second) { return qRound(first + (second - first) * share); };
    result.setColorAt(
        place, QColor(mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())));
  }
  return result;
}

}  // namespace

TPainterDevice::TPainterDevice(QPainter& Painter, TPoint Size, TPoint PixelsPerInch, TDeviceKind Kind)
    : FPainter(Painter), FSize(Size), FPixelsPerInch(PixelsPerInch), FKind(Kind) {
  FPainter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  FPainter.save();
}

TPainterDevice::~TPainterDevice() {
  if (FPainter.isActive()) FPainter.restore();
}

TRect TPainterDevice::Bounds() const noexcept {
  return {0, 0, static_cast<int>(std::ceil(FSize.X / FScale)), static_cast<int>(std::ceil(FSize.Y / FScale))};
}

// The state before the clip is kept below, so that each clip begins from there.
void TPainterDevice::SetClip(const TRect* Clip, double Scale) noexcept {
  FScale = Scale;
  FPainter.restore();
  FPainter.save();
  FPainter.scale(Scale, Scale);
  if (Clip != nullptr) FPainter.setClipRect(ToQt(*Clip));
}

void TPainterDevice::Fill(const TRect& Rect, TColor Color) {
  FPainter.setRenderHint(QPainter::Antialiasing, FScale != std::floor(FScale));
  FPainter.fillRect(ToQt(IntersectRect(Rect, Bounds())), ColorToQt(Color));
  FPainter.setRenderHint(QPainter::Antialiasing, true);
}

void TPainterDevice::Frame(const TRect& Rect, const TPen& Pen) {
  const int width = Pen.Width;
  if (width * int64_t{2} >= std::min(Rect.Width(), Rect.Height())) return Fill(Rect, Pen.Color);
  if (Pen.Style == psSolid) {
    Fill({Rect.Left, Rect.Top, Rect.Right, Rect.Top + width}, Pen.Color);
    Fill({Rect.Left, Rect.Bottom - width, Rect.Right, Rect.Bottom}, Pen.Color);
    Fill({Rect.Left, Rect.Top + width, Rect.Left + width, Rect.Bottom - width}, Pen.Color);
    Fill({Rect.Right - width, Rect.Top + width, Rect.Right, Rect.Bottom - width}, Pen.Color);
    return;
  }
  const double half = width / 2.0, left = Rect.Left, top = Rect.Top, right = Rect.Right, bottom = Rect.Bottom;
  Stroke({left, top + half}, {right, top + half}, Pen);
  Stroke({right - half, top}, {right - half, bottom}, Pen);
  Stroke({right, bottom - half}, {left, bottom - half}, Pen);
  Stroke({left + half, bottom}, {left + half, top}, Pen);
}

void TPainterDevice::Stroke(QPointF From, QPointF To, const TPen& Pen) {
  FPainter.setPen(PenOf(Pen));
  FPainter.drawLine(From, To);
}

void TPainterDevice::Line(TPoint From, TPoint To, const TPen& Pen) {
  const bool isAcross = From.Y == To.Y;
  if (Pen.Style == psSolid && (isAcross || From.X == To.X)) {
    const int before = (Pen.Width - 1) / 2, length = std::abs(isAcross ? To.X - From.X : To.Y - From.Y);
    const int left = isAcross ? (From.X < To.X ? From.X : To.X + 1) : From.X - before;
    const int top = isAcross ? From.Y - before : (From.Y < To.Y ? From.Y : To.Y + 1);
    return Fill({left, top, left + (isAcross ? length : Pen.Width), top + (isAcross ? Pen.Width : length)}, Pen.Color);
  }
  // Through the middles of the pixels; along an axis from the edge of the first to that of the last.
  const auto edge = [](int from, int to) { return from == to ? 0.5 : from < to ? 0.0 : 1.0; };
  const bool isAlong = isAcross || From.X == To.X;
  const double x = isAlong ? edge(From.X, To.X) : 0.5, y = isAlong ? edge(From.Y, To.Y) : 0.5;
  Stroke({From.X + x, From.Y + y}, {To.X + x, To.Y + y}, Pen);
}

void TPainterDevice::Ellipse(const TRect& Rect, const TColor* Brush, const TPen* Pen) {
  FPainter.setPen(Pen != nullptr ? PenOf(*Pen) : QPen(Qt::NoPen));
  FPainter.setBrush(Brush != nullptr ? QBrush(ColorToQt(*Brush)) : QBrush(Qt::NoBrush));
  FPainter.drawEllipse(Inset(Rect, Pen != nullptr ? Pen->Width / 2.0 : 0));
  FPainter.setBrush(Qt::NoBrush);
}

void TPainterDevice::Gradient(const TRect& Rect, const TGradient& Gradient, bool InEllipse) {
  const QBrush brush(GradientOf(Rect, Gradient));
  if (!InEllipse) return FPainter.fillRect(ToQt(IntersectRect(Rect, Bounds())), brush);
  QPainterPath path;
  path.addEllipse(Inset(Rect, 0));
  FPainter.fillPath(path, brush);
}

void TPainterDevice::Picture(const TRect& Rect, const TBitmap& Bitmap, const TRect& Source, const TColor* Transparent) {
  const bool isNatural = Rect.Width() == Source.Width() && Rect.Height() == Source.Height();
  FPainter.setRenderHint(QPainter::SmoothPixmapTransform, !isNatural);
  FPainter.drawImage(ToQt(Rect), ToQt(Bitmap, Transparent), ToQt(Source));
}

void TPainterDevice::SetFont(const TFont& Font) {
  FFont = Font;
  const auto known =
      std::find_if(FFaces.begin(), FFaces.end(), [&Font](const auto& face) { return face.first == Font; });
  if (known != FFaces.end()) {
    FFace = known->second;
    return;
  }
  FFace = std::make_shared<TPainterFace>(Font);
  if (FFaces.size() >= kMostFaces) FFaces.erase(FFaces.begin());
  FFaces.emplace_back(Font, FFace);
}

void TPainterDevice::Text(const TTextRun& Run) {
  FPainter.save();
  FPainter.translate(Run.Origin.X, Run.Origin.Y);
  if (Run.Upward) FPainter.rotate(-90);
  FPainter.setPen(ColorToQt(Run.Color));
  FFace->Draw(FPainter, Run.Text);
  const int em = FFace->GetEm(), thick = std::max(em / 14, 1);
  const auto line = [&](int top) {
    FPainter.fillRect(QRect(0, top, FFace->Width(Run.Text), thick), ColorToQt(Run.Color));
  };
  if (FFont.Style.Has(fsUnderline)) line(std::max(em / 10, 1));
  if (FFont.Style.Has(fsStrikeOut)) line(-FFace->Metrics().Ascent / 3);
  FPainter.restore();
}

}  // namespace vx::detail
