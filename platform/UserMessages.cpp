#include "platform/UserMessages.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <new>

#include "platform/Exceptions.h"
#include "platform/Files.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/detail/FileErrors.h"
#include "platform/os/Files.h"

namespace vx {

namespace {

constexpr std::u16string_view kNoDirectory = u"Ihr Verzeichnis ist nicht vorhanden.";
constexpr std::u16string_view kNoRight = u"Das Recht dazu fehlt.";
constexpr std::u16string_view kIsBusy = u"Sie wird gerade von einem anderen Programm benutzt.";
constexpr std::u16string_view kIsFull = u"Der Datenträger ist voll.";
constexpr std::u16string_view kIsGone = u"Das Laufwerk ist nicht erreichbar.";
constexpr std::u16string_view kIsAway = u"Das Netzlaufwerk ist nicht erreichbar.";
constexpr std::u16string_view kIsTooLarge = u"Sie ist zu groß.";
constexpr std::u16string_view kTooManyOpen = u"Es sind zu viele Dateien geöffnet.";
constexpr std::u16string_view kNoMemory = u"Der Arbeitsspeicher reicht nicht aus.";

struct TReason {
  int Error;
  std::u16string_view Text;
};

// Not all systems know the last ones.
constexpr TReason kReasons[] = {
    {0, u"Die Ursache ist nicht bekannt."},
    {ENOENT, u"Sie ist nicht vorhanden."},
    {ENOTDIR, u"Ein Teil ihres Pfades ist kein Verzeichnis."},
    {EISDIR, u"Es ist ein Verzeichnis."},
    {EACCES, kNoRight},
    {EPERM, kNoRight},
    {EBUSY, kIsBusy},
    {EAGAIN, kIsBusy},
    {ETXTBSY, kIsBusy},
    {EROFS, u"Der Datenträger ist schreibgeschützt."},
    {ENOSPC, kIsFull},
    {EFBIG, kIsTooLarge},
    {EOVERFLOW, kIsTooLarge},
    {ENAMETOOLONG, u"Ihr Name ist zu lang."},
    {EINVAL, u"Ihr Name oder eine Angabe dazu ist nicht erlaubt."},
    {EILSEQ, u"Ihr Name enthält ein Zeichen, das dort nicht erlaubt ist."},
    {EEXIST, u"Sie ist schon vorhanden."},
    {ENOTEMPTY, u"Das Verzeichnis ist nicht leer."},
    {ELOOP, u"Ihr Pfad führt im Kreis."},
    {EXDEV, u"Quelle und Ziel liegen auf verschiedenen Laufwerken."},
    {EIO, u"Der Datenträger ist gestört."},
    {ENODEV, kIsGone},
    {ENXIO, kIsGone},
    {EMFILE, kTooManyOpen},
    {ENFILE, kTooManyOpen},
    {ENOMEM, kNoMemory},
    {ENOLCK, u"Auf dem Laufwerk kann sie nicht gesperrt werden."},
    {ENOTSUP, u"Das Laufwerk kann das nicht."},
    {ENETDOWN, kIsAway},
    {ENETUNREACH, kIsAway},
    {ENETRESET, kIsAway},
    {EHOSTUNREACH, kIsAway},
    {ECONNABORTED, kIsAway},
    {ECONNREFUSED, kIsAway},
    {ECONNRESET, kIsAway},
    {ENOTCONN, kIsAway},
    {ETIMEDOUT, kIsAway},
#ifdef EDQUOT
    {EDQUOT, u"Der zugeteilte Platz auf dem Datenträger ist verbraucht."},
#endif
#ifdef EHOSTDOWN
    {EHOSTDOWN, kIsAway},
#endif
#ifdef EREMOTEIO
    {EREMOTEIO, kIsAway},
#endif
#ifdef ESTALE
    {ESTALE, kIsAway},
#endif
};

}  // namespace

String UserErrorMessage(int Error) {
  const auto reason = std::ranges::find(kReasons, Error, &TReason::Error);
  if (reason != std::end(kReasons)) return reason->Text;
  return Concat({u"Fehler ", IntToStr(Error), u" des Systems: ", SysErrorMessage(Error)});
}

String files::ReasonAt(int Error, const String& Path) {
  const auto isMissing = [](const std::string& native) {
    TEntry entry;
    return LookUp(native, TLinks::Follow, entry) != 0;
  };
  if ((Error != ENOENT && Error != ENOTDIR) || Path.empty()) return UserErrorMessage(Error);
  const String drive = ExtractFileDrive(Path);
  if (!drive.empty() && isMissing(ToNativePath(drive))) return kIsGone;
  if (Error == ENOENT && isMissing(DirectoryOf(ToNativePath(Path)))) return kNoDirectory;
  return UserErrorMessage(Error);
}

String UserMessage(const std::exception& Error) {
  if (const auto* fault = dynamic_cast<const EStreamError*>(&Error)) return fault->GetUserMessage();
  if (const auto* own = dynamic_cast<const Exception*>(&Error)) return own->GetMessage();
  if (dynamic_cast<const std::bad_alloc*>(&Error) != nullptr) return kNoMemory;
  return String::FromUtf8(Error.what());
}

}  // namespace vx
