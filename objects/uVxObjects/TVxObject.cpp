#include "objects/uVxObjects/TVxObject.h"

#include <functional>

namespace vx {

namespace {

struct TCaption {
  std::u16string_view Article;
  std::u16string_view Noun;
};
// By number and case; the first is the bare noun.
constexpr TCaption kCaptions[2][5] = {
    {{u"", u"Objekt"}, {u"das", u"Objekt"}, {u"des", u"Objektes"}, {u"dem", u"Objekt"}, {u"das", u"Objekt"}},
    {{u"", u"Objekte"}, {u"die", u"Objekte"}, {u"der", u"Objekte"}, {u"den", u"Objekten"}, {u"die", u"Objekte"}}};

}  // namespace

TVxObject::TVxObject() {
  if (DoCountObjects) CountObject(&TVxObject::Class, 1);
}

TVxObject::TVxObject(const TVxObject& Other) : TObject(Other) {
  if (DoCountObjects) CountObject(&TVxObject::Class, 1);
}

TVxObject::~TVxObject() {
  if (DoCountObjects) CountObject(&TVxObject::Class, -1);
}

const TVxClass& TVxObject::Class() {
  static const TVxClassOf<TVxObject>& descriptor = *new TVxClassOf<TVxObject>(u"TVxObject", nullptr);
  return descriptor;
}

TDataHeads TVxObject::DataHeads(const TVxClass&, bool) { return {}; }

String TVxObject::Caption() const { return u"object of " + ClassName(); }

String TVxObject::ClassCaption(const TVxClass& Self, bool Plural, int Fall) {
  if (Fall > 4) return Self.ClassCaption(Plural, 0);
  const TCaption& caption = kCaptions[Plural][std::max(Fall, 0)];
  return Fall > 0 ? Concat({caption.Article, u" ", caption.Noun}) : String(caption.Noun);
}

void TVxObject::InitOptionalized(const TVxClass&, TVxObject*) {}

int TVxObject::ProcessId(const TVxClass&) { return 0; }

String TVxObject::ProcessData() const { return {}; }

int TVxObject::Compare(const TVxObject& Other) const {
  const std::less<const TVxObject*> isLess;
  return isLess(this, &Other) ? -1 : isLess(&Other, this) ? 1 : 0;
}

std::unique_ptr<TVxObject> TVxObject::GetNewInstance() const { return ClassType().NewInstance(); }

bool TVxObject::Permission(const TVxClass& Self, TVXPermissionSet& SubPermission, String& Desc, String& Comment) {
  SubPermission = {};
  Desc = Self.ClassName();
  Comment.clear();
  return false;
}

String TVxObject::ValueOf(TDateTime, const String&, const String&, bool) { return {}; }

}  // namespace vx
