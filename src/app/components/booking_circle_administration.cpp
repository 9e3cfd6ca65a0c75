#include "app/components/booking_circle_administration.h"

#include <QApplication>
#include <utility>

#include <vexnumkr/error.h>

#include "app/components/booking_circle_window.h"

namespace vexnumkr::app {

void BookingCircleAdministration::Connection(std::shared_ptr<vexnumkr::Connection> connection) {
  connection_ = std::move(connection);
}

void BookingCircleAdministration::MultiSelect(bool on) { multiSelect_ = on; }

void BookingCircleAdministration::Show(const std::string& origin, std::int32_t) {
  if (connection_ == nullptr) throw Error::objectNotSet();
  BookingCircleWindow window(BookingCircles(connection_, origin), multiSelect_,
                             QApplication::activeWindow());
  window.exec();
}

}  // namespace vexnumkr::app
