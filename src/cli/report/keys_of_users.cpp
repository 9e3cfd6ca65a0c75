#include "cli/report/keys_of_users.h"

#include <algorithm>

namespace vexnumkr::cli {

// A large company has hundreds of thousands of assignments: a key is looked for once for all of
// its users.
KeysOfUsers::KeysOfUsers(const numbers::Company& company) {
  for (const std::string& user : company.users) circles_[user];
  const std::string* key = nullptr;
  std::size_t position = 0;
  for (const numbers::Assignment& assignment : company.assignments) {
    if (key == nullptr || *key != assignment.key) {
      key = &assignment.key;
      position = positions_.emplace(*key, positions_.size()).first->second;
    }
    auto& ofUser = circles_[assignment.user];
    if (ofUser.size() <= position) ofUser.resize(position + 1);
    Circles& circles = ofUser[position];
    if (circles.empty() || circles.back() != assignment.circle)
      circles.push_back(assignment.circle);
  }
}

std::vector<std::string_view> KeysOfUsers::users() const {
  std::vector<std::string_view> users;
  users.reserve(circles_.size());
  for (const auto& [user, circles] : circles_) users.push_back(user);
  std::sort(users.begin(), users.end());
  return users;
}

}  // namespace vexnumkr::cli
