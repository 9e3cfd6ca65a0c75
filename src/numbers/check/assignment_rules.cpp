// Assignments and the ranges and users that they name, and what each user can draw.
#include <algorithm>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include <vexnumkr/numbers.h>

#include "numbers/check/checked_ranges.h"

namespace vexnumkr::numbers {
namespace {

using KeyNumber = std::uint32_t;

// The number keys and the ranges under numbers, since there may be a great many assignments.
class RangeDirectory {
 public:
  explicit RangeDirectory(const Company& company) {
    for (const Range& range : company.ranges) {
      const KeyNumber key = numbers_.try_emplace(range.key, next()).first->second;
      ranges_.emplace(place(range.circle, key), &range);
    }
    for (const Range* range : checkedRanges(company)) {
      const KeyNumber key = numbers_.at(range->key);
      usable_.insert(place(range->circle, key));
      if (usableKeys_.insert(key).second) keys_.push_back(range->key);
    }
    std::sort(keys_.begin(), keys_.end());
  }

  const Range* find(std::int32_t circle, const std::string& key) const {
    const auto number = numbers_.find(key);
    if (number == numbers_.end()) return nullptr;
    const auto range = ranges_.find(place(circle, number->second));
    return range == ranges_.end() ? nullptr : range->second;
  }
  bool isUsable(const Range& range) const {
    return usable_.contains(place(range.circle, numbers_.at(range.key)));
  }
  /// The keys with a range to draw from, ascending.
  const std::vector<std::string>& usableKeys() const { return keys_; }
  std::optional<KeyNumber> numberOf(const std::string& key) const {
    const auto found = numbers_.find(key);
    return found == numbers_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  KeyNumber next() const { return static_cast<KeyNumber>(numbers_.size()); }
  static std::uint64_t place(std::int32_t circle, KeyNumber key) {
    return std::uint64_t{static_cast<std::uint32_t>(circle)} << 32 | key;
  }

  std::unordered_map<std::string, KeyNumber> numbers_;
  std::unordered_map<std::uint64_t, const Range*> ranges_;
  std::unordered_set<std::uint64_t> usable_;
  std::unordered_set<KeyNumber> usableKeys_;
  std::vector<std::string> keys_;
};

// What a user, or everybody, has of one key. Whoever has assignments of the own, usable or not, has
// no part in the common ones.
struct Served {
  std::int32_t assigned = 0;
  std::int32_t usable = 0;
};

using ServedKeys = std::unordered_map<KeyNumber, Served>;

class AssignmentCheck {
 public:
  AssignmentCheck(const Company& company, std::vector<Finding>& findings)
      : company_(company),
        directory_(company),
        users_(company.users.begin(), company.users.end()),
        findings_(findings) {
    circles_.insert(0);
    for (const Circle& circle : company.circles) circles_.insert(circle.number);
  }

  void run() {
    const Assignment* previous = nullptr;
    for (const Assignment& assignment : company_.assignments) {
      const bool isRepeated = previous != nullptr && previous->circle == assignment.circle &&
                              previous->key == assignment.key && previous->user == assignment.user;
      if (!isRepeated) examine(assignment);
      previous = &assignment;
    }
    for (const std::string& user : company_.users) examine(user);
  }

 private:
  void examine(const Assignment& assignment) {
    const Range* const range = directory_.find(assignment.circle, assignment.key);
    if (range == nullptr) {
      add(assignment, FindingKind::assignmentWithoutRange,
          "Diesen Nummernkreis gibt es nicht (mehr).");
    } else if (!directory_.isUsable(*range)) {
      add(assignment, FindingKind::assignmentOfInactiveRange,
          "Dieser Nummernkreis ist nicht aktiviert.");
    }
    if (assignment.user != everybody && !users_.contains(assignment.user))
      add(assignment, FindingKind::assignmentWithoutUser, "Diesen Benutzer gibt es nicht (mehr).");
    count(assignment, range);
  }

