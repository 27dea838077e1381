// Configuration files that several processes read and write at the same time.
//
//   TSharedIni              one file
//   TDuplicateIni           a local mirror of a central file
//   TSharedIniModification  one change that is not stored yet
//   IniStrToData, IniDataToStr   texts with line breaks as one value, and back
//   TIniValue               a typed value of a key, or why there is none
//
// Example:
//   vx::TSharedIni ini(u"X:\\Pflege\\Station.ini");
//   ini.WriteString(u"Fenster", u"Breite", u"800");
//   if (!ini.Store()) Tell(u"Die Einstellungen sind noch nicht gespeichert.");     // the journal stays: try again
//
//   ini.Change(u"Belege", u"Nummer", [](vx::String& text) {   // vx::icStored: no other process has this number
//     text = vx::IntToStr(vx::StrToIntDef(text, 0) + 1);
//     return true;
//   });
//   ini.ReadMoney(u"Preise", u"Stunde", 42);               // an amount, whatever the settings; also hours and days
//   if (vx::TIniValue<vx::Currency> price = ini.CheckMoney(u"Preise", u"Stunde"); !price) Tell(price.GetText());
//
// Each object keeps its own copy of the file and a journal of the changes made to it. Store reads the file
// afresh, replays the journal on it, writes the result and takes it over: what other processes wrote to other
// keys stays, and becomes visible here. Who stores waits for others who store the same file, on whatever machine, and
// is refused if they take longer than TimeOut. So a change that Store acknowledged is in the file, unless a dialog told
// of a full disk. Whatever happens to the process or the disk, the file is whole, the old or the new one, as
// ReplaceFileContent has it; platform/SafeFiles.h tells what each kind of drive gets.
//
// The file: "[Section]", then its lines "key=value", then an empty line. Section names and keys are matched
// without regard to case; of what stands twice the first counts. Comments and lines before the first section
// are not kept when the file is stored. Failures are told through Msg(); nothing raises.
//
// Pitfalls:
//   - Nothing is stored by itself: what was not stored when the object ends is lost.
//   - Reload does not replay the journal: until Store, changes that are not stored are out of sight then.
//   - A write that fails on the way, on a full disk, is told as a warning, and Store is true and the journal gone all
//     the same: that is required. The file keeps its old content, and this object holds the changes until it reloads.
//   - On a network drive a change by another machine may be seen a second late by Reload; Store sees it at once.
//   - The fresh read of a store is tried for 1000 milliseconds, whatever the object's TimeOut.
//   - ReadFloat, ReadDate and their kin go by the format settings of each machine: ReadMoney, ReadHours and ReadDay
//   don't.
//   - One thread an object.
#pragma once

#include "services/uSharedIni/IniData.h"
#include "services/uSharedIni/IniValues.h"
#include "services/uSharedIni/TDuplicateIni.h"
#include "services/uSharedIni/TSharedIni.h"
