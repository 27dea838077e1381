// A configuration file shared by several processes. The unit's header tells the whole.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string_view>
#include <vector>

#include "objects/uVxClasses/TVxStringList.h"
#include "objects/uVxGenerics/GSortList.h"
#include "platform/CustomIniFile.h"
#include "platform/Encoding.h"
#include "platform/THashedStringList.h"
#include "services/uSharedIni/IniValues.h"

namespace vx {

class TFileTurn;

enum TSharedIniOption : uint8_t {
  sioReadOnly,          // no journal: nothing ever reaches the file
  sioMemorizeDefaults,  // reads, and writes in default mode, note keys with their defaults
  sioSectionStamp,      // each stored section gets "Datum", "Zeit" and, with a user, "Benutzer"
  sioInstantWrite,      // each change is stored at once, but in a transaction
  sioInstantRead,       // each read first reloads a file that has changed, but in a transaction
  sioUtf8               // a file without a byte order mark that is valid UTF-8, ASCII alone included, is read as such
                        // and stored without a mark, and a new one made so; without the option it is of the encoding
                        // told to the constructor, mostly the code page
};
using TSharedIniOptions = Set<TSharedIniOption>;

enum TSharedIniModificationType : uint8_t {
  atModify,  // a key got a value
  atDelete,  // a key went
  atErase    // a section went; Ident is empty
};

enum TIniChange : uint8_t {
  icStored,     // the value is in the file
  icUnchanged,  // the function wanted no change
  icNotStored   // it could not be stored, which was reported through Msg; the file is as it was
};

// One entry of a journal.
struct TSharedIniModification {
  String Section;
  String Ident;
  String Value;
  TSharedIniModificationType ActionType = atModify;

  void Init() { *this = TSharedIniModification(); }
  // By Section, then Ident, without regard to case; Value and ActionType don't count.
  int Compare(const TSharedIniModification& Modify) const noexcept;
};

// A section and key occur at most once, if entries come by AddOrReplace.
class TSharedIniModifications : public GSortList<TSharedIniModification> {
 public:
  TSharedIniModifications();
  String ClassName() const override { return u"TSharedIniModifications"; }
  // The entry takes the place of one of the same section and key.
  void AddOrReplace(TSharedIniModification Modify);
  // The entry of that section and key, which stays the list's; nullptr if there is none.
  const TSharedIniModification* FindEntry(const String& Section, const String& Ident) const;
};

class TSharedIni : public TCustomIniFile {
 public:
  // Loads the file. One that can't be opened within TimeOut is told as a warning; the object is empty then, and
  // GetLoaded is 0. Encoding is that of a file without a byte order mark, nullptr for the system's code page.
  explicit TSharedIni(String FileName);
  TSharedIni(String FileName, TSharedIniOptions Options, const TEncoding* Encoding = nullptr);
  // Tells the log of a transaction that is still open.
  ~TSharedIni() override;
  String ClassName() const override { return u"TSharedIni"; }

  // --- properties ---
  // Default mode, which may nest: reads give their defaults, or those remembered, and writes write nothing.
  bool GetDefaults() const noexcept { return iDefaults > 0; }
  void SetDefaults(bool Value) noexcept;
  // Of the last load: what a byte order mark told, else as told to the constructor. nullptr: not known yet.
  const TEncoding* GetEncoding() const noexcept { return iEncoding; }
  void SetEncoding(const TEncoding* Value) noexcept { iEncoding = Value; }
  // The file's last-write time at the last load or store, in local time; 0 if it could not be read.
  TDateTime GetLoaded() const noexcept { return iLoaded; }
  bool GetMemorizeDefaults() const noexcept { return iOptions.Has(sioMemorizeDefaults); }
  void SetMemorizeDefaults(bool Value) noexcept { SetOption(sioMemorizeDefaults, Value); }
  bool GetSectionStamp() const noexcept { return iOptions.Has(sioSectionStamp); }
  void SetSectionStamp(bool Value) noexcept { SetOption(sioSectionStamp, Value); }
  TSharedIniOptions GetOptions() const noexcept { return iOptions; }
  // For how many milliseconds opening the file, and waiting for others who store, is tried.
  uint32_t GetTimeOut() const noexcept { return iTimeOut; }
  void SetTimeOut(uint32_t Value) noexcept { iTimeOut = Value; }
  // A transaction, which may nest, puts instant stores and reloads off. Opening the outermost reloads a changed
  // file with sioInstantRead; closing it stores with sioInstantWrite.
  bool GetTransaction() const noexcept { return iTransaction > 0; }
  void SetTransaction(bool Value);
  const String& GetUsername() const noexcept { return iUsername; }
  void SetUsername(const String& Value);

