// The booking-circle list: the booking circles of the current origin.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/statement_source.h"
#include "platform/reporter.h"

namespace vexnumkr {

/// The two entries that open the booking-circle filter.
inline constexpr const char* alleBuchungskreise = "Alle Buchungskreise";
inline constexpr const char* aktiveBuchungskreise = "Aktive Buchungskreise";

struct BookingCircle {
  std::int32_t Buchungskreis = 0;
  std::string Beschreibung;

  friend bool operator==(const BookingCircle&, const BookingCircle&) = default;
};

/// A range of booking circles in the order in which the database returned them. Before it was read
/// for the first time, and after it was released, whatever uses it: error 91.
class BookingCircleList {
 public:
  using Circles = std::vector<BookingCircle>;

  void create() { circles_.emplace(); }
  void release() { circles_.reset(); }
  bool exists() const { return circles_.has_value(); }

  void append(BookingCircle circle) { content().push_back(std::move(circle)); }

  std::size_t size() const { return content().size(); }
  Circles::const_iterator begin() const { return content().begin(); }
  Circles::const_iterator end() const { return content().end(); }

  bool contains(std::int32_t circle) const { return Beschreibung(circle).has_value(); }
  /// The description of the first circle with that number.
  std::optional<std::string> Beschreibung(std::int32_t circle) const;
  friend bool operator==(const BookingCircleList&, const BookingCircleList&) = default;

  /// The number of the first circle with that description.
  std::optional<std::int32_t> Buchungskreis(const std::string& description) const;

 private:
  Circles& content();
  const Circles& content() const;

  std::optional<Circles> circles_;
};

namespace basAllgemein {

/// Reads the booking circles of the origin into the list, which is made anew. A failure is
/// reported; False when the statement failed, so that the list is what it was before.
bool RefreshCombo(BookingCircleList& list, StatementSource& source, Reporter& reporter);

/// The description of a circle, or the number of a description: nothing when the list does not have
/// it, and after a failure, which is reported.
std::optional<std::string> LookupBuchungskreis(const BookingCircleList& list, Reporter& reporter,
                                               std::int32_t circle);
std::optional<std::int32_t> LookupBuchungskreis(const BookingCircleList& list, Reporter& reporter,
                                                const std::string& description);

}  // namespace basAllgemein
}  // namespace vexnumkr
