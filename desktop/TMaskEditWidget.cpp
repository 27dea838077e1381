#include "desktop/TMaskEditWidget.h"

namespace vx {

TMaskEditWidget::TMaskEditWidget(QWidget* Parent) : TLineEdit(Parent) {}
TMaskEditWidget::~TMaskEditWidget() = default;

}  // namespace vx