  // --- values ---
  String ReadString(std::u16string_view Section, std::u16string_view Ident, const String& Default) override;
  // A carriage return or line feed in any of the three is refused: a warning names the key, and nothing changes
  // (WriteData takes such texts). Blanks at the ends are kept in memory, but the file has no place for them: by the
  // next load, a store's included, the section, the key and the value stand trimmed. A key with "=" in it is parted
  // there then, and one that begins with ";" is a comment.
  void WriteString(const String& Section, const String& Ident, const String& Value) override;
  void ReadSection(std::u16string_view Section, TStrings& Strings) override;
  void ReadSections(TStrings& Strings) override;
  void ReadSectionValues(std::u16string_view Section, TStrings& Strings) override;
  // The section goes with the keys that this object knows of; one to which another process has added a key
  // meanwhile stays with that key.
  void EraseSection(const String& Section) override;
  void DeleteKey(const String& Section, const String& Ident) override;
  void UpdateFile() override { (void)Store(); }  // reports through Msg
  bool ValueExists(std::u16string_view Section, std::u16string_view Ident) override;
  bool SectionExists(std::u16string_view Section, bool EvenIfEmpty) const;
  // Whether a default of that section was remembered.
  bool DefaultSectionExists(std::u16string_view Section) const;
  // Replaces a section by the lines that have a "=" behind their first character.
  void WriteSectionValues(const String& Section, const TStrings& Strings);
  // ReadString and WriteString for texts of any characters; see IniStrToData.
  String ReadData(std::u16string_view Section, std::u16string_view Ident, const String& Default);
  void WriteData(const String& Section, const String& Ident, const String& Value);
  // Amounts, hours and days as texts that mean the same on every machine; IniValues.h tells their forms. Read gives
  // Default if there is no such key or its text is no such value; Check tells which, and takes no part in the memory of
  // defaults. A day with a time of day, or outside the years 1 to 9999, is refused: a warning names the key, and
  // nothing changes.
  Currency ReadMoney(std::u16string_view Section, std::u16string_view Ident, Currency Default);
  THourAmount ReadHours(std::u16string_view Section, std::u16string_view Ident, THourAmount Default);
  TDateTime ReadDay(std::u16string_view Section, std::u16string_view Ident, TDateTime Default);
  TIniValue<Currency> CheckMoney(std::u16string_view Section, std::u16string_view Ident);
  TIniValue<THourAmount> CheckHours(std::u16string_view Section, std::u16string_view Ident);
  TIniValue<TDateTime> CheckDay(std::u16string_view Section, std::u16string_view Ident);
  void WriteMoney(const String& Section, const String& Ident, Currency Value);
  void WriteHours(const String& Section, const String& Ident, THourAmount Value);
  void WriteDay(const String& Section, const String& Ident, TDateTime Value);
  // u"Letzte Bearbeitung: 24.12.2026, 8:30, meier" in the separators in use; empty without sioSectionStamp.
  String ReadSectionStamp(std::u16string_view Section);

  // --- the whole content; the journal stays as it is ---
  // Appends a section, also one that is there already. Its lines stay this object's.
  THashedStringList& AddSection(const String& Name);
  void Clear();
  // Takes over the content of Other; nullptr clears.
  void Assign(const TSharedIni* Other);
  // The content as lines of a file, appended to Strings; or taken from such lines.
  void GetStrings(TStrings& Strings) const;
  void SetStrings(const TStrings& Strings);

  // --- the file ---
  // Whether there are changes that are not stored.
  bool Modified() const noexcept;
  // Whether Store would write: there are changes, a file name, and no transaction that puts stores off.
  bool Storeable() const noexcept;
  // Brings the changes to the file and takes over what it holds besides; without changes, reloads a file that
  // has changed. False if a transaction puts it off, and if the file could not be opened, read again, or had from
  // others who store within TimeOut: the journal stays then, for the next Store. What a full disk does, the
  // unit's header tells.
  [[nodiscard]] virtual bool Store();
  // Loads the file again if its last-write time is not Loaded any more, or if Force tells so, and with
  // ClearModifications forgets the changes that are not stored. Whether it was loaded.
  virtual bool Reload(bool Force, bool ClearModifications);
  virtual void ModificationsClear();
  // Entries for the journal; they replace those of the same section and key.
  void AddModifications(const TSharedIniModifications& List);
  // Changes one key so that no change by another process is lost: takes the turn to store, reads the file, calls
  // Function with the value of the key, empty if there is none, and stores what it makes of it. Function is called at
  // most once, and gives false for no change; what it raises goes to the caller, with nothing stored. It must not store
  // in the same file, for which it would wait in vain. A waiting change of the key counts as its value and is stored
  // with it; other waiting changes go on waiting. icNotStored also on a full disk, in default mode, in a transaction
  // that puts stores off, without a file name and with sioReadOnly.
  // Once it gives icStored, the value is in the file. A process that is killed before that leaves the old or the new
  // value, and nothing else of the change.
  [[nodiscard]] virtual TIniChange Change(const String& Section, const String& Ident,
                                          FunctionRef<bool(String& Value)> Function);

