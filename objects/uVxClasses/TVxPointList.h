// The sorted set of points.
//
//   TVxPointList   points ascending by X, then by Y, each once
//
// Example:
//   vx::TVxPointList list;
//   list.Add({5, 1});
//   list.Add({2, 9});                        // 0: where it stands now
//   auto changes = list.Changes(&earlier);   // the points that came or went
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/Graphics.h"
#include "platform/TObject.h"

namespace vx {

// Indexes count from 0; one outside the list raises EListError with SListIndexError, and nothing has
// changed then.
class TVxPointList : public TObject {
 public:
  TVxPointList() = default;
  TVxPointList(const TVxPointList&) = delete;
  TVxPointList& operator=(const TVxPointList&) = delete;
  String ClassName() const override { return u"TVxPointList"; }

  int GetCount() const noexcept { return static_cast<int>(FItems.size()); }
  TPoint Get(int Index) const;
  // All points, for walking; ends with the next change of the list.
  std::span<const TPoint> Items() const noexcept { return FItems; }

  // The difference of the X or, if they are equal, of the Y.
  static constexpr int64_t ComparePoint(const TPoint& A, const TPoint& B) noexcept {
    return A.X != B.X ? int64_t{A.X} - B.X : int64_t{A.Y} - B.Y;
  }
  // Where Point stands or has to stand: 0 to the count.
  int IndexSort(const TPoint& Point) const noexcept;
  // Where Point stands now, or stood before.
  int Add(const TPoint& Point);
  // -1 if it is not in the list.
  int IndexOf(const TPoint& Point) const noexcept;
  bool Contains(const TPoint& Point) const noexcept { return IndexOf(Point) >= 0; }
  void Delete(int Index);
  // Returns where Point stood, or -1.
  int Remove(const TPoint& Point);
  void Clear() noexcept { FItems.clear(); }
  // The points that are in exactly one of the two lists; with nullptr a copy of this one.
  [[nodiscard]] std::unique_ptr<TVxPointList> Changes(const TVxPointList* Points) const;

  // Refused: a warning that names the class, and nothing changes.
  virtual void Exchange(int A, int B);
  virtual void Insert(int Index, const TPoint& Point);
  virtual void Move(int From, int To);

 private:
  void CheckIndex(int Index) const;
  void Refuse(std::u16string_view Function) const;

  std::vector<TPoint> FItems;
};

}  // namespace vx
