// Masks of any text: a result or the documented error, and always the one that the table of mask
// characters gives.
#include <algorithm>
#include <random>
#include <variant>

#include "support/core_session.h"

namespace vexnumkr {
namespace {

using Characters = std::u32string;

std::string utf8(const Characters& text) {
  std::string bytes;
  const auto add = [&bytes](char32_t bits) { bytes += static_cast<char>(bits); };
  for (const char32_t c : text) {
    if (c < 0x80) {
      add(c);
    } else if (c < 0x800) {
      add(0xC0 | c >> 6);
      add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      add(0xE0 | c >> 12);
      add(0x80 | (c >> 6 & 0x3F));
      add(0x80 | (c & 0x3F));
    } else {
      add(0xF0 | c >> 18);
      add(0x80 | (c >> 12 & 0x3F));
      add(0x80 | (c >> 6 & 0x3F));
      add(0x80 | (c & 0x3F));
    }
  }
  return bytes;
}

struct Values {
  std::int32_t low = 0;
  std::int32_t high = 0;
};
// The numbers, the number of the error, or nothing for a blank mask.
using Outcome = std::variant<std::monostate, Values, std::int32_t>;

// A text of digits alone.
std::variant<std::int32_t, std::int64_t> plainNumber(const std::string& digits) {
  if (digits.empty()) return std::int32_t{13};
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
    if (number > 2147483647) return std::int32_t{6};
  }
  return number;
}

// The steps, as plainly as possible, for a date of eight digits.
Outcome plainOutcome(Characters mask, const std::string& date) {
  while (!mask.empty() && mask.front() == U' ') mask.erase(0, 1);
  while (!mask.empty() && mask.back() == U' ') mask.pop_back();
  if (mask.empty()) return {};
  std::string low;
  std::string high;
  std::size_t year = 0;
  std::size_t month = 0;
  for (std::size_t i = mask.size(); i > 0; --i) {
    const char32_t c = mask[i - 1];
    if (c >= U'0' && c <= U'9') {
      low.insert(low.begin(), static_cast<char>(c));
      high.insert(high.begin(), static_cast<char>(c));
    } else if (c == U'N' || c == U'n') {
      low.insert(low.begin(), '0');
      high.insert(high.begin(), '9');
    } else if (c == U'J' || c == U'j' || c == U'%') {
      if (year == 4) year = 0;
      if (c != U'%') {
        low.insert(low.begin(), date[4 - year - 1]);
        high.insert(high.begin(), date[4 - year - 1]);
      }
      ++year;
    } else if (c == U'M' || c == U'm') {
      if (month == 2) month = 0;
      low.insert(low.begin(), date[6 - month - 1]);
      high.insert(high.begin(), date[6 - month - 1]);
      ++month;
    }
  }
  const auto lowest = plainNumber(low);
  const auto highest = plainNumber(high);
  if (std::holds_alternative<std::int32_t>(lowest)) return std::get<std::int32_t>(lowest);
  if (std::holds_alternative<std::int32_t>(highest)) return std::get<std::int32_t>(highest);
  return Values{static_cast<std::int32_t>(std::get<std::int64_t>(lowest)),
                static_cast<std::int32_t>(std::get<std::int64_t>(highest))};
}

std::string described(const Outcome& outcome) {
  if (const auto* values = std::get_if<Values>(&outcome))
    return std::to_string(values->low) + " to " + std::to_string(values->high);
  if (const auto* error = std::get_if<std::int32_t>(&outcome))
    return "Fehler " + std::to_string(*error);
  return "untouched";
}

class MaskRandomTest : public test::CoreSession {
 protected:
  void SetUp() override {
    start(1);
    row({.Benutzer = alleBenutzer,
         .Buchungskreis = 1,
         .Gruppe = "Nord",
         .NSchl = "RE",
         .NBezeichnung = "Rechnung",
         .StartWert = -1,
         .AktuellerWert = -1,
         .EndWert = -1,
         .Aktiviert = true,
         .SortierIndex = 1,
         .Maske = ""});
  }

