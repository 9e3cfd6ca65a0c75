#include "data/booking_circles.h"

#include <algorithm>

#include "data/sql/statements.h"

namespace vexnumkr {

BookingCircleList::Circles& BookingCircleList::content() {
  if (!circles_) throw Error::objectNotSet();
  return *circles_;
}

const BookingCircleList::Circles& BookingCircleList::content() const {
  if (!circles_) throw Error::objectNotSet();
  return *circles_;
}

std::optional<std::string> BookingCircleList::Beschreibung(std::int32_t circle) const {
  const auto found = std::ranges::find(content(), circle, &BookingCircle::Buchungskreis);
  return found == end() ? std::nullopt : std::optional(found->Beschreibung);
}

std::optional<std::int32_t> BookingCircleList::Buchungskreis(const std::string& description) const {
  const auto found = std::ranges::find(content(), description, &BookingCircle::Beschreibung);
  return found == end() ? std::nullopt : std::optional(found->Buchungskreis);
}

namespace basAllgemein {

bool RefreshCombo(BookingCircleList& list, StatementSource& source, Reporter& reporter) {
  bool isAnew = false;
  reportingFailures(reporter, {generalModule, "RefreshCombo"}, [&] {
    const auto records = source.query(statement::bookingCircles(source.origin().Herkunft()));
    // Not before the answer is there: where the question fails, the list stays as it was.
    list.create();
    isAnew = true;
    for (; !records->EndOfFile(); records->MoveNext())
      list.append(
          {records->Fields("Buchungskreis").toLong(), records->Fields("Beschreibung").toText()});
    records->Close();
  });
  return isAnew;
}

std::optional<std::string> LookupBuchungskreis(const BookingCircleList& list, Reporter& reporter,
                                               std::int32_t circle) {
  std::optional<std::string> description;
  reportingFailures(reporter, {generalModule, "LookupBuchungskreis"},
                    [&] { description = list.Beschreibung(circle); });
  return description;
}

std::optional<std::int32_t> LookupBuchungskreis(const BookingCircleList& list, Reporter& reporter,
                                                const std::string& description) {
  std::optional<std::int32_t> circle;
  reportingFailures(reporter, {generalModule, "LookupBuchungskreis"},
                    [&] { circle = list.Buchungskreis(description); });
  return circle;
}

}  // namespace basAllgemein
}  // namespace vexnumkr
