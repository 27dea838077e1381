// The base of every class whose objects lists may hold and free, and of the lists themselves.
//
// Threads: a list, index, tree or any other container of this library may be read by several threads at once through
// its const members, whatever these remember meanwhile. Whoever changes it has to be alone with it.
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
