// The keys of an index. Internal to it.
#pragma once

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxClasses/detail/KeyPieces.h"

namespace vx::detail {

// The list of texts that an index shows, which is whole whenever it is looked at. Putting a key into the middle of a
// long list moves half of it, so that the keys go over into pieces when enough has been moved; whoever asks for them
// in one piece gets a copy, and who changes that one brings them back. By that, keys may come, go and be asked for one
// by one in any mixture at about the root of their number each.
class TIndexKeys final : public TVxStringList {
 public:
  // Whether keys are compared by code units, else by AnsiCompareText. Keys that are there stay where they stand.
  void SetExact(bool Value);
  int Compare(std::u16string_view A, std::u16string_view B) const noexcept;

  int GetCount() const override { return IsAway() ? FPieces.Count() : FEntries.Count(); }
  String Get(int Index) const override;
  TObject* GetObject(int Index) const override;
  void PutObject(int Index, TObject* Object) override;
  void Delete(int Index) override;
  void Clear() override;

  // The key at Index, which is not checked, until the next change.
  const String& At(int Index) const noexcept { return IsAway() ? FPieces.Text(Index) : FEntries.Text(Index); }
  // For keys in no order: what the steps of the search lead to.
  TFoundKey Search(std::u16string_view Key) const;
  // Whether each key stands behind the one before it.
  bool IsInOrder() const;
  // Index is where the key belongs.
  void InsertKey(int Index, String Text, TObject* Object);
  // The object, which nobody frees.
  TObject* ExtractKey(int Index);
  // Puts in many keys; each knows how many of those that are there stand before it, in ascending order.
  struct TNewKey {
    int Before;
    String Text;
    TObject* Object;
  };
  void InsertKeys(std::span<const TNewKey> Keys);

 protected:
  const std::type_info& Kind() const noexcept override { return typeid(TVxStringList); }
  void Fetch() const override;
  void TakeBack() override;

 private:
  bool IsAway() const noexcept { return FPlace.load(std::memory_order_acquire) == lpAway; }
  void CheckIndex(int Index) const;
  // Before a key comes or goes at Index: changes to pieces if it is time.
  void PrepareChange(int Index);

  TKeyPieces FPieces;  // while the keys are away, or in both places
  int64_t FMoved = 0;  // entries, since the keys came into one piece
  bool FIsExact = true;
};

}  // namespace vx::detail
