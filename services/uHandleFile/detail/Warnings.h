// The dialogs that tell of a failed file operation. For the sources of uHandleFile only.
#pragma once

#include "platform/Dialogs.h"

namespace vx::uHandleFile {

// Behind every text that tells of a failure.
inline constexpr char16_t kAdvice[] =
    u"Das Programm wird nicht korrekt funktionieren.\r\n\r\nBitte überprüfen Sie:\r\n"
    u"1. die \"Vergabe der Rechte\" des Betriebssystems.\r\n"
    u"    Es muss Voller Lese- und Schreibzugriff gewährt werden.\r\n"
    u"2. den freien Platz auf der Festplatte.\r\n"
    u"3. die Integrität der Festplatte, zum Beispiel mit dem Windowsprogramm \"Scandisk\"\r\n"
    u"    oder der sogenannten \"Fehlerüberprüfung\".\r\n\r\n"
    u"Nordvale GmbH, Musterstadt, Hotline: (000) 00 00 00-0";

// Both show the dialog if show is set, and are false: the result of the operation that failed.
inline bool Failed(bool show, std::u16string_view head, std::u16string_view path) {
  if (show) ShowWarning(Concat({head, path, u"\r\n\r\n", kAdvice}));
  return false;
}
inline bool Failed(bool show, std::u16string_view head, std::u16string_view source, std::u16string_view target) {
  if (show) ShowWarning(Concat({head, source, u"\r\nnach: ", target, u"\r\n\r\n", kAdvice}));
  return false;
}

}  // namespace vx::uHandleFile
