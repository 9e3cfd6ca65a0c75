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
  explicit RangeDirectory(const Company& company) : switchedOff_(company) {
    for (const Range& range : company.ranges) {
      const KeyNumber key = numbers_.try_emplace(range.key, next()).first->second;
      ranges_.emplace(place(range.circle, key), &range);
    }
    std::unordered_set<KeyNumber> known;
    for (const Range* range : checkedRanges(company))
      if (known.insert(numbers_.at(range->key)).second) keys_.push_back(range->key);
    std::sort(keys_.begin(), keys_.end());
  }

  const Range* find(std::int32_t circle, const std::string& key) const {
    const auto number = numbers_.find(key);
    if (number == numbers_.end()) return nullptr;
    const auto range = ranges_.find(place(circle, number->second));
    return range == ranges_.end() ? nullptr : range->second;
  }
  /// As a draw sees the range, which may be null.
  Drawable drawable(const Range* range) const {
    if (range == nullptr) return Drawable::missing;
    const Range* const shared =
        range->sharedKey.empty() ? nullptr : find(range->circle, range->sharedKey);
    return drawableOf(
        useOf(*range, switchedOff_), !range->sharedKey.empty(),
        shared == nullptr ? std::nullopt : std::optional(useOf(*shared, switchedOff_)));
  }
  /// Those of numberOf are below it.
  std::size_t keyCount() const { return numbers_.size(); }
  /// The keys with a range in use, ascending.
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
  SwitchedOffKeys switchedOff_;
  std::vector<std::string> keys_;
};

// What a user, or everybody, has of one key. Whoever has assignments of the own, usable or not, has
// no part in the common ones.
struct Served {
  std::int32_t assigned = 0;
  std::int32_t usable = 0;
};

// Somebody who is assigned ranges, or could be; by the numbers of the keys.
struct Drawer {
  bool isUser = false;
  std::vector<Served> served;
};

// What the assignments of one range have in common.
struct Place {
  Drawable drawable = Drawable::missing;
  std::optional<KeyNumber> key{};  ///< where assignments to it count
};

class AssignmentCheck {
 public:
  AssignmentCheck(const Company& company, const RangeDirectory& directory,
                  std::vector<Finding>& findings)
      : company_(company), directory_(directory), findings_(findings) {
    circles_.insert(0);
    for (const Circle& circle : company.circles) circles_.insert(circle.number);
    for (const std::string& user : company.users) drawers_[user].isUser = true;
  }

  // They come by circle, key and user.
  void run() {
    const Assignment* previous = nullptr;
    Place place;
    for (const Assignment& assignment : company_.assignments) {
      const bool isSamePlace = previous != nullptr && previous->circle == assignment.circle &&
                               previous->key == assignment.key;
      const bool isRepeated = isSamePlace && previous->user == assignment.user;
      if (!isSamePlace) place = placeOf(assignment);
      if (!isRepeated) examine(assignment, place);
      previous = &assignment;
    }
    for (const std::string& user : company_.users) examine(user);
  }

 private:
  // Assignments in circles of others do not count, nor do those of keys that there are none of.
  Place placeOf(const Assignment& assignment) const {
    Place place;
    place.drawable = directory_.drawable(directory_.find(assignment.circle, assignment.key));
    if (circles_.contains(assignment.circle)) place.key = directory_.numberOf(assignment.key);
    return place;
  }

  void examine(const Assignment& assignment, const Place& place) {
    if (place.drawable == Drawable::missing)
      add(assignment, FindingKind::assignmentWithoutRange,
          "Diesen Nummernkreis gibt es nicht (mehr).");
    if (place.drawable == Drawable::inactive)
      add(assignment, FindingKind::assignmentOfInactiveRange,
          "Dieser Nummernkreis ist nicht aktiviert.");
    if (place.drawable == Drawable::switchedOff)
      add(assignment, FindingKind::assignmentOfInactiveRange,
          "Dieser Sonderkreis ist ausgeschaltet.");
    Drawer& drawer = drawers_[assignment.user];
    if (!drawer.isUser && assignment.user != everybody)
      add(assignment, FindingKind::assignmentWithoutUser, "Diesen Benutzer gibt es nicht (mehr).");
    if (place.key) count(drawer, *place.key, place.drawable == Drawable::yes);
  }

  void count(Drawer& drawer, KeyNumber key, bool isUsable) const {
    if (drawer.served.empty()) drawer.served.resize(directory_.keyCount());
    ++drawer.served[key].assigned;
    if (isUsable) ++drawer.served[key].usable;
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
      if (served.usable > 1) {
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
      const auto drawer = drawers_.find(name);
      if (drawer == drawers_.end() || drawer->second.served.empty()) continue;
      const Served served = drawer->second.served[key];
      if (served.assigned > 0) return served;
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
  const RangeDirectory& directory_;
  std::unordered_set<std::int32_t> circles_;
  std::unordered_map<std::string, Drawer> drawers_;
  std::vector<Finding>& findings_;
};

void addSharedRanges(const Company& company, const RangeDirectory& directory,
                     std::vector<Finding>& findings) {
  for (const Range* range : checkedRanges(company)) {
    const Drawable drawable = directory.drawable(range);
    if (drawable == Drawable::yes) continue;
    const bool isMissing = drawable == Drawable::sharedMissing;
    findings.push_back(findingAt(
        *range, isMissing ? FindingKind::sharedRangeMissing : FindingKind::sharedRangeInactive,
        Severity::warning,
        describe(company, *range) + ": Der Nummernkreis " + range->sharedKey +
            ", aus dem gezogen wird, " +
            (isMissing ? "fehlt in diesem Buchungskreis."
                       : "ist in diesem Buchungskreis nicht aktiviert.")));
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
  const RangeDirectory directory(company);
  addSharedRanges(company, directory, findings);
  addSpecialRanges(company, findings);
  AssignmentCheck(company, directory, findings).run();
}

}  // namespace vexnumkr::numbers
