// The handlers of a signal, and a walk through them that bears every change.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/Method.h"
#include "platform/TObjectList.h"

namespace vx {

class TNotifyHandlerEnumerator;

// Told of each addition, extraction and deletion, after it was made.
using TNotifyHandlerListEvent = Method<void(TObject* Ptr, TListNotification Action)>;

// A list of handlers, which it owns unless told otherwise. Walks under way hear of every change.
class TNotifyHandlerList : public TObjectList {
 public:
  explicit TNotifyHandlerList(bool OwnsObjects = true) noexcept : TObjectList(OwnsObjects) {}
  // Walks that are still under way end.
  ~TNotifyHandlerList() override;
  String ClassName() const override { return u"TNotifyHandlerList"; }

  const TNotifyHandlerListEvent& GetOnNotify() const noexcept { return iOnNotify; }
  void SetOnNotify(TNotifyHandlerListEvent Value) noexcept { iOnNotify = Value; }
  // A new walk, which is the caller's and must end before the list and before walks that began earlier.
  [[nodiscard]] std::unique_ptr<TNotifyHandlerEnumerator> GetEnumerator();

 protected:
  // Each walk takes its copy of the list as it stands.
  void Changing() override;
  // The inherited notification, then OnNotify, then the walks.
  void Notify(TObject* Object, TListNotification Action) override;

 private:
  friend class TNotifyHandlerEnumerator;
  TNotifyHandlerListEvent iOnNotify;
  TNotifyHandlerEnumerator* FWalks = nullptr;  // the latest one
};

// Walks from the end of the list to its start, that is from the oldest handler to the newest, over the list as
// it stands when the walk begins, less what is taken out before its turn. It copies the list only when a change
// is about to be made.
//
//   vx::TNotifyHandlerEnumerator walk(list);
//   while (walk.MoveNext()) Use(walk.GetCurrent());
class TNotifyHandlerEnumerator : public TObject {
 public:
  explicit TNotifyHandlerEnumerator(TNotifyHandlerList& List) noexcept
      : iListO(&List), FItems(List.Items()), iIndex(List.GetCount()), FEarlier(List.FWalks) {
    List.FWalks = this;
  }
  ~TNotifyHandlerEnumerator() override {
    if (iListO != nullptr) Leave();
  }
  TNotifyHandlerEnumerator(const TNotifyHandlerEnumerator&) = delete;
  TNotifyHandlerEnumerator& operator=(const TNotifyHandlerEnumerator&) = delete;
  String ClassName() const override { return u"TNotifyHandlerEnumerator"; }

  // Goes on to the next handler; false if there is none.
  bool MoveNext() noexcept { return iIndex >= 0 && --iIndex >= 0; }
  // The handler the walk stands at, which stays the list's; nullptr before the first and behind the last. If that
  // handler was taken out of the list meanwhile, the one before it: go on by MoveNext then.
  TObject* GetCurrent() const noexcept {
    return static_cast<size_t>(iIndex) < FItems.size() ? FItems[static_cast<size_t>(iIndex)] : nullptr;
  }
  // Whether the list is still there.
  bool HasList() const noexcept { return iListO != nullptr; }

 private:
  friend class TNotifyHandlerList;
  void Freeze();
  void Notification(const TObject* Ptr, TListNotification Action) noexcept;
  // Walks end in the reverse of their start as a rule.
  void Leave() noexcept {
    if (iListO->FWalks != this) return LeaveAmongOthers();
    iListO->FWalks = FEarlier;
  }
  void LeaveAmongOthers() noexcept;

  TNotifyHandlerList* iListO;
  std::vector<TObject*> iListC;      // the private copy, once the list is about to change
  std::span<TObject* const> FItems;  // those of the list or of the copy
  bool FIsCopied = false;
  int iIndex;
  TNotifyHandlerEnumerator* FEarlier;  // the walk that began before this one
};

}  // namespace vx
