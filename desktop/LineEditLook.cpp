// What a line shows beside its text.
#include <QEvent>
#include <QPainter>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <cmath>

#include "desktop/QtPictures.h"
#include "desktop/QtValues.h"
#include "desktop/TLineEdit.h"
#include "platform/TBitmap.h"

namespace vx {

namespace {

constexpr int kGap = 4;

int WidthOf(const TBitmap* Image) { return Image != nullptr && !Image->GetEmpty() ? Image->GetWidth() + kGap : 0; }
int WidthOf(const QFontMetrics& Metrics, const String& Text) {
  return Text.empty() ? 0 : Metrics.horizontalAdvance(ToQt(Text)) + kGap;
}

double LightOf(const QColor& Color) {
  const auto channel = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * channel(Color.redF()) + 0.7152 * channel(Color.greenF()) + 0.0722 * channel(Color.blueF());
}

// A colour that was chosen for light desktops, as light as it has to be on a dark one.
QColor ReadableOn(const QColor& Ground, QColor Color) {
  constexpr double kContrast = 4.5, kHaze = 0.05;
  const double ground = LightOf(Ground);
  if (ground > 0.18) return Color;
  for (int step = 0; step < 20 && (LightOf(Color) + kHaze) / (ground + kHaze) < kContrast; ++step) {
    Color = QColor::fromRgbF(Color.redF() * 0.9F + 0.1F, Color.greenF() * 0.9F + 0.1F, Color.blueF() * 0.9F + 0.1F);
  }
  return Color;
}

// Draws in the rest of a line, whose left or right side moves on.
class TSidePainter {
 public:
  TSidePainter(QPainter& Painter, QRect Rest) : FPainter(Painter), FRest(Rest) {}
  void Image(const TBitmap* Image, bool IsRight) {
    if (const int width = WidthOf(Image)) {
      const QImage image = ToQt(*Image);
      FPainter.drawImage(QPoint(Place(width, IsRight), FRest.top() + (FRest.height() - image.height()) / 2), image);
    }
  }
  void Text(const String& Text, bool IsRight) {
    if (const int width = WidthOf(FPainter.fontMetrics(), Text)) {
      FPainter.drawText(QRect(Place(width, IsRight), FRest.top(), width, FRest.height()), Qt::AlignVCenter, ToQt(Text));
    }
  }

 private:
  int Place(int Width, bool IsRight) {
    if (IsRight) {
      FRest.setRight(FRest.right() - Width);
      return FRest.right() + 1 + kGap;
    }
    FRest.setLeft(FRest.left() + Width);
    return FRest.left() - Width;
  }

  QPainter& FPainter;
  QRect FRest;
};

}  // namespace

void TLineEdit::SetAlignment(TAlignment Alignment) {
  FAlignment = Alignment;
  const Qt::Alignment side = Alignment == taCenter         ? Qt::AlignHCenter
                             : Alignment == taRightJustify ? Qt::AlignRight
                                                           : Qt::AlignLeft;
  setAlignment(side | Qt::AlignVCenter);
}

bool TLineEdit::HasErrorImage() const noexcept { return FStatus.IsShown && !FStatus.IsValid; }

void TLineEdit::FitSides() {
  const int left = WidthOf(FSides.PreImage) + WidthOf(fontMetrics(), FSides.PreStr);
  const int right = WidthOf(FSides.PostImage) + WidthOf(fontMetrics(), FSides.PostStr) +
                    (HasErrorImage() ? WidthOf(FStatus.ErrorImage) : 0);
  if (textMargins() != QMargins(left, 0, right, 0)) setTextMargins(left, 0, right, 0);
  update();
}

void TLineEdit::ShowSides(const TEditSides& Sides) {
  FSides = Sides;
  FitSides();
}

void TLineEdit::ShowStatus(const TEditStatus& Status) {
  if (Status == FStatus) return;
  FStatus = Status;
  if (FValidPalette) setPalette(*FValidPalette);
  FValidPalette.reset();
  if (!Status.IsValid && Status.IsShown) {
    FValidPalette = palette();
    QPalette invalid = palette();
    invalid.setColor(QPalette::Text, ReadableOn(palette().color(QPalette::Base), ColorToQt(Status.InvalidColor)));
    setPalette(invalid);
  }
  FitSides();
}

void TLineEdit::ShowHint(const String& Hint) {
  FHint = Hint;
  if (Hint.empty() || !isVisible()) {
    if (FHintLabel != nullptr) FHintLabel->hide();
    return;
  }
  if (FHintLabel == nullptr) {
    FHintLabel = new QLabel(this, Qt::ToolTip);
    FHintLabel->setPalette(QToolTip::palette());
    FHintLabel->setForegroundRole(QPalette::ToolTipText);
    FHintLabel->setBackgroundRole(QPalette::ToolTipBase);
    FHintLabel->setFrameShape(QFrame::Box);
    FHintLabel->setMargin(2);
    FHintLabel->setTextFormat(Qt::PlainText);
  }
  FHintLabel->setText(ToQt(Hint));
  FHintLabel->adjustSize();
  FHintLabel->move(mapToGlobal(QPoint(0, height() + 2)));
  FHintLabel->show();
}

void TLineEdit::changeEvent(QEvent* Event) {
  QLineEdit::changeEvent(Event);
  if (Event->type() == QEvent::FontChange || Event->type() == QEvent::StyleChange) FitSides();
}

void TLineEdit::paintEvent(QPaintEvent* Event) {
  QLineEdit::paintEvent(Event);
  QStyleOptionFrame option;
  initStyleOption(&option);
  const QRect contents = style()->subElementRect(QStyle::SE_LineEditContents, &option, this);
  QPainter painter(this);
  painter.setClipRect(contents);
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  TSidePainter sides(painter, contents.adjusted(kGap / 2, 0, -kGap / 2, 0));
  sides.Image(FSides.PreImage, false);
  sides.Text(FSides.PreStr, false);
  if (HasErrorImage()) sides.Image(FStatus.ErrorImage, true);
  sides.Image(FSides.PostImage, true);
  sides.Text(FSides.PostStr, true);
}

}  // namespace vx
