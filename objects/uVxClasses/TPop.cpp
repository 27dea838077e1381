#include "objects/uVxClasses/TPop.h"

#include "core/uVxFunctionsSerialize/TrimLines.h"

namespace vx {

TPop::TPop(const TVxStringList* Data, int Ind, int EndOfGroup, bool Success)
    : iData(Data), iInd(Ind), iEndOfGroup(EndOfGroup), iSuccess(Success) {
  if (Data && EndOfGroup < 0) iEndOfGroup = Data->GetCount() - 1;
}

TPop::TPop(const TVxStringList* Data, std::u16string_view SelfName, bool Success) : iData(Data), iSuccess(Success) {
  bool found = Data && GetMyCommatext(SelfName, *Data, iInd, iEndOfGroup);
  iSuccess = Success && found;
}

String TPop::Pop(bool BeQuiet) {
  bool isThere = iSuccess && iData && iInd >= 0 && iInd <= iEndOfGroup && iInd < iData->GetCount();
  if (isThere) return iData->Get(iInd++);
  if (!BeQuiet) iSuccess = false;
  return {};
}

}  // namespace vx
