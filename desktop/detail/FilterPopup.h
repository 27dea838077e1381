// The window below an item of the filter bar: shows a TVxFilterForm with a text field and a list of Qt. Of use to
// TFilterWidget only.
#pragma once

#include <QAbstractListModel>
#include <QFrame>
#include <QLabel>
#include <QListView>
#include <QToolButton>

#include "controls/uVxFilter/TVxFilter.h"
#include "controls/uVxFilter/TVxFilterForm.h"
#include "desktop/TLineEdit.h"

namespace vx::detail {

class TFilterPopup;

// The lines of the form; nothing is copied.
class TFilterLines : public QAbstractListModel {
 public:
  explicit TFilterLines(const TFilterPopup& Popup) noexcept : FPopup(Popup) {}
  int rowCount(const QModelIndex& Parent) const override;
  QVariant data(const QModelIndex& Index, int Role) const override;
  // All lines are others, or only what stands in them.
  void Reset();
  void Refresh();

 private:
  const TFilterPopup& FPopup;
};

class TFilterPopup : public QFrame {
  Q_OBJECT

 public:
  TFilterPopup(TVxFilter& Bar, QWidget* Parent);
  // Clicks the item, and shows what comes up. The bar's place is that on the screen meanwhile.
  void Open(TVxFilterItem& Item, const QString& Typed);
  // The form that is shown; nullptr if its item is gone.
  TVxFilterForm* Form() const;

 protected:
  bool eventFilter(QObject* Object, QEvent* Event) override;
  void hideEvent(QHideEvent* Event) override;

 private:
  void Do(FunctionRef<void(TVxFilterForm& Form)> Act);
  void Fill(TVxFilterForm& Form);
  void Fit(const TVxFilterForm& Form);
  void ClickLine(int Line);
  bool KeyInText(int Key);
  bool KeyInList(int Key);

  TVxFilter& FBar;
  TVxFilterItem* FItem = nullptr;  // the bar's, if that still has it
  TFilterLines FModel{*this};
  QLabel FCaption, FFault;
  QToolButton FButton;
  TLineEdit FText;
  QListView FList;
  bool FIsFilling = false;
};

}  // namespace vx::detail
