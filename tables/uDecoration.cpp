// What rendering/uDecoration.h tells of tables stands here, above it.
#include "rendering/uDecoration/TDecorationList.h"
#include "tables/uFileCsv/TFileCsv.h"

namespace vx {

TFileCsv* TDecoration::ParentTypeCsv() const {
  return iParent ? dynamic_cast<TFileCsv*>(iParent->OutermostParent()) : nullptr;
}

}  // namespace vx
