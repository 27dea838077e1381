#include "desktop/TFilterWidget.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <QToolTip>

#include "controls/TableScene.h"
#include "desktop/QtValues.h"
#include "desktop/detail/FilterPopup.h"
#include "desktop/detail/TablePicture.h"
#include "tables/uTypeCsv.h"

namespace vx {

TFilterWidget::TFilterWidget(QWidget* Parent) : QWidget(Parent), FPicture(std::make_unique<detail::TTablePicture>()) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Filter"));
  FBar.SetOnInvalidate(TNotifyEvent::Of<&TFilterWidget::Invalidated>(*this));
  FBar.GetSigChanged().Add(TNotifyEvent::Of<&TFilterWidget::Changed>(*this));
  FTimer.setSingleShot(true);
  connect(&FTimer, &QTimer::timeout, this, &TFilterWidget::FilterNow);
  FPopup = new detail::TFilterPopup(FBar, this);
}

TFilterWidget::~TFilterWidget() { delete FPopup; }

QSize TFilterWidget::sizeHint() const { return {400, 18}; }

// --- the view ---

void TFilterWidget::SetView(TCsvView* View) {
  FPopup->hide();
  while (View != nullptr && FBar.GetItems().GetCount() < View->FieldCount()) FBar.GetItems().Add();
  FBar.SetFilter(View);
  FCurrent = -1;
  update();
}

void TFilterWidget::SetTable(TTableWidget* Table) {
  if (FTable != nullptr) {
    FTable->disconnect(this);
    FTable->viewport()->removeEventFilter(this);
  }
  FTable = Table;
  SetView(Table != nullptr ? dynamic_cast<TCsvView*>(Table->GetTable()) : nullptr);
  if (Table == nullptr) return;
  connect(Table, &TTableWidget::LayoutChanged, this, &TFilterWidget::Place);
  connect(Table, &TTableWidget::Scrolled, this, &TFilterWidget::Place);
  Table->viewport()->installEventFilter(this);
  Place();
}

void TFilterWidget::Changed(TObject* /*Sender*/) { FTimer.start(); }

void TFilterWidget::FilterNow() {
  FTimer.stop();
  FBar.Filter(FBar.GetView());
  if (FTable != nullptr) FTable->TableChanged();
  emit Filtered();
}

// --- places ---

// The columns of the table on the screen, in pixels of the bar.
void TFilterWidget::Place() {
  if (FTable == nullptr || FBar.GetView() == nullptr) return;
  const TTableScene& scene = FTable->GetScene();
  const TAxisView view = scene.ColsView();
  const int line = scene.Columns().GetLine();
  const int shift = FTable->viewport()->mapToGlobal(QPoint()).x() - mapToGlobal(QPoint()).x();
  std::vector<TFilterPlace> places(static_cast<size_t>(FBar.GetItems().GetCount()));
  const int count = std::min(scene.Columns().GetCount(), FBar.GetItems().GetCount());
  for (int col = 0; col < count; ++col) {
    const int place = scene.Columns().PlaceOf(col);
    const TAxisView::TZone zone = view.ZoneOf(place);
    places[static_cast<size_t>(col)] = {shift + view.PlaceOf(place), std::max(view.Axis.GetSize(place) - line, 0),
                                        shift + view.ZoneBegin(zone), shift + view.ZoneEnd(zone)};
  }
  FBar.SetPlaces(std::move(places));
}

bool TFilterWidget::eventFilter(QObject* Object, QEvent* Event) {
  const QEvent::Type type = Event->type();
  if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::Move || type == QEvent::LayoutRequest) Place();
  return QWidget::eventFilter(Object, Event);
}

void TFilterWidget::resizeEvent(QResizeEvent* Event) {
  QWidget::resizeEvent(Event);
  FBar.SetBounds({0, 0, width(), height()});
  Place();
}

// --- the look ---

void TFilterWidget::Invalidated(TObject* /*Sender*/) {
  if (!FIsPainting) update();
}

