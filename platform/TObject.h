// The base of every class whose objects lists may hold and free.
#pragma once

#include "platform/String.h"

namespace vx {

class TObject {
 public:
  TObject() noexcept = default;
  virtual ~TObject() = default;
  // The name of the object's class as written in the code, such as u"TFileCsv".
  virtual String ClassName() const { return u"TObject"; }

 protected:
  TObject(const TObject&) noexcept = default;
  TObject& operator=(const TObject&) noexcept = default;
};

}  // namespace vx
