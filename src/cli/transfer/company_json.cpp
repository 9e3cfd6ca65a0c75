#include "cli/transfer/company_json.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include "cli/transfer/faults.h"

namespace vexnumkr::cli {
namespace {

using numbers::Assignment;
using numbers::ChangedTable;
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

// One object, with its place for messages. What is missing or not as it should be is a fault, and
// read as nothing.
class Row {
 public:
  Row(const Json& object, std::string place, Faults& faults)
      : object_(object), place_(std::move(place)), faults_(faults) {
    if (!object.is_object()) fault("ist kein Objekt");
  }

  const std::string& place() const { return place_; }

  std::int32_t number(const char* name) {
    const Json* const member = find(name);
    if (isObject() && (member == nullptr || member->is_null()))
      fault(std::string("hat keine Zahl \"") + name + "\"");
    return optionalNumber(name).value_or(0);
  }
  std::optional<std::int32_t> optionalNumber(const char* name) {
    const Json* const member = find(name);
    if (member == nullptr || member->is_null()) return std::nullopt;
    if (fits(*member)) return member->get<std::int32_t>();
    fault(std::string("hat in \"") + name + "\" keine Zahl mit 32 Bit");
    return std::nullopt;
  }
  std::string text(const char* name) {
    const Json* const member = find(name);
    if (member != nullptr && member->is_string())
      return withoutTrailingBlanks(member->get<std::string>());
    if (isObject()) fault(std::string("hat keinen Text \"") + name + "\"");
    return {};
  }
  bool flag(const char* name) {
    const Json* const member = find(name);
    if (member != nullptr && member->is_boolean()) return member->get<bool>();
    if (isObject()) fault(std::string("hat kein true oder false \"") + name + "\"");
    return false;
  }
  /// The members of a list, which has to be there.
  const Json& list(const char* name) {
    static const Json none = Json::array();
    const Json* const member = find(name);
    if (member != nullptr && member->is_array()) return *member;
    if (isObject()) fault(std::string("hat keine Liste \"") + name + "\"");
    return none;
  }
  void mayHave(const char* name) { known_.insert(name); }
  /// A member that nobody has asked for is one that was misspelt.
  void requireNoOthers() {
    if (!isObject()) return;
    for (const auto& [name, value] : object_.items())
      if (!known_.contains(name)) fault("hat \"" + name + "\", was hier niemand kennt");
  }

 private:
  bool isObject() const { return object_.is_object(); }
  const Json* find(const char* name) {
    known_.insert(name);
    if (!isObject()) return nullptr;
    const auto member = object_.find(name);
    return member == object_.end() ? nullptr : &*member;
  }
  // A number without a sign may be too large for one with a sign.
  static bool fits(const Json& number) {
    if (number.is_number_unsigned())
      return std::in_range<std::int32_t>(number.get<std::uint64_t>());
    return number.is_number_integer() && std::in_range<std::int32_t>(number.get<std::int64_t>());
  }
  void fault(const std::string& what) { faults_.add(place_ + " " + what + "."); }

  const Json& object_;
  std::string place_;
  Faults& faults_;
  std::set<std::string> known_;
};

Range rangeOf(Row& row) {
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

Circle circleOf(Row& row) { return {row.number("number"), row.text("description")}; }

Assignment assignmentOf(Row& row) {
  return {row.number("circle"), row.text("key"), row.text("user")};
}

SpecialRange specialRangeOf(Row& row) {
  return {row.text("ownKey"), row.text("key"), row.text("description"), row.flag("active")};
}

template <class Entry, class Read>
void readList(Row& document, const char* name, std::vector<Entry>& entries,
              std::vector<std::string>& places, Faults& faults, Read&& read) {
  for (const Json& object : document.list(name)) {
    Row row(object, std::string(name) + "[" + std::to_string(entries.size()) + "]", faults);
    entries.push_back(read(row));
    places.push_back(row.place());
    row.requireNoOthers();
  }
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

WantedCompany companyOf(const std::string& text) {
  const Json document = parsed(text);
  requireFormat(document);
  Faults faults;
  Row root(document, "Die Datei", faults);
  for (const char* const name : {"format", "version"}) root.mayHave(name);
  WantedCompany wanted;
  Company& company = wanted.company;
  company.application = root.number("application");
  readList(root, "circles", company.circles, wanted.placesIn(ChangedTable::circles), faults,
           circleOf);
  readList(root, "ranges", company.ranges, wanted.placesIn(ChangedTable::ranges), faults, rangeOf);
  readList(root, "assignments", company.assignments, wanted.placesIn(ChangedTable::assignments),
           faults, assignmentOf);
  readList(root, "specialRanges", company.specialRanges,
           wanted.placesIn(ChangedTable::specialRanges), faults, specialRangeOf);
  root.requireNoOthers();
  faults.raise();
  return wanted;
}

}  // namespace vexnumkr::cli
