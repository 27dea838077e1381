#include <QApplication>
#include <QEvent>
#include <exception>
#include <mutex>

#include "desktop/detail/DesktopServices.h"
#include "platform/MainThread.h"
#include "platform/UserMessages.h"

namespace vx::detail {

// Threads may wake the loop while it is taken down: they share the receiver, whose object goes first.
class TMainLoop::TReceiver {
 public:
  TReceiver() : FObject(std::make_unique<TLink>(*this)) {}
  void Wake() {
    const std::lock_guard lock(FMutex);
    if (FObject == nullptr || FIsPosted) return;
    FIsPosted = true;
    QCoreApplication::postEvent(FObject.get(), new QEvent(QEvent::User));
  }
  void Close() {
    std::unique_ptr<TLink> object;
    const std::lock_guard lock(FMutex);
    object.swap(FObject);
  }

 private:
  class TLink : public QObject {
   public:
    explicit TLink(TReceiver& Receiver) : FReceiver(Receiver) {}

   protected:
    bool event(QEvent* Event) override {
      if (Event->type() != QEvent::User) return QObject::event(Event);
      {
        const std::lock_guard lock(FReceiver.FMutex);
        FReceiver.FIsPosted = false;
      }
      RunAll();
      return true;
    }

   private:
    TReceiver& FReceiver;
  };

  // Nothing may pass through Qt's events.
  static void RunAll() noexcept {
    for (bool isDone = false; !isDone;) {
      try {
        CheckSynchronize();
        isDone = true;
      } catch (const std::exception& error) {
        MessageDlg(UserMessage(error), mtError, {mbOK});
      }
    }
  }

  std::mutex FMutex;
  std::unique_ptr<TLink> FObject;
  bool FIsPosted = false;
};

TMainLoop::TMainLoop() : FReceiver(std::make_shared<TReceiver>()) {
  SetMainThread();
  FPrevious = SetWakeMainThread([receiver = FReceiver] { receiver->Wake(); });
  FReceiver->Wake();  // for what is waiting already
}

TMainLoop::~TMainLoop() {
  SetWakeMainThread(std::move(FPrevious));
  FReceiver->Close();
}

}  // namespace vx::detail
