// Objects with a text form, and those with a numeric key.
#pragma once

#include "objects/uVxObjects/TVxObject.h"

namespace vx {

// An object that can be written as one text and read from it.
class TVxData : public TVxClassed<TVxData, TVxObject, u"TVxData"> {
 public:
  virtual String GetSerialize() const = 0;
  virtual void SetSerialize(const String& Value) = 0;
  // Takes over Other's text; nullptr changes nothing.
  virtual void Assign(const TVxData* Other);
  // A new object of the same class with the same text; nullptr where the class has no object to give.
  [[nodiscard]] virtual std::unique_ptr<TVxData> Duplicate() const;
  // Other is an object of exactly the same class with exactly the same text.
  virtual bool EqualsAll(const TVxData* Other) const;
  // A new object of the class Self with that text; nullptr where the class has no object to give.
  [[nodiscard]] static std::unique_ptr<TVxData> Factory(const TVxClass& Self, const String& Serialize);
};

// One that is known by a number.
class TVxDataId : public TVxClassed<TVxDataId, TVxData, u"TVxDataId"> {
 public:
  int GetId() const noexcept { return iId; }
  virtual void SetId(int Value) { iId = Value; }
  // 0, -1 or 1 by the order of the ids; for what has no id the base's order.
  int Compare(const TVxObject& Other) const override;

 protected:
  int iId = 0;
};

// The smallest one: its text is the id in decimal digits, 0 for a text that is no number.
class TVxDataIdHelper : public TVxClassed<TVxDataIdHelper, TVxDataId, u"TVxDataIdHelper"> {
 public:
  String GetSerialize() const override;
  void SetSerialize(const String& Value) override;
};

}  // namespace vx
