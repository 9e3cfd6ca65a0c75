#include "app/components/offered_components.h"

#include <QString>

#include <vexnumkr/error.h>

#include "app/components/booking_circle_administration.h"
#include "app/components/settings_store.h"

namespace vexnumkr::app {

std::unique_ptr<HostComponent> StandAloneHost::CreateObject(const std::string& name) {
  const QString wanted = QString::fromStdString(name);
  const auto isCalled = [&](const char* known) {
    return wanted.compare(QLatin1String(known), Qt::CaseInsensitive) == 0;
  };
  if (isCalled(component_name::bookingCircles))
    return std::make_unique<BookingCircleAdministration>();
  if (isCalled(component_name::settings)) return std::make_unique<TableSettings>();
  throw Error::cannotCreateObject();
}

}  // namespace vexnumkr::app
