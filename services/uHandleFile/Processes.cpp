#include "services/uHandleFile/Processes.h"

#include <algorithm>
#include <exception>

#include "platform/CodePage.h"
#include "platform/Collation.h"
#include "platform/CommandLine.h"
#include "platform/Desktop.h"
#include "platform/Dialogs.h"
#include "platform/Numbers.h"
#include "platform/Paths.h"
#include "platform/Processes.h"
#include "platform/ShellExecute.h"
#include "platform/Text.h"
#include "services/uHandleFile/FileTests.h"

namespace vx {

namespace {

// Why the shell refused.
String ReasonOf(int result) {
  switch (result) {
    case seNoResources:
      return u"Windows stehen nicht genug Ressourcen zur Verfügung.";
    case seFileNotFound:
      return u"Sie existiert nicht.";
    case sePathNotFound:
      return u"Das Verzeichnis existiert nicht.";
    case seAccessDenied:
      return u"Der Zugriff wurde verweigert.";
    case seOutOfMemory:
      return u"Es steht nicht genug Arbeitsspeicher zur Verfügung.";
    case seBadFormat:
      return u"Es ist keine Win32-Anwendung.";
    case seShare:
      return u"Sie ist schon offen.";
    case seAssociationIncomplete:
      return u"Die Dateiendung ist keinem Programm vollständig zugeordnet.";
    case seDdeTimeout:
      return u"The DDE transaction could not be completed because the request timed out.";
    case seDdeFail:
      return u"The DDE transaction failed.";
    case seDdeBusy:
      return u"The DDE transaction could not be completed because other DDE transactions were being processed.";
    case seNoAssociation:
      return u"Die Dateiendung ist keinem Programm zugeordnet.";
    case seDllNotFound:
      return u"Die DLL wurde nicht gefunden.";
    default:
      return Concat({u"Windows meldet die Fehlernummer [", IntToStr(result), u"]."});
  }
}

// Empty if file was opened.
String ExecuteError(const String& file, const String& parameters, const String& windowTitle) {
  if (!VxFileExists(file)) {
    return u"Die Datei existiert nicht, kann also nicht ausgeführt werden!\r\n\r\nPfad: " + file;
  }
  if (!windowTitle.empty() && VxFindWindow(u"", windowTitle, file, false) != 0) {
    // The codes of line breaks at the end are part of the text.
    return u"Das Programm läuft bereits, darf aber nicht mehrfach gestartet werden! +#13#10#13#10";
  }
  const int result = ShellExecute({u"open", file, parameters, ExtractFileDir(file)});
  if (result > seFailed) return {};
  return Concat({u"Die Datei kann nicht ausgeführt werden!", ReasonOf(result), u"\r\n\r\nPfad: ", file});
}

std::vector<std::string> ArgumentsOf(std::u16string_view parameters) {
  std::vector<std::string> result;
  for (const String& argument : SplitArguments(parameters)) result.push_back(argument.ToUtf8());
  return result;
}

// The native path of a program; empty if it is only on the search path and not found there.
std::string ProgramPath(const String& file) {
  const std::string native = ToNativePath(file);
  return native.find('/') == native.npos && !VxFileExists(file) ? FindProgram(native) : native;
}

}  // namespace

String VxQuoteArgument(const String& argument) { return QuoteArgument(argument); }

bool VxExecute(const String& file, const String& parameters, String* errorText, const String& windowTitle) {
  String error = ExecuteError(file, parameters, windowTitle);
  const bool good = error.empty();
  if (errorText != nullptr) *errorText = std::move(error);
  return good;
}

int64_t VxExecAndWait(const String& file, const String& parameters, int& exitCode, bool wait, bool keepHandle,
                      int64_t inputHandle) {
  exitCode = 0;
  if (inputHandle < 0 || inputHandle > INT32_MAX) return -1;
  const String directory = ExtractFileDir(file);
  const TProcessStart start{.Program = ProgramPath(file),
                            .Arguments = ArgumentsOf(parameters),
                            .Directory = directory.empty() ? std::string() : ToNativePath(directory),
                            .Input = inputHandle == 0 ? -1 : static_cast<int>(inputHandle)};
  int64_t handle = -1;
  const int error = wait || keepHandle ? StartProcess(start, handle) : StartDetached(start, &handle);
  if (error != 0 || !wait) return handle;
  return WaitForProcess(handle, exitCode) ? handle : -1;
}

int64_t VxExecAndWait(const String& file, const String& parameters, bool wait, bool keepHandle) {
  int exitCode;
  return VxExecAndWait(file, parameters, exitCode, wait, keepHandle, 0);
}

bool VxExecCommandline(const String& command, String& output, const String& directory) {
  // The command may begin like an option.
  const TProcessStart start{.Program = "/bin/sh",
                            .Arguments = {"-c", "--", command.ToUtf8()},
                            .Directory = directory.empty() ? std::string() : ToNativePath(directory)};
  int exitCode;
  return RunForOutput(start, exitCode, [&](std::string_view bytes) {
           try {
             output += GetSystemCodePage().Decode(bytes);
             return true;
           } catch (const std::exception&) {
             return false;
           }
         }) == 0;
}

bool VxNetExe(const String& parameters) {
  const TProcessStart start{
      .Program = FindProgram("net"), .Arguments = ArgumentsOf(TrimView(parameters)), .Quiet = true};
  int64_t handle = -1;
  int exitCode;
  return StartProcess(start, handle) == 0 && WaitForProcess(handle, exitCode);
}

bool VxProcessExists(int64_t processId, std::u16string_view name) {
  const std::vector<TProcessInfo> processes = ListProcesses();
  return std::any_of(processes.begin(), processes.end(), [&](const TProcessInfo& process) {
    return (processId == 0 || process.Id == processId) &&
           (name.empty() || AnsiSameText(process.FileName, name) || AnsiSameText(process.Name, name));
  });
}

int64_t VxFindWindow(const String& className, const String& title, const String& module, bool showError) {
  const TWindow window = FindWindow(className, title);
  const bool known = window.Handle != 0 && window.ProcessId != 0;
  if (known && !window.Module.empty() && AnsiSameText(window.Module, module)) return window.Handle;
  if (known && window.Module.empty() && VxProcessExists(window.ProcessId, ExtractFileName(module))) {
    return window.Handle;
  }
  if (!showError) return 0;
  constexpr char16_t kName[] = u"\r\n\r\nFenstername: ";
  if (window.Handle == 0) {
    ShowWarning(Concat({u"Es wurde kein Fenster gefunden!", kName, title}));
  } else if (window.ProcessId == 0) {
    ShowWarning(Concat({u"Es wurde ein Fenster gefunden,\r\naber kein dazugehöriger Prozess!", kName, title, u"\r\n"}));
  } else if (window.Module.empty()) {
    ShowWarning(Concat({u"Es wurde ein Fenster gefunden,\r\naber kein dazugehöriges Modul!", kName, title}));
  } else {
    ShowWarning(Concat({u"Es wurde ein Fenster gefunden,\r\naber es stammt von einem fremden Prozess!", kName, title,
                        u"\r\nProzessname: ", window.Module}));
  }
  return 0;
}

}  // namespace vx
