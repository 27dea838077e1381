// A search key that is made once.
#pragma once

#include "objects/uVxObjects/TVxData.h"

namespace vx {

// A TVxDataId to search lists with that are sorted by id, with no object made for a search. There is one
// slot for the class and all that derive from it: the class of whoever asks first decides. Each thread has a
// slot of its own, so that threads may search at once; what it holds at the thread's end is freed.
//
//   int place = patients.IndexSort(vx::TVxDataIdSingleton::Singleton(4711));
class TVxDataIdSingleton : public TVxClassed<TVxDataIdSingleton, TVxDataId, u"TVxDataIdSingleton"> {
 public:
  // Not meant to be called: shows a warning. The object is made all the same.
  TVxDataIdSingleton();
  // Leaves the slot empty if it holds this object.
  ~TVxDataIdSingleton() override;

  // The slot's object with that id, made as a TSelf if there is none yet. It stays the slot's.
  template <typename TSelf = TVxDataIdSingleton>
  static TVxDataIdSingleton* Singleton(int Id) {
    TVxDataIdSingleton* probe = AccessSingleton<TSelf>(1);
    probe->SetId(Id);
    return probe;
  }
  // Request 0 gives what is stored, which may be nullptr; 1 makes a TSelf if nothing is; 2 empties the
  // slot without freeing and gives nullptr. Any other raises Exception "Illegal request %d in
  // AccessSingleton". A TSelf is made by its constructor that takes a bool.
  template <typename TSelf = TVxDataIdSingleton>
  static TVxDataIdSingleton* AccessSingleton(int Request) {
    return Access(Request, [] { return static_cast<TVxDataIdSingleton*>(new TSelf(true)); });
  }
  // Frees the stored object, if there is one.
  static void ReleaseSingleton() { delete AccessSingleton(0); }

  // The id in decimal digits, 0 for a text that is no number.
  String GetSerialize() const override;
  void SetSerialize(const String& Value) override;

 protected:
  // Stays silent.
  explicit TVxDataIdSingleton(bool) {}

 private:
  static TVxDataIdSingleton* Access(int Request, TVxDataIdSingleton* (*Make)());
};

namespace uVxGenerics {

// Frees the calling thread's search key; the next use makes it anew.
void FreeBuffersForLeakPrevention();

}  // namespace uVxGenerics

}  // namespace vx
