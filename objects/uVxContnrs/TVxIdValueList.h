// A number for each id.
#pragma once

#include "objects/uVxClasses/TVxIdList.h"

namespace vx {

// How the values stand in the text of a TVxIdValueList.
enum TVxIdValueListType : uint8_t {
  vtInteger,  // in decimal digits
  vtDate      // as days since 30.12.1899, by u"dd.mm.yyyy"
};

// Ids in ascending order, each once, with a value each. Positions count from 0 in the order of the ids;
// one outside the list raises EListError, and nothing has changed then.
class TVxIdValueList : public TObject {
 public:
  explicit TVxIdValueList(TVxIdValueListType ValueType = vtInteger) noexcept : iValueType(ValueType) {}
  String ClassName() const override { return u"TVxIdValueList"; }

  TVxIdValueListType GetValueType() const noexcept { return iValueType; }
  void SetValueType(TVxIdValueListType Value) noexcept { iValueType = Value; }
  int GetCount() const noexcept { return iIds.GetCount(); }

  // Sets the value of Id, which is new or not; returns the place.
  int Add(int Id, int Value);
  // Adds to the value of Id and returns the new one, which wraps around beyond 32 bits. 0 for an unknown
  // id, and nothing is added.
  int AddValue(int Id, int Inc);
  // Add for each pair of List, at the cost of one walk over both.
  void AddList(const TVxIdValueList& List);
  void Clear() noexcept;
  // All values 0; the ids stay.
  void ClearValues();

  // The place where the id stood, -1 if it is unknown.
  int Delete(int Id);
  void DeleteIndex(int Index);
  // Deletes the id and returns its value; 0 if it is unknown.
  int Remove(int Id);

  // Whether the id is there; Value is 0 if not.
  bool Find(int Id, int& Value) const;
  // The least id with that value; false and 0 if there is none. Looks through the whole list.
  bool FindValue(int Value, int& Id) const;
  // -1 if it is unknown.
  int IndexOf(int Id) const { return iIds.IndexOf(Id); }
  bool IsIn(int Id) const { return IndexOf(Id) >= 0; }
  // 0 for an unknown id.
  int GetValue(int Id) const;
  // Nothing happens for an unknown id.
  void SetValue(int Id, int Value);
  // By position.
  int GetId(int Index) const { return iIds.Get(Index); }
  int GetVal(int Index) const { return iValues.Get(Index); }
  void SetVal(int Index, int Value) { iValues.Put(Index, Value); }
  // The ids, or else the values, place for place.
  const TVxIntegerList& GetList(bool Ids) const noexcept;

  // The list as csv text (see platform/TextForms.h), each of whose cells is the commatext of
  // an id and its value, u"7,42" or u"7,01.02.2015"; empty for an empty list. Setting replaces the list:
  // a cell of fewer than two entries is skipped, of more the rest; what is no number or no date is 0;
  // of several cells with one id the last one counts.
  String GetCsv() const;
  void SetCsv(std::u16string_view Text);

 private:
  void AddAll(std::span<const int> Ids, std::span<const int> Values);

  TVxIdList iIds;
  TVxIntegerList iValues;
  TVxIdValueListType iValueType;
};

}  // namespace vx
