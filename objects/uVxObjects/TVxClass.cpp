#include "objects/uVxObjects/TVxClass.h"

#include "objects/uVxObjects/Structure.h"
#include "objects/uVxObjects/TVxData.h"

void std::default_delete<vx::TVxData>::operator()(vx::TVxData* Data) const noexcept { delete Data; }

void std::default_delete<vx::TVxParserObject>::operator()(vx::TVxParserObject* Node) const noexcept { delete Node; }

namespace vx {

bool TVxClass::InheritsFrom(const TVxClass& Other) const noexcept {
  const TVxClass* ancestor = this;
  while (ancestor && ancestor != &Other) ancestor = ancestor->FParent;
  return ancestor != nullptr;
}

std::unique_ptr<TVxData> TVxClass::NoData() noexcept { return nullptr; }

}  // namespace vx
