// The line for what is looked for, below the table: Return goes on, Shift+Return goes back, Escape closes it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "desktop/TTableWidget.h"

namespace vx::vxview {

class TFindBar : public QWidget {
  Q_OBJECT

 public:
  // Table outlives the bar, or goes with it.
  explicit TFindBar(TTableWidget& Table);
  void Open();
  void FindNext(bool IsBackward);

 protected:
  void keyPressEvent(QKeyEvent* Event) override;

 private:
  TTableWidget& FTable;
  QLineEdit* FText;
  QLabel* FNote;
};

}  // namespace vx::vxview
