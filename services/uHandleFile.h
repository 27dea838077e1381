// File operations that succeed where they reasonably can and tell the user in German where they don't; programs,
// drives and directories of the system.
//
//   FileOperations.h   VxDeleteFile, VxCopyFile, VxRenameFile, VxMoveFile, …
//   Directories.h      VxForceDirectories, VxRemoveDir, MergeDirectories, ls, …
//   Drives.h           VxDriveAvailable, VxDriveList, VxDriveToUNC, VxDiskSpace, …
//   FileTests.h        VxFileExists, VxFileIsLocked, VxUnlockFile, VxTestExclusive, …
//   FileProperties.h   VxFileSize, VxFileLastWrite, VxHashFromHD, VxFileSizeText, …
//   FileNames.h        CheckFileName, ValidateFilename, DecorateFilename, PathToList, …
//   FileVersions.h     VxFileVersion, VxFileProductVersion
//   Processes.h        VxExecute, VxExecAndWait, VxExecCommandline, VxProcessExists, VxFindWindow, …
//   ShellTools.h       VxWindowsTool, VxProcessMailTo, VxParseURL
//   SystemPaths.h      VxUserName, GetProgramPath, VxWindowsDirectory, VxSelectDirectory, …
//
// Example:
//   if (vx::VxForceDirectories(u"C:\\Daten\\Listen")) {
//     vx::VxCopyFile(u"C:\\Vorlage.csv", u"C:\\Daten\\Listen\\Mai.csv", true);   // a dialog if it fails
//   }
//
// Paths are in the library's grammar or native (platform/Paths.h); routines that build names use the
// backslash. No routine raises: all report by their result. Where there is a showError, it decides
// whether a failure opens a dialog as well; the dialogs are warnings with the OK button alone, and within a TMsgDialogs
// (uMsg.h) they are reported to the message handler instead.
//
// Threads: any number may call these at once; dialogs come up in the thread that calls, and reports to the message
// handler are for the thread that shows dialogs.
//
// Pitfalls:
//   - VxFileIsReadable is true if the file can NOT be read.
//   - VxForceDirectories shows its dialog always, and refuses a path that is only a drive.
#pragma once

#include "platform/Threads.h"  // GetLogicalCpuCount
#include "services/uHandleFile/Directories.h"
#include "services/uHandleFile/Drives.h"
#include "services/uHandleFile/FileNames.h"
#include "services/uHandleFile/FileOperations.h"
#include "services/uHandleFile/FileProperties.h"
#include "services/uHandleFile/FileTests.h"
#include "services/uHandleFile/FileVersions.h"
#include "services/uHandleFile/Processes.h"
#include "services/uHandleFile/ShellTools.h"
#include "services/uHandleFile/SystemPaths.h"
