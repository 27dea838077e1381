// Data objects that only have to move their fields to and from a list.
//
//   class                 base        its text is the list as
//   TVxDataCommatext      TVxData     commatext
//   TVxDataLighttext      TVxData     lighttext
//   TVxDataOffsettext     TVxData     offsettext
//   TVxDataIntelliText    TVxData     intellitext
//   TVxDataIdLighttext    TVxDataId   lighttext
//
// Example:
//   class TRoom : public vx::TVxClassed<TRoom, vx::TVxDataLighttext, u"TRoom"> {
//    public:
//     vx::TVxStringList& GetData(vx::TVxStringList& Data) const override {
//       Data.AddStrings({Name, vx::IntToStr(Beds)});
//       return Data;
//     }
//     void SetData(const vx::TVxStringList& Data) override {
//       vx::TPop pop(&Data, 0, -1, true);
//       Name = pop.Pop(true);
//       Beds = pop.PopInt(0, true);
//     }
//     vx::String Name;
//     int Beds = 0;
//   };
//   room.SetSerialize(u"Nordzimmer|2");
//   auto copy = room.Duplicate();          // a TRoom
//
// The forms are told in platform/TextForms.h. Pitfalls: the order of the fields is the form of
// stored data, so new fields go to the end; SetData has to bear a list with fewer fields than it knows.
//
// Threads: an object is for one at a time; different objects may be used at once.
#pragma once

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxObjects/TVxData.h"

namespace vx {

// What the five classes share: TSelf is the class, kGet and kSet are the list's text form.
template <typename TSelf, typename TBase, TClassNameText kName, auto kGet, auto kSet>
class TVxDataSerialize : public TVxClassed<TSelf, TBase, kName> {
 public:
  // Appends the fields to Data, which comes empty, and returns it.
  virtual TVxStringList& GetData(TVxStringList& Data) const = 0;
  // Takes the fields from a list as GetData fills it, or of any other content.
  virtual void SetData(const TVxStringList& Data) = 0;

  String GetSerialize() const override {
    TVxStringList list;
    return (GetData(list).*kGet)();
  }
  void SetSerialize(const String& Value) override {
    TVxStringList list;
    (list.*kSet)(Value);
    SetData(list);
  }
  // From an object of the same kind of class the list is taken as it is, with no text made of it.
  void Assign(const TVxData* Other) override {
    if (const auto* other = dynamic_cast<const TVxDataSerialize*>(Other)) {
      TVxStringList list;
      SetData(other->GetData(list));
    } else {
      TBase::Assign(Other);
    }
  }
};

class TVxDataCommatext : public TVxDataSerialize<TVxDataCommatext, TVxData, u"TVxDataCommatext",
                                                 &TTextList::GetCommatext, &TTextList::SetCommatext> {};
class TVxDataLighttext : public TVxDataSerialize<TVxDataLighttext, TVxData, u"TVxDataLighttext",
                                                 &TTextList::GetLighttext, &TTextList::SetLighttext> {};
class TVxDataOffsettext : public TVxDataSerialize<TVxDataOffsettext, TVxData, u"TVxDataOffsettext",
                                                  &TTextList::GetOffsettext, &TTextList::SetOffsettext> {};
class TVxDataIntelliText : public TVxDataSerialize<TVxDataIntelliText, TVxData, u"TVxDataIntelliText",
                                                   &TTextList::GetIntellitext, &TTextList::SetIntellitext> {};
class TVxDataIdLighttext : public TVxDataSerialize<TVxDataIdLighttext, TVxDataId, u"TVxDataIdLighttext",
                                                   &TTextList::GetLighttext, &TTextList::SetLighttext> {};

}  // namespace vx
