#include "tools/vxview/TTableLoader.h"

#include <QHBoxLayout>

#include "desktop/QtValues.h"
#include "platform/Paths.h"
#include "platform/UserMessages.h"

namespace vx::vxview {

// Lives as long as the worker or the bar needs it.
struct TTableLoader::TRun {
  TLoadState State;
  std::optional<TPoolTask<TLoadResult>> Task;
  TDone Done;
};

namespace {

TLoadResult Load(const String& Path, const std::optional<TFileForm>& Form, TLoadState& State) {
  TLoadResult result;
  try {
    result.Loaded = LoadTable(Path, Form, State);
  } catch (const TCancelled&) {
  } catch (const std::exception& e) {
    result.Error = UserMessage(e);
  }
  return result;
}

}  // namespace

TTableLoader::TTableLoader(QWidget* Parent) : QWidget(Parent), FLabel(new QLabel), FGauge(new TGaugeWidget) {
  constexpr int kLookMilliseconds = 30;
  auto* cancel = new QPushButton(QStringLiteral("Abbrechen"));
  auto* row = new QHBoxLayout(this);
  row->addWidget(FLabel);
  row->addWidget(FGauge, 1);
  row->addWidget(cancel);
  FGauge->Gauge().GetPaintObject().SetPercentShow(true);
  FTimer.setInterval(kLookMilliseconds);
  connect(&FTimer, &QTimer::timeout, this, &TTableLoader::Look);
  connect(cancel, &QPushButton::clicked, this, &TTableLoader::Cancel);
  hide();
}

TTableLoader::~TTableLoader() { Cancel(); }

void TTableLoader::Start(const String& Path, std::optional<TFileForm> Form, TDone Done) {
  Cancel();
  FLabel->setText(ToQt(Concat({ExtractFileName(Path), u" wird gelesen"})));
  FGauge->Gauge().SetPosition(0);
  auto run = std::make_shared<TRun>();
  run->Done = std::move(Done);
  run->Task.emplace(FPool.Run([run, Path, Form] { return Load(Path, Form, run->State); }));
  FRun = std::move(run);
  FTimer.start();
}

void TTableLoader::Cancel() {
  if (FRun) FRun->State.IsCancelled = true;
  FRun.reset();
  FTimer.stop();
  hide();
}

// Only what takes some time gets a bar.
void TTableLoader::Look() {
  if (FRun->Task->IsReady()) {
    const std::shared_ptr<TRun> run = std::move(FRun);
    Cancel();
    return run->Done(run->Task->Get());
  }
  show();
  FGauge->Gauge().SetMax(static_cast<Extended>(std::max<int64_t>(1, FRun->State.Total)));
  FGauge->Gauge().SetPosition(static_cast<Extended>(std::min(FRun->State.Done.load(), FRun->State.Total.load())));
}

}  // namespace vx::vxview
