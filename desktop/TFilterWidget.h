// The filter bar above a table in a window.
//
//   TFilterWidget    shows a TVxFilter and its windows, and filters
//
// Example:
//   auto* filter = new vx::TFilterWidget(&window);          // the window's
//   auto* table = new vx::TTableWidget(&window);
//   table->SetTable(&patients);                             // a TCsvView
//   filter->SetTable(table);
//   layout->addWidget(filter);
//   layout->addWidget(table);
//   filter->Bar().GetItems().Get(2).SetValue(u"Köln");      // shows those of Köln alone
//
// What is tested and offered for each column is the bar's (controls/uVxFilter.h). Its items stand above the columns of
// the table, wherever these are moved or scrolled to. Each change of a value filters the view as soon as the events
// that wait are dealt with, so that keys which come while a long table is filtered are taken together; with a delay,
// once no more have come for so long.
//
// A click opens the window of an item: a text to type in, a list to choose from, check boxes; it closes by Enter,
// Escape or a click elsewhere. A wrong regular expression is told below the text. By keyboard: Left and Right go to the
// next item that can be opened, Enter, Space, Down, F4 or a letter opens it, Delete empties it; in the window Down goes
// into the list, Space checks a line. The right button offers to empty all, where menus are shown (InstallDesktop).
//
// For the main thread. Pitfalls:
//   - Table and view are not owned: SetTable(nullptr) before the view goes. A table widget may go at any time.
//   - A table that got another view, or columns, is told by calling SetTable again.
//   - Without a drawing component (InstallDesktop, InstallDrawing) nothing can be painted, and showing raises.
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "controls/uVxFilter/TVxFilter.h"
#include "desktop/TTableWidget.h"

namespace vx {

namespace detail {
class TFilterPopup;
class TTablePicture;
}  // namespace detail

class TFilterWidget : public QWidget {
  Q_OBJECT

 public:
  explicit TFilterWidget(QWidget* Parent = nullptr);
  ~TFilterWidget() override;

  // The widget's; its places and size are kept by the widget.
  TVxFilter& Bar() noexcept { return FBar; }
  const TVxFilter& Bar() const noexcept { return FBar; }

  // Filters the view that Table shows, with an item for each of its columns, above them. nullptr, or a table that shows
  // no view: nothing is filtered any more.
  void SetTable(TTableWidget* Table);
  // For any other widget that shows a view: who calls this calls Bar().SetPlaces, and hears of Filtered.
  void SetView(TCsvView* View);

  // Milliseconds without a key before the view is filtered; 0 at first.
  int GetDelay() const noexcept { return FTimer.interval(); }
  void SetDelay(int Value) { FTimer.setInterval(std::max(Value, 0)); }
  // At once; nothing more comes afterwards.
  void FilterNow();

  // The item that the keys act on; -1 for none. One that can't be opened is not taken.
  int GetCurrentItem() const noexcept { return FCurrent; }
  void SetCurrentItem(int Index);
  // Shows the window of an item, with Typed in its text.
  void Open(int Index, const QString& Typed = {});
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  // The view shows other rows.
  void Filtered();

 protected:
  bool event(QEvent* Event) override;
  bool eventFilter(QObject* Object, QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
  void resizeEvent(QResizeEvent* Event) override;
  void mousePressEvent(QMouseEvent* Event) override;
  void keyPressEvent(QKeyEvent* Event) override;
  void focusInEvent(QFocusEvent* Event) override;

 private:
  void Changed(TObject* Sender);
  void Invalidated(TObject* Sender);
  void Place();
  bool CanOpen(int Index) const;
  void Step(int By);

  TVxFilter FBar;
  QPointer<TTableWidget> FTable;
  QTimer FTimer;
  int FCurrent = -1;
  bool FIsPainting = false;
  std::unique_ptr<detail::TTablePicture> FPicture;
  detail::TFilterPopup* FPopup = nullptr;  // a child
};

}  // namespace vx
