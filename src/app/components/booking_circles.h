// The booking circles of one origin in the database, and what may be entered for them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <vexnumkr/database.h>

namespace vexnumkr::app {

struct BookingCircle {
  std::int32_t number = 0;
  std::string description;
};

/// The table Nummernkreis_Buchungskreise, limited to one origin. Statements run on the connection
/// that was handed in, inside whatever transaction runs on it. Errors: the engine's.
class BookingCircles {
 public:
  BookingCircles(std::shared_ptr<Connection> connection, std::string origin);

  /// All of the origin, by number.
  std::vector<BookingCircle> read() const;
  void add(const BookingCircle& circle);
  void rename(std::int32_t number, const std::string& description);
  void remove(std::int32_t number);

  /// The number keys that have an active range in the booking circle, in alphabetical order.
  std::vector<std::string> activeKeys(std::int32_t number) const;

 private:
  std::shared_ptr<Connection> connection_;
  std::string origin_;
};

/// `text` as a booking circle number: plain digits, from 1; 0 for anything else.
std::int32_t circleNumber(const std::string& text);

/// Why `text` cannot be the number of a new booking circle beside `present`, as a text for the user
/// (German), or empty when it can.
std::string refusedNumber(const std::string& text, const std::vector<BookingCircle>& present);

/// Why `description` cannot be that of the booking circle `number` (0 for a new one) beside
/// `present`, as a text for the user (German), or empty when it can: it must not be empty,
/// longer than 60 characters, a name that the filter of the booking circles uses itself, or that of
/// another one.
std::string refusedDescription(const std::string& description, std::int32_t number,
                               const std::vector<BookingCircle>& present);

/// The number to propose for a new booking circle: the one after the highest.
std::int32_t proposedNumber(const std::vector<BookingCircle>& present);

}  // namespace vexnumkr::app
