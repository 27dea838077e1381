// The subtypes: named lists of domain values, each a symbol that is stored and a German text that is shown.
//
// There are 27, with the keys NATIONALITY, FEDERALSTATE, RELIGION, SEX, FAMSTATUS, UNTERBRINGUNG,
// VERSORGUNG, PFLEGESTUFE, SGBXILEISTUNGSART, SGBXIRESTAN, BESCHSTATUS, BERUF, BESCHART, BERUFSABSCHLUSS,
// WOCHENTAGE, PATTERMINGRUPPEN, MITTERMINGRUPPEN, PATRELATION, LASTSCHRIFT, ABWESENHEITANSPRUCH,
// ABWESENHEITARBEITSZEIT, ABWESENHEITRUNDUNG, ABWESENHEITSPEZIALISIERUNG, ANSPRUCHPRECISION, BOOLEXT,
// ABRRUNDUNG and MEDITYP. In several of them an empty first entry stands for no selection, and a symbol may
// stand twice: looking it up finds the first one.
//
// Example:
//   vx::SubtypeSymbolToText(u"FamStatus", u"2");     // u"verheiratet"
//   vx::getSubTypeSymbol(u"NATIONALITY", 1);         // u"276"
//
// Case does not count in keys, symbols and texts; entries count from 0. What is unknown gives an empty text.
//
// The lists are built at first use; any number of threads may look up. Pitfall: a misspelt key gives empty texts,
// and raises in SubtypeIdContent alone.
#pragma once

#include <string_view>

#include "platform/String.h"
#include "platform/TStrings.h"

namespace vx {

// The text or the symbol at Index.
String getSubTypeText(std::u16string_view Key, int Index);
String getSubTypeSymbol(std::u16string_view Key, int Index);
// The first entry whose symbol is Value; if there is none, the first whose text is; else -1.
int getSubTypeIndex(std::u16string_view Key, std::u16string_view Value);
// Each takes a symbol or a text.
String SubtypeSymbolToText(std::u16string_view Key, std::u16string_view Symbol);
String SubtypeTextToSymbol(std::u16string_view Key, std::u16string_view Text);
// The commatext of the texts.
String SubtypeContent(std::u16string_view Key);
// A commatext that has for each entry the commatext of its symbol and text. EArgumentException for an
// unknown key.
String SubtypeIdContent(std::u16string_view Key);
// The keys of all lists, in the order of the alphabet, as commatext.
String SubtypeKeys();
// The text of a federal state, Austrian Land or Swiss canton by its number.
String Bundesland(int Id);
// Makes Strings the texts of FEDERALSTATE, each with its number as object (an integer, not a pointer to follow
// or to free), the last one with 0. If Selection, a commatext of numbers, is not empty, only those numbers, 0
// and Current stay. Strings are replaced only if their texts differ, so that a control keeps its state. The
// result is the index in Strings of the first item that has the number Current, or 0.
int GetCountries(TStrings& Strings, std::u16string_view Selection, int Current);

namespace subtypes {

// Frees the parsed lists; the next use builds them again. Part of uConst::FreeBuffersForLeakPrevention.
void Free() noexcept;

}  // namespace subtypes

}  // namespace vx
