#include "component/composition.h"

#include <QDate>

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

QtComponent::QtComponent(HostComponents& host, DatabaseAccess access)
    : QtComponent(host, access, makeQtFormsToolkit(), std::chrono::steady_clock::now) {}

QtComponent::QtComponent(HostComponents& host, DatabaseAccess access,
                         std::unique_ptr<FormsToolkit> forms, ProgressClock now)
    : forms_(std::move(forms)),
      clock_(std::make_unique<SystemClock>()),
      progress_(makeQtProgressDisplay(std::move(now))),
      component_(std::make_unique<Nummernkreise>(
          Services{*forms_, host, *clock_, progress_.get(), access}, createMainDialog)) {}

QtComponent::~QtComponent() = default;

bool QtComponent::Init(std::shared_ptr<Connection> Conn, std::int32_t LngApplication,
                       const std::string& strUser, const std::string& jmtVerarbeitungsdatum) {
  return component_->Init(std::move(Conn), LngApplication, strUser, jmtVerarbeitungsdatum);
}

void QtComponent::ShowDialog() { component_->ShowDialog(); }

Session& QtComponent::session() { return component_->session(); }

}  // namespace vexnumkr
