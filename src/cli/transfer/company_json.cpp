#include "cli/transfer/company_json.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

using numbers::Assignment;
using numbers::Circle;
using numbers::Company;
using numbers::Range;
using numbers::SpecialRange;

constexpr const char* formatName = "vexnumkr";
constexpr int formatVersion = 1;

Json numberOrNull(const std::optional<std::int32_t>& number) {
  return number ? Json(*number) : Json();
}

Json described(const Range& range, bool withCurrent) {
  Json object{{"circle", range.circle},
              {"key", range.key},
              {"description", range.description},
              {"start", numberOrNull(range.start)}};
  if (withCurrent) object["current"] = numberOrNull(range.current);
  object["end"] = numberOrNull(range.end);
  object["active"] = range.active;
  object["sortIndex"] = range.sortIndex;
  object["sharedKey"] = range.sharedKey;
  object["mask"] = range.mask;
  return object;
}

Json rangesOf(const Company& company, bool withCurrent) {
  Json list = Json::array();
  for (const Range& range : company.ranges) list.push_back(described(range, withCurrent));
  return list;
}

Json circlesOf(const Company& company) {
  Json list = Json::array();
  for (const Circle& circle : company.circles)
    list.push_back({{"number", circle.number}, {"description", circle.description}});
  return list;
}

// Equal ones once.
Json assignmentsOf(const Company& company) {
  Json list = Json::array();
  const Assignment* previous = nullptr;
  for (const Assignment& row : company.assignments) {
    const bool isRepeated =
        previous != nullptr && std::tie(previous->circle, previous->key, previous->user) ==
                                   std::tie(row.circle, row.key, row.user);
    previous = &row;
    if (!isRepeated) list.push_back({{"circle", row.circle}, {"key", row.key}, {"user", row.user}});
  }
  return list;
}

Json specialRangesOf(const Company& company) {
  Json list = Json::array();
  for (const SpecialRange& row : company.specialRanges)
    list.push_back({{"ownKey", row.ownKey},
                    {"key", row.key},
                    {"description", row.description},
                    {"active", row.active}});
  return list;
}

// One object of a list, with its place for messages.
class Row {
 public:
  Row(const Json& object, std::string place) : object_(object), place_(std::move(place)) {
    if (!object.is_object()) fail("ist kein Objekt");
  }

  std::int32_t number(const char* name) const {
    const auto value = optionalNumber(name);
    if (!value) fail(std::string("hat keine Zahl \"") + name + "\"");
    return *value;
  }
  std::optional<std::int32_t> optionalNumber(const char* name) const {
    const auto member = object_.find(name);
    if (member == object_.end() || member->is_null()) return std::nullopt;
    if (!fits(*member)) fail(std::string("hat in \"") + name + "\" keine Zahl mit 32 Bit");
    return member->get<std::int32_t>();
  }
  std::string text(const char* name) const {
    const auto member = object_.find(name);
    if (member == object_.end() || !member->is_string())
      fail(std::string("hat keinen Text \"") + name + "\"");
    return member->get<std::string>();
  }
  bool flag(const char* name) const {
    const auto member = object_.find(name);
    if (member == object_.end() || !member->is_boolean())
      fail(std::string("hat kein true oder false \"") + name + "\"");
    return member->get<bool>();
  }

 private:
  // A number without a sign may be too large for one with a sign.
  static bool fits(const Json& number) {
    if (number.is_number_unsigned())
      return std::in_range<std::int32_t>(number.get<std::uint64_t>());
    return number.is_number_integer() && std::in_range<std::int32_t>(number.get<std::int64_t>());
  }

  [[noreturn]] void fail(const std::string& what) const {
    throw UsageError("Die Datei ist so nicht zu verwenden: " + place_ + " " + what + ".");
  }

  const Json& object_;
  std::string place_;
};

template <class Read>
void forEachRow(const Json& document, const char* list, Read&& read) {
  const auto rows = document.find(list);
  if (rows == document.end() || !rows->is_array())
    throw UsageError(std::string("Die Datei ist so nicht zu verwenden: Es fehlt die Liste \"") +
                     list + "\".");
  std::size_t at = 0;
  for (const Json& row : *rows)
    read(Row(row, std::string(list) + "[" + std::to_string(at++) + "]"));
}

Range rangeOf(const Row& row) {
  Range range;
  range.circle = row.number("circle");
  range.key = row.text("key");
  range.description = row.text("description");
  range.start = row.optionalNumber("start");
  range.current = row.optionalNumber("current");
  range.end = row.optionalNumber("end");
  range.active = row.flag("active") || range.circle == 0;
  range.sortIndex = row.number("sortIndex");
  range.sharedKey = row.text("sharedKey");
  range.mask = row.text("mask");
  return range;
}

// What is nested deeper than any document of ours would be walked through call by call, and take
// the whole stack.
Json parsed(const std::string& text) {
  constexpr int deepest = 16;
  const auto refuseDeeper = [](int depth, Json::parse_event_t, const Json&) {
    if (depth > deepest) throw UsageError("Die Datei ist nicht von \"vexnumkr export\".");
    return true;
  };
  try {
    return Json::parse(text, refuseDeeper);
  } catch (const Json::parse_error& error) {
    throw UsageError("Die Datei ist kein JSON (Stelle " + std::to_string(error.byte) + ").");
  } catch (const Json::out_of_range&) {
    throw UsageError("Die Datei ist so nicht zu verwenden: Eine Zahl ist zu groß.");
  }
}

void requireFormat(const Json& document) {
  const bool isOurs = document.is_object() && document.value("format", Json()) == formatName;
  if (!isOurs) throw UsageError("Die Datei ist nicht von \"vexnumkr export\".");
  if (document.value("version", Json()) != formatVersion)
    throw UsageError("Die Datei hat die Fassung " + document.value("version", Json()).dump() +
                     "; lesbar ist die Fassung 1.");
}

}  // namespace

Json documentOf(const Company& company, bool withCurrent) {
  return {{"format", formatName},
          {"version", formatVersion},
          {"application", company.application},
          {"circles", circlesOf(company)},
          {"ranges", rangesOf(company, withCurrent)},
          {"assignments", assignmentsOf(company)},
          {"specialRanges", specialRangesOf(company)}};
}

Company companyOf(const std::string& text) {
  const Json document = parsed(text);
  requireFormat(document);
  Company company;
  company.application = Row(document, "Die Datei").number("application");
  forEachRow(document, "circles", [&](const Row& row) {
    company.circles.push_back({row.number("number"), row.text("description")});
  });
  forEachRow(document, "ranges", [&](const Row& row) { company.ranges.push_back(rangeOf(row)); });
  forEachRow(document, "assignments", [&](const Row& row) {
    company.assignments.push_back({row.number("circle"), row.text("key"), row.text("user")});
  });
  forEachRow(document, "specialRanges", [&](const Row& row) {
    company.specialRanges.push_back(
        {row.text("ownKey"), row.text("key"), row.text("description"), row.flag("active")});
  });
  return company;
}

}  // namespace vexnumkr::cli
