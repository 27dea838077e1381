// Makes the library's services those of a desktop, for programs with windows.
//
//   InstallDesktop    all of them in one call
//
// Example:
//   int main(int argc, char** argv) {
//     const QApplication application(argc, argv);
//     vx::InstallDesktop();
//     vx::ShowMessage(u"Guten Tag");                 // a box on the screen
//     ...
//     return QApplication::exec();
//   }
//
// What is installed:
//   - drawing (InstallDrawing)
//   - dialogs: MessageDlg and the task dialogs as boxes with German buttons. Escape stands for Abbrechen, else for
//     Nein, else for OK. A box has no buttons of mrYesToAll and the like: "Ja für alle" and "Alle" give mrYes, "Nein
//     für alle" gives mrNo, "Hilfe" mrNone. Called in another thread they are shown in the main thread, and that thread
//     waits.
//   - menus (TPopupMenu::Popup) and the choice of a directory (SelectDirectory)
//   - the main thread: methods of Synchronize and Queue run whenever Qt's events do, in boxes and menus, too. What a
//     queued method raises is told in a box.
//   - the colours of the desktop (SetSystemColors), again whenever they change, and its pixels per inch. These are
//     pixels of Qt: a screen that is twice as fine has as many.
//   - German texts of Qt itself (files, printers), where Qt's translations are installed
//
// Opening a document needs nothing: the library's own way is the desktop's.
//
// All is put back when the application object goes. For the main thread, which is the one that calls.
#pragma once

namespace vx {

// There has to be a QApplication. Another call does nothing.
void InstallDesktop();

}  // namespace vx
