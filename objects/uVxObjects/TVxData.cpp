#include "objects/uVxObjects/TVxData.h"

#include "platform/Numbers.h"

namespace vx {

namespace {

std::unique_ptr<TVxData> AsData(std::unique_ptr<TVxObject> Object) {
  std::unique_ptr<TVxData> result(dynamic_cast<TVxData*>(Object.get()));
  if (result) static_cast<void>(Object.release());  // the result has it
  return result;
}

}  // namespace

void TVxData::Assign(const TVxData* Other) {
  if (Other) SetSerialize(Other->GetSerialize());
}

std::unique_ptr<TVxData> TVxData::Duplicate() const {
  std::unique_ptr<TVxData> result = AsData(GetNewInstance());
  if (result) result->Assign(this);
  return result;
}

bool TVxData::EqualsAll(const TVxData* Other) const {
  return Other && &Other->ClassType() == &ClassType() && Other->GetSerialize() == GetSerialize();
}

std::unique_ptr<TVxData> TVxData::Factory(const TVxClass& Self, const String& Serialize) {
  std::unique_ptr<TVxData> result = AsData(Self.NewInstance());
  if (result) result->SetSerialize(Serialize);
  return result;
}

int TVxDataId::Compare(const TVxObject& Other) const {
  const auto* other = dynamic_cast<const TVxDataId*>(&Other);
  if (!other) return TVxClassed::Compare(Other);
  if (other->iId == iId) return 0;
  return other->iId > iId ? -1 : 1;
}

String TVxDataIdHelper::GetSerialize() const { return IntToStr(iId); }

void TVxDataIdHelper::SetSerialize(const String& Value) { SetId(StrToIntDef(Value, 0)); }

}  // namespace vx