  std::size_t below(std::size_t limit) { return random_() % limit; }

  char32_t anyCharacter() {
    switch (below(6)) {
      case 0:
        return static_cast<char32_t>(below(0x80));
      case 1:
        return static_cast<char32_t>(below(0x800));
      case 2: {
        const auto c = static_cast<char32_t>(below(0x10000));
        return c >= 0xD800 && c < 0xE000 ? U' ' : c;
      }
      case 3:
        return static_cast<char32_t>(0x10000 + below(0x100000));
      default:
        return U"  --JjNnMm%0123456789"[below(21)];
    }
  }

  Characters anyText(std::size_t length) {
    Characters text(length, U' ');
    std::generate(text.begin(), text.end(), [this] { return anyCharacter(); });
    return text;
  }

  // Mostly masks that people could write, so that results come up as well as errors.
  Characters anyMask() {
    const auto kind = below(10);
    if (kind == 0) return anyText(below(3000));
    if (kind < 4) return anyText(below(12));
    Characters mask(below(13), U' ');
    const bool narrow = below(2) == 0;
    std::generate(mask.begin(), mask.end(), [&] {
      return (narrow ? U"NJM1%-" : U"JjNnMm%0123456789 -RE")[below(narrow ? 6 : 21)];
    });
    return mask;
  }

  std::string anyDate() {
    std::string date;
    for (int i = 0; i < 8; ++i) date += static_cast<char>('0' + below(10));
    return date;
  }

  std::string number(const std::string& mask, const std::string& date) {
    session().strVerarbeitungsdatum(date);
    for (const ValueColumn column :
         {&RangeRow::StartWert, &RangeRow::AktuellerWert, &RangeRow::EndWert})
      table().setValue(0, column, -1);
    table().setValue(0, &RangeRow::Maske, mask);
    forms().answer(msg_box::yes);
    const bool finished = StartAutoNum();
    const auto raised = boxes();
    EXPECT_EQ(raised.size(), finished ? 1U : 2U);
    const std::int32_t low = table().at(0).StartWert.toLong();
    const std::int32_t high = table().at(0).EndWert.toLong();
    EXPECT_EQ(table().at(0).AktuellerWert.toLong(), low);
    if (low == -1 && high == -1) return finished ? "untouched" : raised.back().title;
    EXPECT_TRUE(finished) << "a row whose mask fails keeps its values";
    return described(Values{low, high});
  }

  std::mt19937 random_;
};

TEST_F(MaskRandomTest, AnyMaskHasTheOutcomeOfItsCharacters) {
  int results = 0;
  int errors = 0;
  const unsigned first = std::random_device{}() % 1'000'000;
  for (unsigned seed = first; seed < first + 5000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random_.seed(seed);
    const Characters mask = anyMask();
    const std::string date = anyDate();
    const Outcome expected = plainOutcome(mask, date);
    EXPECT_EQ(number(utf8(mask), date), described(expected)) << utf8(mask);
    if (std::holds_alternative<Values>(expected)) ++results;
    if (std::holds_alternative<std::int32_t>(expected)) ++errors;
    if (HasFailure()) return;
  }
  EXPECT_GT(results, 500) << "seeds from " << first;
  EXPECT_GT(errors, 500) << "seeds from " << first;
}

TEST_F(MaskRandomTest, AnyDateGivesAResultOrAnOverflowOrAMismatch) {
  const unsigned first = std::random_device{}() % 1'000'000;
  for (unsigned seed = first; seed < first + 2000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random_.seed(seed);
    const std::string outcome = number(utf8(anyMask()), utf8(anyText(below(10))));
    EXPECT_TRUE(outcome == "untouched" || outcome == "Fehler 6" || outcome == "Fehler 13" ||
                outcome.find(" to ") != std::string::npos)
        << outcome;
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace vexnumkr
