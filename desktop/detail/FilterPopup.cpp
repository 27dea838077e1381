#include "desktop/detail/FilterPopup.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "desktop/QtPictures.h"
#include "desktop/QtValues.h"
#include "desktop/detail/TablePicture.h"
#include "platform/Exceptions.h"
#include "platform/Keys.h"

namespace vx::detail {

namespace {

constexpr int kMostLines = 12;  // to be seen at once
constexpr int kMeasuredLines = 200;
constexpr int kMostWidth = 480;

// Lines with a picture are painted by the form.
class TLineDelegate final : public QStyledItemDelegate {
 public:
  TLineDelegate(const TFilterPopup& Popup, QObject* Parent) : QStyledItemDelegate(Parent), FPopup(Popup) {}
  void paint(QPainter* Painter, const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    QStyledItemDelegate::paint(Painter, Option, Index);
    const TVxFilterForm* form = FPopup.Form();
    if (form == nullptr || !form->HasPicture(Index.row())) return;
    const int left = form->GetKind() == ffChecks ? TVxFilterForm::LineHeight + 6 : 2;
    const QRect place = Option.rect.adjusted(left, 1, -2, -1);
    TTablePicture picture;
    picture.SetSize(place.size(), Painter->device()->devicePixelRatioF(), false);
    picture.Refresh([&](TCanvas& canvas, const TRect& area) {
      canvas.SetBrush({Option.state & QStyle::State_Selected ? clHighlight : clWindow});
      canvas.FillRect(area);
      form->PaintPicture(canvas, Index.row(), area);
    });
    Painter->save();
    Painter->translate(place.topLeft());
    picture.Show(*Painter, QRect(QPoint(), place.size()));
    Painter->restore();
  }
  QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override {
    const QSize size = QStyledItemDelegate::sizeHint(Option, Index);
    return {size.width(), std::max(size.height(), TVxFilterForm::LineHeight + 2)};
  }