void TFilterWidget::paintEvent(QPaintEvent* /*Event*/) {
  const QScopedValueRollback painting(FIsPainting, true);
  Place();
  FPicture->SetSize(size(), devicePixelRatioF(), false);
  FPicture->Invalidate();
  FPicture->Refresh([this](TCanvas& canvas, const TRect& /*area*/) {
    FBar.SetCanvas(&canvas);
    FBar.Paint();
    FBar.SetCanvas(nullptr);
  });
  QPainter painter(this);
  FPicture->Show(painter, rect());
  const QRect current = ToQt(FBar.ItemRect(FCurrent));
  if (!hasFocus() || current.isEmpty()) return;
  painter.setPen(palette().color(QPalette::Highlight));
  painter.drawRect(current.adjusted(0, 0, -1, -1));
  painter.drawRect(current.adjusted(1, 1, -2, -2));
}

bool TFilterWidget::event(QEvent* Event) {
  if (Event->type() == QEvent::ToolTip) {
    const auto& help = static_cast<const QHelpEvent&>(*Event);
    const TVxFilterItem* item = FBar.ItemAt(help.x(), help.y());
    QToolTip::showText(help.globalPos(), item != nullptr ? ToQt(item->GetValue()).toHtmlEscaped() : QString(), this);
    return true;
  }
  return QWidget::event(Event);
}

// --- the user ---

bool TFilterWidget::CanOpen(int Index) const {
  if (Index < 0 || Index >= FBar.GetItems().GetCount()) return false;
  const TVxFilterItem& item = FBar.GetItems().Get(Index);
  const TVxFilterCore* core = &item.GetFilterCore();
  return item.GetWidth() > 0 && dynamic_cast<const TVxFilterNone*>(core) == nullptr &&
         dynamic_cast<const TVxFilterData*>(core) == nullptr;
}

void TFilterWidget::SetCurrentItem(int Index) {
  if (!CanOpen(Index)) return;
  FCurrent = Index;
  if (FTable != nullptr) FTable->EnsureVisible(Index, 0);
  update();
}

// In the order on the screen.
void TFilterWidget::Step(int By) {
  const int from = FCurrent >= 0 ? FBar.GetItems().Get(FCurrent).GetLeft() : INT_MIN;
  int next = -1;
  for (int i = 0; i < FBar.GetItems().GetCount(); ++i) {
    const int left = FBar.GetItems().Get(i).GetLeft();
    if (!CanOpen(i) || (FCurrent >= 0 && (By > 0 ? left <= from : left >= from))) continue;
    if (next < 0 || (left < FBar.GetItems().Get(next).GetLeft()) == (By > 0)) next = i;
  }
  SetCurrentItem(next);
}

void TFilterWidget::Open(int Index, const QString& Typed) {
  SetCurrentItem(Index);
  if (FCurrent != Index || Index < 0) return;
  const QPoint corner = mapToGlobal(QPoint());
  {
    const TControlUpdate change(FBar);
    const TRect bounds = FBar.GetBounds();
    FBar.SetBounds({corner.x(), corner.y(), corner.x() + width(), corner.y() + height()});
    FPopup->Open(FBar.GetItems().Get(Index), Typed);
    FBar.SetBounds(bounds);
  }
}

void TFilterWidget::mousePressEvent(QMouseEvent* Event) {
  const QPoint place = Event->position().toPoint();
  if (Event->button() == Qt::RightButton) {
    const QPoint global = Event->globalPosition().toPoint();
    FBar.GetFilterPopup().Popup(global.x(), global.y());
  } else if (const TVxFilterItem* item = FBar.ItemAt(place.x(), place.y())) {
    if (Event->button() == Qt::LeftButton) Open(item->GetIndex());
  }
}

void TFilterWidget::focusInEvent(QFocusEvent* Event) {
  QWidget::focusInEvent(Event);
  if (FCurrent < 0) Step(1);
}

void TFilterWidget::keyPressEvent(QKeyEvent* Event) {
  switch (Event->key()) {
    case Qt::Key_Left:
      return Step(-1);
    case Qt::Key_Right:
      return Step(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_Down:
    case Qt::Key_F4:
      return Open(FCurrent);
    case Qt::Key_Delete:
      if (CanOpen(FCurrent)) FBar.GetItems().Get(FCurrent).SetValue({});
      return;
    default:
      break;
  }
  const QString typed = Event->text();
  const bool isCommand = Event->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
  if (isCommand || typed.isEmpty() || typed.at(0) <= u' ') return QWidget::keyPressEvent(Event);
  Open(FCurrent, typed);
}

}  // namespace vx
