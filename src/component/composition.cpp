#include "component/composition.h"

#include <QCoreApplication>
#include <QDate>

#include "adapters/qtforms/dialog_thread.h"
#include "adapters/qtforms/qt_forms_toolkit.h"
#include "dialogs/main/frmNummernkreise.h"

namespace vexnumkr {
namespace {

class SystemClock final : public Clock {
 public:
  std::string today() const override {
    return QDate::currentDate().toString(QStringLiteral("yyyyMMdd")).toStdString();
  }
};

}  // namespace

// In the order in which they need each other.
struct QtComponent::Parts {
  std::unique_ptr<FormsToolkit> forms;
  SystemClock clock;
  std::unique_ptr<ProgressDisplay> progress;
  Nummernkreise component;

  Parts(HostComponents& host, DatabaseAccess access, std::unique_ptr<FormsToolkit> toolkit,
        ProgressClock now)
      : forms(std::move(toolkit)),
        progress(makeQtProgressDisplay(std::move(now))),
        component({*forms, host, clock, progress.get(), access}, createMainDialog) {}
};

QtComponent::QtComponent(HostComponents& host, DatabaseAccess access)
    : QtComponent(host, access, makeQtFormsToolkit(usersMemoryFile()),
                  std::chrono::steady_clock::now) {}

QtComponent::QtComponent(HostComponents& host, DatabaseAccess access,
                         std::unique_ptr<FormsToolkit> forms, ProgressClock now)
    : parts_(std::make_shared<Parts>(host, access, std::move(forms), std::move(now))) {}

// Without an application there is no dialog any more.
QtComponent::~QtComponent() {
  QCoreApplication* const application = QCoreApplication::instance();
  if (application == nullptr || isDialogThread()) {
    parts_->component.abandon();
    return;
  }
  QMetaObject::invokeMethod(
      application, [parts = std::move(parts_)] { parts->component.abandon(); },
      Qt::QueuedConnection);
}

// The host may release this object while one of its members runs.
bool QtComponent::Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
                       const std::string& strUser, const std::string& jmtVerarbeitungsdatum) {
  if (!isDialogThread()) return false;
  const auto parts = parts_;
  return parts->component.Init(std::move(Conn), LngApplication, strUser, jmtVerarbeitungsdatum);
}

void QtComponent::ShowDialog() {
  if (!isDialogThread()) return;
  const auto parts = parts_;
  parts->component.ShowDialog();
}

Session& QtComponent::session() { return parts_->component.session(); }

}  // namespace vexnumkr