 private:
  const TFilterPopup& FPopup;
};

}  // namespace

// --- the lines ---

int TFilterLines::rowCount(const QModelIndex& Parent) const {
  const TVxFilterForm* form = FPopup.Form();
  return Parent.isValid() || form == nullptr || !form->HasLines() ? 0 : form->GetLineCount();
}

QVariant TFilterLines::data(const QModelIndex& Index, int Role) const {
  const TVxFilterForm* form = FPopup.Form();
  if (form == nullptr || !Index.isValid()) return {};
  const TFilterLine& line = form->GetLine(Index.row());
  if (Role == Qt::DisplayRole && !form->HasPicture(Index.row())) return ToQt(line.Caption);
  if (Role == Qt::AccessibleTextRole) return ToQt(line.Caption);
  if (Role == Qt::CheckStateRole && form->GetKind() == ffChecks) return line.Checked ? Qt::Checked : Qt::Unchecked;
  return {};
}

void TFilterLines::Reset() {
  beginResetModel();
  endResetModel();
}

void TFilterLines::Refresh() { emit dataChanged(index(0), index(std::max(rowCount({}) - 1, 0))); }

// --- the window ---

TFilterPopup::TFilterPopup(TVxFilter& Bar, QWidget* Parent) : QFrame(Parent, Qt::Popup), FBar(Bar) {
  setFrameShape(QFrame::Box);
  FButton.setCheckable(true);
  FButton.setAutoRaise(true);
  FFault.setWordWrap(true);
  FFault.setTextFormat(Qt::PlainText);
  FList.setModel(&FModel);
  FList.setItemDelegate(new TLineDelegate(*this, &FList));
  FList.setUniformItemSizes(true);
  FList.setFrameShape(QFrame::NoFrame);
  auto* head = new QHBoxLayout;
  head->setContentsMargins(4, 0, 0, 0);
  head->addWidget(&FCaption, 1);
  head->addWidget(&FButton);
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(1, 1, 1, 1);
  all->setSpacing(1);
  all->addLayout(head);
  all->addWidget(&FText);
  all->addWidget(&FFault);
  all->addWidget(&FList);
  FText.installEventFilter(this);
  FList.installEventFilter(this);
  connect(&FText, &QLineEdit::textChanged, this,
          [this](const QString& text) { Do([&text](TVxFilterForm& form) { form.EditText(FromQt(text)); }); });
  connect(&FList, &QListView::clicked, this, [this](const QModelIndex& index) { ClickLine(index.row()); });
  connect(&FButton, &QToolButton::clicked, this, [this] { Do([](TVxFilterForm& form) { form.ClickButton(); }); });
}

TVxFilterForm* TFilterPopup::Form() const {
  const TVxFilterItems& items = FBar.GetItems();
  for (int i = 0; FItem != nullptr && i < items.GetCount(); ++i) {
    if (&items.Get(i) == FItem) return &FItem->GetFilterForm();
  }
  return nullptr;
}

void TFilterPopup::Open(TVxFilterItem& Item, const QString& Typed) {
  FItem = &Item;
  Item.Click();
  TVxFilterForm* form = Form();
  if (form == nullptr || !form->GetVisible()) return;
  FFault.hide();
  Fill(*form);
  Fit(*form);
  show();
  if (!form->HasText()) return FList.setFocus();
  FText.setFocus();
  FText.selectAll();
  if (!Typed.isEmpty()) FText.Paste(Typed);
}

// The user acts on the form; what comes of it is shown. Nothing may pass through Qt's events.
void TFilterPopup::Do(FunctionRef<void(TVxFilterForm&)> Act) {
  if (FIsFilling) return;
  TVxFilterForm* form = Form();
  if (form == nullptr) return hide();
  FFault.hide();
  const TFilterFormKind kind = form->GetKind();
  const int lines = form->GetLineCount();
  try {
    Act(*form);
  } catch (const Exception& error) {
    FFault.setText(ToQt(error.GetMessage()));
    FFault.show();
  }
  form = Form();
  if (form == nullptr || !form->GetVisible()) return hide();
  if (form->GetKind() != kind || form->GetLineCount() != lines) Fill(*form);
  FModel.Refresh();
  Fit(*form);
}

void TFilterPopup::Fill(TVxFilterForm& Form) {
  const QScopedValueRollback filling(FIsFilling, true);
  FCaption.setText(ToQt(Form.GetCaption()));
  TBitmap glyph;
  glyph.LoadFromResourceName(Form.GetButton().GlyphName);
  glyph.SetTransparent(true);
  glyph.SetTransparentColor(Form.GetButton().TransparentColor);
  FButton.setIcon(QPixmap::fromImage(ToQt(glyph)));
  FButton.setToolTip(ToQt(Form.GetButton().Hint));
  FButton.setAccessibleName(ToQt(Form.GetButton().Hint));
  FButton.setVisible(Form.GetButton().Visible);
  FButton.setChecked(Form.GetButton().Down);
  FText.setVisible(Form.HasText());
  FText.SetText(Form.GetText());
  FList.setVisible(Form.HasLines());
  FModel.Reset();
  FList.setCurrentIndex(FModel.index(std::max(Form.GetItemIndex(), 0)));
}

// Below its item, on the screen, as wide as most lines ask for.
void TFilterPopup::Fit(const TVxFilterForm& Form) {
  int width = std::max(Form.GetWidth(), FItem->GetWidth());
  const int count = Form.HasLines() ? Form.GetLineCount() : 0;
  for (int i = 0; i < std::min(count, kMeasuredLines); ++i) {
    const int text = FList.fontMetrics().horizontalAdvance(ToQt(Form.GetLine(i).Caption));
    width = std::clamp(text + 2 * TVxFilterForm::LineHeight + FList.verticalScrollBar()->sizeHint().width(), width,
                       std::max(width, kMostWidth));
  }
  const int shown = std::min(count, kMostLines);
  FList.setFixedHeight(shown > 0 ? shown * FList.sizeHintForRow(0) + 2 : 0);
  setFixedWidth(width);
  adjustSize();
  QPoint place(Form.GetLeft(), Form.GetTop());
  const QScreen* at = screen();
  const QRect room = at != nullptr ? at->availableGeometry() : QRect(place, size());
  place.setX(std::clamp(place.x(), room.left(), std::max(room.left(), room.right() + 1 - this->width())));
  if (place.y() + height() > room.bottom() + 1) place.ry() -= height() + FBar.GetHeight();
  if (!isVisible()) move(place);
}

void TFilterPopup::hideEvent(QHideEvent* Event) {
  QFrame::hideEvent(Event);
  TVxFilterForm* form = Form();
  if (form != nullptr) form->SetVisible(false);
  FItem = nullptr;
}

// --- keys ---

void TFilterPopup::ClickLine(int Line) {
  Do([Line](TVxFilterForm& form) { form.ClickLine(Line); });
}

bool TFilterPopup::KeyInText(int Key) {
  const bool hasLines = FModel.rowCount({}) > 0;
  if (Key == Qt::Key_Down && hasLines) {
    FList.setFocus();
    return true;
  }
  if (Key != Qt::Key_Return && Key != Qt::Key_Enter && Key != Qt::Key_Escape) return false;
  Do([Key](TVxFilterForm& form) { form.KeyPress(Key == Qt::Key_Escape ? chEscape : chReturn); });
  return true;
}

bool TFilterPopup::KeyInList(int Key) {
  const int line = FList.currentIndex().row();
  const TVxFilterForm* form = Form();
  const bool hasChecks = form != nullptr && form->GetKind() == ffChecks;
  if (Key == Qt::Key_Up && line <= 0 && FText.isVisible()) {
    FText.setFocus();
    return true;
  }
  const bool isEnter = Key == Qt::Key_Return || Key == Qt::Key_Enter;
  if (line >= 0 && (hasChecks ? Key == Qt::Key_Space : isEnter)) {
    ClickLine(line);
    return true;
  }
  return KeyInText(Key == Qt::Key_Down ? 0 : Key);
}

bool TFilterPopup::eventFilter(QObject* Object, QEvent* Event) {
  if (Event->type() != QEvent::KeyPress) return QFrame::eventFilter(Object, Event);
  const int key = static_cast<QKeyEvent*>(Event)->key();
  return Object == &FText ? KeyInText(key) : KeyInList(key);
}

}  // namespace vx::detail