 protected:
  // Reads the file; its last-write time, or 0 if there is none or it can't be opened.
  virtual TDateTime LoadValues();
  // Writes the content of Target to its file, in this object's encoding. Whether the file could be opened.
  [[nodiscard]] virtual bool StoreValues(TSharedIni& Target);
  // Stores the changes of Ini, but all of Origin if its file is not there or empty by the time that it has its turn.
  // If that failed, the changes come into the journal of Origin.
  [[nodiscard]] static bool StoreOrMake(TSharedIni& Ini, TSharedIni& Origin);
  // Makes the content of Origin that of Path, unless there is one by the time that it has its turn; Begin is called
  // before. False if that failed.
  [[nodiscard]] static bool MakeFrom(const TSharedIni& Origin, const String& Path, const std::function<void()>& Begin);
  // The same in the file of Ini, a fresh object: a waiting change of Origin counts, and a file that is not there gets
  // all that Origin holds. Origin takes the value over.
  [[nodiscard]] static TIniChange ChangeIn(TSharedIni& Ini, TSharedIni& Origin, const String& Section,
                                           const String& Ident, FunctionRef<bool(String& Value)> Function);
  // nullptr with sioReadOnly.
  const TSharedIniModifications* GetModifications() const { return iModifications ? &Journal() : nullptr; }

 private:
  // The stamp of all sections that one store touches.
  struct TStamp {
    String Date, Time, User;
  };
  // What tells of a change of the file besides its last-write time, which some drives know to a second only.
  struct TMark {
    int64_t Size = 0;
    uint64_t Id = 0;
    bool operator==(const TMark&) const = default;
  };

  struct TEntryOrder {
    bool operator()(const TSharedIniModification& A, const TSharedIniModification& B) const noexcept {
      return A.Compare(B) < 0;
    }
  };

  // Makes the directory of a file if it is missing.
  static void MakeDirectory(const String& FileName);
  void Modification(const String& Section, const String& Ident, const String& Value, TSharedIniModificationType Type);
  void NewEntry(TSharedIniModification Entry);
  // The whole journal, which is there.
  const TSharedIniModifications& Journal() const;
  void InstantRead();
  void InstantWrite();
  void Memorize(std::u16string_view Section, std::u16string_view Ident, const String& Value);
  // The lines of the first section of that name, and the line of a key in it; nullptr if there is none.
  THashedStringList* Lines(std::u16string_view Section) const;
  const String* FindLine(std::u16string_view Section, std::u16string_view Ident) const;
  bool HasKeys(std::u16string_view Section) const;
  template <typename F>
  void ReadLines(std::u16string_view Section, TStrings& Strings, F Take);
  template <typename T, typename F>
  TIniValue<T> CheckKey(std::u16string_view Section, std::u16string_view Ident, F Read);
  void TakeLine(const String& Text, THashedStringList*& Section);
  // The content as the text of a file.
  template <typename F>
  void ForEachPiece(F Take) const;
  String GetText() const;
  void SetText(const String& Text);
  static TMark MarkOf(const String& FileName);
  bool IsFileAsLoaded() const;
  bool InTurn(const std::function<bool()>& Work);
  bool IsToBeMade() const;
  bool ChangeInTurn(const TSharedIni& Origin, const TSharedIniModification& Key, TIniChange& Result, String& Value,
                    FunctionRef<bool(String& Value)> Function);
  void TakeStored(const TSharedIniModification& Key);
  void PutLine(const String& Section, const String& Ident, const String& Value);
  bool IsUtf8WithoutMark(std::string_view Bytes) const noexcept;
  bool StoreMerged();
  bool StoreWhole();
  bool Replay(TSharedIni& Other, std::vector<String>& Changed) const;
  TStamp MakeStamp() const;
  void WriteStamp(TSharedIni& Target, std::span<const String> Sections, const TStamp& Stamp);
  void SetOption(TSharedIniOption Option, bool Value) noexcept {
    Value ? iOptions.Include(Option) : iOptions.Exclude(Option);
  }

  std::unique_ptr<TSharedIniModifications> iDefaultList;  // remembered defaults
  int iDefaults = 0;
  const TEncoding* iEncoding = nullptr;
  TDateTime iLoaded = 0;
  std::unique_ptr<TSharedIniModifications> iModifications;  // the journal, but for
  // what came since it was read last: it goes there at once, as a place for each among many would be dear.
  mutable std::set<TSharedIniModification, TEntryOrder> FNewEntries;
  TSharedIniOptions iOptions;
  std::unique_ptr<THashedStringList> iSections;  // names; the lines of each stand beside it
  uint32_t iTimeOut = 1000;
  int iTransaction = 0;
  String iUsername;
  const TSharedIni* FOrigin = nullptr;  // whose content comes into a file that is not there; nullptr: this one's
  const TFileTurn* FTurn = nullptr;     // while it is stored
  bool FIsWhole = true;                 // whether the last load could read all
  bool FIsWritten = true;               // whether the last store could write all
  bool FIsUnmarked = false;             // whether the file is UTF-8 without a mark
  const TEncoding* FGiven = nullptr;    // the encoding told to the constructor
  TMark FMark;                          // of the file at the last load or store
  TDateTime FStored = 0;                // the last-write time of the file as StoreValues left it
};

}  // namespace vx
