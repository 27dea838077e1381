// Reads a table file beside the main thread, with a gauge and a button that gives it up.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/TGaugeWidget.h"
#include "services/uThreadPool.h"
#include "tools/vxview/TableDocument.h"

namespace vx::vxview {

// What came of a load. Loaded is empty if it was given up or failed; Error says why it failed.
struct TLoadResult {
  std::optional<TLoadedTable> Loaded;
  String Error;
};

// A bar for a window; hidden unless something is read. One file at a time: another Start gives the first one up. For
// the main thread.
class TTableLoader : public QWidget {
  Q_OBJECT

 public:
  explicit TTableLoader(QWidget* Parent = nullptr);
  // Waits until the worker has given up.
  ~TTableLoader() override;

  using TDone = std::function<void(TLoadResult Result)>;
  // Done is called by the event loop once; not if another Start or Cancel comes before.
  void Start(const String& Path, std::optional<TFileForm> Form, TDone Done);
  void Cancel();
  bool IsLoading() const noexcept { return FRun != nullptr; }

 private:
  struct TRun;
  void Look();

  TThreadPool FPool{1};
  std::shared_ptr<TRun> FRun;
  QTimer FTimer;
  QLabel* FLabel;
  TGaugeWidget* FGauge;
};

}  // namespace vx::vxview
