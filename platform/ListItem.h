// An item of a list view.
//
//   TListItem   what the library asks of it; a program's list view hands it over
#pragma once

#include "platform/TObject.h"
#include "platform/TStrings.h"

namespace vx {

class TListItem : public TObject {
 public:
  String ClassName() const override { return u"TListItem"; }
  // The text of the first column.
  virtual String GetCaption() const = 0;
  // The texts of the other columns, with their objects; they stay the item's.
  virtual const TStrings& GetSubItems() const = 0;
};

}  // namespace vx
