// The descriptions of classes: making them, keeping them, and the way from a call path to a field.
#pragma once

#include "objects/uVxObjects/TVxObject.h"
#include "platform/Types.h"

namespace vx {

// Builds a class's description:
//
//   static vx::TDataHeads DataHeads(const vx::TVxClass& Self, bool Hierarchy) {
//     vx::TDataHeadRecordList heads(u"-2001", u"TVisit", &Class());
//     if (Hierarchy) heads.AddRange(TVxData::DataHeads(Self, true));
//     heads.Add(u"Datum", u"vftDate");
//     heads.Add(u"Patient", u"TPatient", &TPatient::Class());
//     return heads.getDHRecords();
//   }
//
// The marker names Class(), not Self: descendants without a description of their own are known by that.
class TDataHeadRecordList {
 public:
  // Begins with the marker.
  TDataHeadRecordList(String Name, String Type, const TVxClass* Class);
  void Add(String Name, String Type, const TVxClass* Class = nullptr);
  // Appends all records of the list.
  void AddRange(TDataHeads List);
  const TDataHeads& getDHRecords() const noexcept { return FList; }

 private:
  TDataHeads FList;
};

// The description of a class: what its DataHeads says, which is asked only once. Lives until
// ClearDataheads. Not for use beside other threads.
const TDataHeads& GetDataHeads(const TVxClass& Class, bool Hierarchy);
// Forgets the descriptions of all classes.
void ClearDataheads() noexcept;

// Splits a call path: Head is what stands before the first u"|" and Tail what stands behind it; without
// one Head is all and Tail is empty. Path may be Head or Tail.
void GetSearchString(const String& Path, String& Tail, String& Head);

// The type of the field at the end of a call path such as u"Kinder|[3]|Name": the name of a field type or,
// for a marker or a linked object, of a class. A marker is found with and without its u"-". Elements that
// are indexes are passed over, as are unknown ones. u"vftString" for no class and where nothing is known.
String getEntryInfo(const TVxClass* Class, const String& Call);

// A request for a value on its way down a call path.
struct TValueOfRecord {
  TValueOfRecord(TDateTime Date, String Call, String Value, const TVxClass* Class)
      : aClass(Class), aCall(std::move(Call)), aValue(std::move(Value)), DT(Date) {}

  // Which field of aClass the first element of aCall names: its place in the description without ancestors,
  // 0 for the marker (with or without its u"-"), 1 for the first field; -1 for none and without a class.
  // Tail is the rest of the call.
  int GetValueOfPos(String& Tail) const;
  // The same for a call that begins with an index such as u"[3]": ListPos is the number, 0 for what is
  // none, and the field is that of the next element.
  int GetListValueOfPos(String& Tail, int& ListPos) const;

  const TVxClass* aClass;  // in which the call is resolved
  String aCall;            // elements joined by u"|"
  String aValue;           // read or to be written
  TDateTime DT;            // the date for which the value holds
};

}  // namespace vx
