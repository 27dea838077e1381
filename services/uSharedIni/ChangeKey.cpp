// One key read, changed and stored in one turn.
#include "services/uSharedIni/TSharedIni.h"

namespace vx {

TIniChange TSharedIni::Change(const String& Section, const String& Ident, FunctionRef<bool(String& Value)> Function) {
  TSharedIniOptions options;
  for (TSharedIniOption option : {sioSectionStamp, sioUtf8}) {
    if (iOptions.Has(option)) options.Include(option);
  }
  TSharedIni file(GetFileName(), options, FIsUnmarked ? FGiven : iEncoding);
  file.SetTimeOut(iTimeOut);
  file.SetUsername(iUsername);
  return ChangeIn(file, *this, Section, Ident, Function);
}

TIniChange TSharedIni::ChangeIn(TSharedIni& Ini, TSharedIni& Origin, const String& Section, const String& Ident,
                                FunctionRef<bool(String& Value)> Function) {
  const bool isPutOff = Origin.GetTransaction() && Origin.iOptions.Has(sioInstantWrite);
  if (isPutOff || Origin.GetDefaults() || !Origin.iModifications || Ini.GetFileName().empty()) return icNotStored;
  TIniChange result = icNotStored;
  TSharedIniModification key{Section, Ident, String(), atModify};
  const bool isDone = Ini.InTurn([&] { return Ini.ChangeInTurn(Origin, key, result, key.Value, Function); });
  if (isDone && result == icStored) Origin.TakeStored(key);
  return isDone ? result : icNotStored;
}

bool TSharedIni::ChangeInTurn(const TSharedIni& Origin, const TSharedIniModification& Key, TIniChange& Result,
                              String& Value, FunctionRef<bool(String& Value)> Function) {
  if (GetFileName() != Origin.GetFileName()) FOrigin = &Origin;
  if (IsToBeMade()) {
    Assign(&Origin);
    iEncoding = Origin.iEncoding;
    FIsUnmarked = Origin.FIsUnmarked;
  } else {
    iLoaded = LoadValues();
    if (iLoaded == 0 || !FIsWhole) return false;
  }
  const TSharedIniModification* waiting = Origin.Journal().FindEntry(Key.Section, Key.Ident);
  const String* line = FindLine(Key.Section, Key.Ident);
  if (waiting != nullptr) {
    Value = waiting->Value;
  } else if (line != nullptr) {
    Value = line->Slice(Key.Ident.size() + 1);
  }
  if (!Function(Value)) {
    Result = icUnchanged;
    return true;
  }
  WriteString(Key.Section, Key.Ident, Value);
  if (!Modified()) return false;  // it has a line break, which was told
  if (GetSectionStamp()) WriteStamp(*this, {&Key.Section, 1}, MakeStamp());
  if (!StoreValues(*this) || !FIsWritten) return false;
  Result = icStored;
  return true;
}

// What was stored for this object.
void TSharedIni::TakeStored(const TSharedIniModification& Key) {
  (void)Journal();
  if (int place; iModifications->Find(Key, place)) iModifications->Delete(place);
  PutLine(Key.Section, Key.Ident, Key.Value);
}

}  // namespace vx
