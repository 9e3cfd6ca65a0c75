#include "app/components/booking_circles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>
#include <utility>

#include "app/sql.h"

namespace vexnumkr::app {
namespace {

constexpr std::array<std::string_view, 3> reservedDescriptions = {
    "Alle Buchungskreise", "Aktive Buchungskreise", "Standard"};

constexpr std::int32_t highestNumber = std::numeric_limits<std::int32_t>::max();
constexpr std::ptrdiff_t longestDescription = 60;

bool isDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// In UTF-8 every character has one byte that continues none.
std::ptrdiff_t characters(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
}

}  // namespace

BookingCircles::BookingCircles(std::shared_ptr<Connection> connection, std::string origin)
    : connection_(std::move(connection)), origin_(std::move(origin)) {}

std::vector<BookingCircle> BookingCircles::read() const {
  std::vector<BookingCircle> circles;
  forEachRow(
      *connection_,
      "SELECT Buchungskreis, Beschreibung FROM Nummernkreis_Buchungskreise WHERE Herkunft=" +
          sqlText(origin_) + " ORDER BY Buchungskreis",
      [&](const Recordset& row) {
        circles.push_back({row.Fields("Buchungskreis").toLong(), textField(row, "Beschreibung")});
      });
  return circles;
}

void BookingCircles::add(const BookingCircle& circle) {
  execute(
      *connection_,
      "INSERT INTO Nummernkreis_Buchungskreise (Buchungskreis, Beschreibung, Herkunft) VALUES (" +
          std::to_string(circle.number) + ", " + sqlText(circle.description) + ", " +
          sqlText(origin_) + ")");
}

void BookingCircles::rename(std::int32_t number, const std::string& description) {
  execute(*connection_,
          "UPDATE Nummernkreis_Buchungskreise SET Beschreibung=" + sqlText(description) +
              " WHERE Buchungskreis=" + std::to_string(number) +
              " AND Herkunft=" + sqlText(origin_));
}

void BookingCircles::remove(std::int32_t number) {
  execute(*connection_, "DELETE FROM Nummernkreis_Buchungskreise WHERE Buchungskreis=" +
                            std::to_string(number) + " AND Herkunft=" + sqlText(origin_));
}

std::vector<std::string> BookingCircles::activeKeys(std::int32_t number) const {
  std::vector<std::string> keys;
  forEachRow(*connection_,
             "SELECT NSchl FROM Nummernkreise WHERE Buchungskreis=" + std::to_string(number) +
                 " AND Aktiviert <> 0 ORDER BY NSchl",
             [&](const Recordset& row) { keys.push_back(textField(row, "NSchl")); });
  return keys;
}

std::int32_t circleNumber(const std::string& text) {
  const std::string_view digits = trimBlanks(text);
  const char* const end = digits.data() + digits.size();
  std::int32_t result = 0;
  const auto [stop, error] = std::from_chars(digits.data(), end, result);
  return error == std::errc() && stop == end && result > 0 ? result : 0;
}

std::string refusedNumber(const std::string& text, const std::vector<BookingCircle>& present) {
  const std::int32_t number = circleNumber(text);
  const std::string_view entered = trimBlanks(text);
  const bool isZero = entered.find_first_not_of('0') == std::string_view::npos;
  if (number == 0 && isDigits(entered) && !isZero)
    return "Die Nummer darf höchstens " + std::to_string(highestNumber) + " sein.";
  if (number == 0) return "Die Nummer muss eine ganze Zahl ab 1 sein.";
  const bool taken = std::any_of(present.begin(), present.end(), [&](const BookingCircle& circle) {
    return circle.number == number;
  });
  return taken ? "Die Nummer " + std::to_string(number) + " ist schon vergeben." : "";
}

std::string refusedDescription(const std::string& description, std::int32_t number,
                               const std::vector<BookingCircle>& present) {
  const std::string_view entered = trimBlanks(description);
  if (entered.empty()) return "Die Beschreibung darf nicht leer sein.";
  if (characters(entered) > longestDescription) {
    return "Die Beschreibung darf höchstens " + std::to_string(longestDescription) +
           " Zeichen haben, nicht " + std::to_string(characters(entered)) + ".";
  }
  if (std::find(reservedDescriptions.begin(), reservedDescriptions.end(), entered) !=
      reservedDescriptions.end()) {
    return "\"" + std::string(entered) +
           "\" hat eine feste Bedeutung und kann keine Beschreibung sein.";
  }
  for (const BookingCircle& circle : present)
    if (circle.number != number && trimBlanks(circle.description) == entered)
      return "Der Buchungskreis " + std::to_string(circle.number) + " heißt schon so.";
  return "";
}

std::int32_t proposedNumber(const std::vector<BookingCircle>& present) {
  std::int32_t highest = 0;
  for (const BookingCircle& circle : present) highest = std::max(highest, circle.number);
  if (highest < highestNumber) return highest + 1;
  return 0;
}

}  // namespace vexnumkr::app