  // Assignments in circles of others do not count, nor do those of keys that there are none of.
  void count(const Assignment& assignment, const Range* range) {
    const auto key = directory_.numberOf(assignment.key);
    if (!key || !circles_.contains(assignment.circle)) return;
    Served& served = served_[assignment.user][*key];
    ++served.assigned;
    if (range != nullptr && directory_.isUsable(*range)) ++served.usable;
  }

  void add(const Assignment& assignment, FindingKind kind, const std::string& text) {
    findings_.push_back({.kind = kind,
                         .severity = Severity::warning,
                         .circle = assignment.circle,
                         .key = assignment.key,
                         .user = assignment.user,
                         .text = "Zuordnung von " + assignment.user + " zu " + assignment.key +
                                 ", " + company_.circleName(assignment.circle) + ": " + text});
  }

  void examine(const std::string& user) {
    std::vector<std::string> without;
    std::vector<std::string> ambiguous;
    for (const std::string& key : directory_.usableKeys()) {
      const Served served = servedWith(user, *directory_.numberOf(key));
      if (served.assigned > 1) {
        ambiguous.push_back(key);
      } else if (served.usable == 0) {
        without.push_back(key);
      }
    }
    add(user, FindingKind::userWithoutRange, without,
        "hat keinen Nummernkreis für " + list(without) +
            ". Bitte im Dialog für diesen Benutzer zuordnen.");
    add(user, FindingKind::userAmbiguous, ambiguous,
        "hat mehrere Nummernkreise für " + list(ambiguous) +
            "; beim Ziehen muss der Buchungskreis genannt werden.");
  }

  Served servedWith(const std::string& user, KeyNumber key) const {
    for (const std::string& name : {user, std::string(everybody)}) {
      const auto keys = served_.find(name);
      if (keys == served_.end()) continue;
      const auto served = keys->second.find(key);
      if (served != keys->second.end()) return served->second;
    }
    return {};
  }

  void add(const std::string& user, FindingKind kind, const std::vector<std::string>& keys,
           const std::string& text) {
    if (keys.empty()) return;
    findings_.push_back({.kind = kind,
                         .severity = Severity::warning,
                         .user = user,
                         .keys = keys,
                         .text = "Benutzer " + user + " " + text});
  }

  static std::string list(const std::vector<std::string>& keys) {
    std::string text;
    for (const std::string& key : keys) text += (text.empty() ? "" : ", ") + key;
    return text;
  }

  const Company& company_;
  RangeDirectory directory_;
  std::unordered_set<std::string> users_;
  std::unordered_set<std::int32_t> circles_;
  std::unordered_map<std::string, ServedKeys> served_;
  std::vector<Finding>& findings_;
};

void addSharedRanges(const Company& company, std::vector<Finding>& findings) {
  for (const Range* range : checkedRanges(company)) {
    if (range->sharedKey.empty() || company.find(range->circle, range->sharedKey) != nullptr)
      continue;
    findings.push_back(findingAt(*range, FindingKind::sharedRangeMissing, Severity::warning,
                                 describe(company, *range) + ": Der Nummernkreis " +
                                     range->sharedKey +
                                     ", aus dem gezogen wird, fehlt in diesem Buchungskreis."));
  }
}

void addSpecialRanges(const Company& company, std::vector<Finding>& findings) {
  std::unordered_set<std::string_view> keys;
  for (const Range& range : company.ranges) keys.insert(range.key);
  for (const SpecialRange& special : company.specialRanges) {
    if (!special.active || keys.contains(special.ownKey)) continue;
    findings.push_back({.kind = FindingKind::specialRangeUnused,
                        .severity = Severity::warning,
                        .key = special.ownKey,
                        .text = "Der Sonderkreis " + special.description + " (" + special.ownKey +
                                ") ist eingeschaltet und hat noch keine Nummern. Bitte im Dialog "
                                "eintragen und speichern."});
  }
}

}  // namespace

void addAssignments(const Company& company, std::vector<Finding>& findings) {
  addSharedRanges(company, findings);
  addSpecialRanges(company, findings);
  AssignmentCheck(company, findings).run();
}

}  // namespace vexnumkr::numbers
