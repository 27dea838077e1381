#include "objects/uVxObjects/Structure.h"

#include "core/uConst.h"
#include "core/uVxFunctionsSerialize.h"
#include "objects/uVxObjects/Heads.h"
#include "platform/Text.h"

namespace vx {

namespace {

constexpr char16_t kPathSeparator = u'\u00FF';

// The fields of Self and of its ancestors below Deepest, the oldest first. Classes without a description
// of their own are left out: what they have is an ancestor's.
TDataHeads HeadsBelow(const TVxClass& Self, const TVxClass* Deepest) {
  if (!Deepest) return GetDataHeads(Self, true);
  TDataHeads result;
  for (const TVxClass* level = &Self; level && level != Deepest; level = level->ClassParent()) {
    const TDataHeads& heads = GetDataHeads(*level, false);
    if (heads.empty() || heads[0].classtype != level) continue;
    result.insert(result.begin(), heads.begin(), heads.end());
  }
  return result;
}

bool IsPlainField(const TDataHeadRecord& Head) {
  // The first text of a list of domain values may be empty, for no selection.
  return IsVxFieldType(Head.typ) || !getSubTypeText(Head.typ, 0).empty() || !getSubTypeText(Head.typ, 1).empty();
}

bool IsMarker(const String& Name) { return Name.size() > 1 && Name[0] == u'-' && IsDigit(Name[1]); }

// A node that is not opened yet, which its one entry tells.
std::unique_ptr<TVxParserObject> ClosedNode(const TVxClass& Self, const TDataHeadRecord& Head) {
  auto result = std::make_unique<TVxParserObject>(&Self, Head.name, Head.typ, Head.classtype);
  result->Add(std::make_unique<TVxParserEntryObject>(Head.classtype, u"+", u"vftString"));
  return result;
}

}  // namespace

std::unique_ptr<TVxParserObject> TVxObject::GetObjectStructur(const TVxClass& Self, TVxStringList& BlockList,
                                                              const String& Name, const TVxClass* OwnType, int Ebene,
                                                              const TVxClass* DeepestClass) {
  const String key = Name + Self.ClassName();
  if (BlockList.IndexOf(key) >= 0) return std::make_unique<TVxParserObject>(&Self, u"LeerOBJ", u"Leer");
  BlockList.Add(key);
  const size_t separator = Name.view().rfind(kPathSeparator);
  const String ownName = separator == std::u16string_view::npos ? Name : Name.Slice(static_cast<int>(separator) + 1);
  auto result = std::make_unique<TVxParserObject>(&Self, ownName, Self.ClassName(), OwnType);
  for (const TDataHeadRecord& head : HeadsBelow(Self, DeepestClass)) {
    if (IsPlainField(head)) {
      result->Add(std::make_unique<TVxParserEntryObject>(&Self, head.name, head.typ));
    } else if (!head.classtype || Ebene < 0 || IsMarker(head.name)) {
      result->Add(ClosedNode(Self, head));
    } else {
      // A name without characters counts as one on the way already: the walk has to come to an end.
      const bool isNew = Pos(head.name, Name) == 0 && !head.name.empty() && OwnType != head.classtype &&
                         !Self.InheritsFrom(*head.classtype);
      const String path = Concat({Name, {&kPathSeparator, 1}, head.name});
      result->Add(
          head.classtype->GetObjectStructur(BlockList, path, head.classtype, isNew ? Ebene : Ebene - 1, nullptr));
    }
  }
  return result;
}

void TVxParserEntryObject::Assignto(TVxParserEntryObject* Other) const {
  if (!Other) return;
  Other->iName = iName;
  Other->iOwnType = iOwnType;
  Other->iParentClass = iParentClass;
  Other->iTyp = iTyp;
}

bool TVxParserEntryObject::Equals(const TVxParserEntryObject* Other) const {
  return Other && iName == Other->iName && iTyp == Other->iTyp && iOwnType == Other->iOwnType &&
         iParentClass == Other->iParentClass;
}

bool TVxParserObject::Add(std::unique_ptr<TVxParserEntryObject> Entry) {
  if (!Entry) return false;
  iData.push_back(std::move(Entry));
  return true;
}

int TVxParserObject::GetSize() const {
  int result = 0;
  for (const auto& child : iData) {
    const auto* node = dynamic_cast<const TVxParserObject*>(child.get());
    result += node ? node->GetSize() : 1;
  }
  return result;
}

void TVxParserObject::AddProperties(const String& Path, TVxStringList& List) const {
  for (const auto& child : iData) {
    const auto* node = dynamic_cast<const TVxParserObject*>(child.get());
    if (!node) {
      List.AddObject(Path + child->GetName(), child.get());
      continue;
    }
    node->AddProperties(
        Concat({Path, node->iBridgeFlag ? u"-<>-" : u"", node->iListFlag ? u"|[] " : u"", node->GetName(), u"|"}),
        List);
  }
}

std::unique_ptr<TVxStringList> TVxParserObject::GetPropertyList() const {
  auto result = std::make_unique<TVxStringList>();
  AddProperties({}, *result);
  return result;
}

std::unique_ptr<TVxStringList> TVxParserObject::GetShortPropertyList() const {
  auto result = std::make_unique<TVxStringList>();
  for (const auto& child : iData) result->Add(child->GetName());
  return result;
}

void TVxParserObject::Assignto(TVxParserEntryObject* Other) const {
  if (Other == this) return;
  TVxParserEntryObject::Assignto(Other);
  auto* other = dynamic_cast<TVxParserObject*>(Other);
  if (!other) return;
  std::vector<std::unique_ptr<TVxParserEntryObject>> children;
  for (const auto& child : iData) {
    if (dynamic_cast<const TVxParserObject*>(child.get())) {
      children.push_back(std::make_unique<TVxParserObject>());
    } else {
      children.push_back(std::make_unique<TVxParserEntryObject>());
    }
    child->Assignto(children.back().get());
  }
  other->iBridgeFlag = iBridgeFlag;
  other->iLinkedElement = iLinkedElement;
  other->iListFlag = iListFlag;
  other->iData = std::move(children);
}

bool TVxParserObject::Equals(const TVxParserEntryObject* Other) const {
  if (!TVxParserEntryObject::Equals(Other)) return false;
  const auto* other = dynamic_cast<const TVxParserObject*>(Other);
  return !other || (iData.size() == other->iData.size() && iBridgeFlag == other->iBridgeFlag &&
                    iLinkedElement == other->iLinkedElement && iListFlag == other->iListFlag);
}

std::unique_ptr<TVxParserObject> TVxVirtualList::GetObjectStructur(const TVxClass& Self, TVxStringList& BlockList,
                                                                   const String& Name, const TVxClass* OwnType,
                                                                   int Ebene, const TVxClass* DeepestClass) {
  auto result = TVxVirtualType::GetObjectStructur(Self, BlockList, Name, OwnType, Ebene, DeepestClass);
  result->SetIsList(true);
  return result;
}

}  // namespace vx
