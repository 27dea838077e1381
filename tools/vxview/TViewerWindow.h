// The viewer's window: a table file shown, filtered, sorted, changed and saved.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QTimer>
#include <memory>

#include "controls/TableEditing.h"
#include "desktop/TFilterWidget.h"
#include "desktop/TTableWidget.h"
#include "tools/vxview/TFindBar.h"
#include "tools/vxview/TTableLoader.h"
#include "tools/vxview/ViewerSettings.h"

namespace vx::vxview {

// Nothing is lost without a question: changes that are not saved, cells that a form can't hold, and what another
// program has made of the file meanwhile.
class TViewerWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit TViewerWindow(const String& SettingsPath);
  ~TViewerWindow() override;

  // Asks before it gives up changes, and reads in the background. Settled is told of the end.
  void Open(const String& Path);
  // Where the table was read from; asks where it has none. False if it was not saved, which was told.
  bool Save();
  bool SaveAs();
  TTableWidget& Table() noexcept { return *FTable; }
  TCsvView* View() noexcept { return FView.get(); }
  const String& Path() const noexcept { return FPath; }

 signals:
  // A file is shown, or could not be read.
  void Settled(bool IsShown);

 protected:
  void closeEvent(QCloseEvent* Event) override;
  void dragEnterEvent(QDragEnterEvent* Event) override;
  void dropEvent(QDropEvent* Event) override;

 private:
  void MakeFileMenu();
  void MakeEditMenu();
  void ShowLastFiles(QMenu& Menu);
  void Load(const String& Path);
  void Show(const String& Path, TLoadedTable Loaded);
  void Failed(const String& Text);
  bool MayLeave();
  bool IsChanged() const noexcept { return FHistory && FHistory->IsChanged(); }
  bool SaveTo(const String& Path, const TFileForm& Form, bool IsSameFile);
  void Remember();
  void TakeRemembered();
  void Export();
  void Print(bool IsPreview);
  void UpdateTitle();
  void UpdateStatus();
  void LookAtFile();

  TViewerSettings FSettings;
  std::unique_ptr<TCsvView> FView;
  std::unique_ptr<TTableHistory> FHistory;
  String FPath;
  TFileForm FForm;
  TFileStamp FStamp;     // of what was read or written
  TFileStamp FDeclined;  // of what another program wrote, when reloading was offered
  TFilterWidget* FFilter;
  TTableWidget* FTable;
  TTableLoader* FLoader;
  TFindBar* FFind;
  QLabel* FStatus;
  QTimer FLookTimer, FStatusTimer;
};

}  // namespace vx::vxview
