#include "data/table/assigned_ranges.h"

namespace vexnumkr {

std::uint64_t AssignedRanges::rangeOf(std::int32_t circle, Number key) {
  return std::uint64_t{static_cast<std::uint32_t>(circle)} << 32 | key;
}

Assigned& AssignedRanges::at(std::int32_t circle, Number key, Number user) {
  UsersOfRange& users = ranges_[rangeOf(circle, key)];
  if (users.empty()) users.resize(users_.size(), Assigned::No);
  return users[user];
}

void AssignedRanges::add(std::int32_t Buchungskreis, std::string_view NSchl,
                         std::string_view Benutzer) {
  const Number key = keys_.find(NSchl);
  const Number user = users_.find(Benutzer);
  const bool isKnown = key != LooseNames::none && user != LooseNames::none;
  if (isKnown) at(Buchungskreis, key, user) = Assigned::Yes;
  if (!isKnown || keys_.hasSimilar(key) || users_.hasSimilar(user))
    addDoubtful(Buchungskreis, NSchl, Benutzer);
}

void AssignedRanges::addDoubtful(std::int32_t Buchungskreis, std::string_view NSchl,
                                 std::string_view Benutzer) {
  const auto users = users_.similar(Benutzer);
  if (users.empty()) return;
  for (const Number key : keys_.similar(NSchl))
    for (const Number user : users)
      if (Assigned& found = at(Buchungskreis, key, user); found == Assigned::No)
        found = Assigned::Perhaps;
}

Assigned AssignedRanges::find(std::int32_t Buchungskreis, std::string_view NSchl,
                              std::string_view Benutzer) const {
  const Number key = keys_.find(NSchl);
  const Number user = users_.find(Benutzer);
  // Whoever has no number here was not asked for when the assignments were read.
  if (key == LooseNames::none || user == LooseNames::none) return Assigned::Perhaps;
  const auto found = ranges_.find(rangeOf(Buchungskreis, key));
  return found == ranges_.end() ? Assigned::No : found->second[user];
}

}  // namespace vexnumkr
