// The assignments of a company, by user.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <vexnumkr/number_company.h>

namespace vexnumkr::cli {

/// The keys of each user, and the circles of each of these. Of the company, which has to live as
/// long, only names are kept.
class KeysOfUsers {
 public:
  /// Assignments come by circle, key and user, as readCompany reads them.
  explicit KeysOfUsers(const numbers::Company& company);

  /// Everybody in the user table and everybody who has an assignment, in the order of their bytes.
  std::vector<std::string_view> users() const;

  /// Calls `visit(key, circles)` for each key that the user has, in the order of their bytes, with
  /// its circles ascending.
  template <class Visit>
  void forEachKey(std::string_view user, Visit&& visit) const {
    const auto& circles = circles_.at(user);
    for (const auto& [key, position] : positions_)
      if (position < circles.size() && !circles[position].empty())
        visit(std::string(key), circles[position]);
  }

 private:
  using Circles = std::vector<std::int32_t>;

  std::map<std::string_view, std::size_t> positions_;  // Of keys, in a user's vector.
  std::unordered_map<std::string_view, std::vector<Circles>> circles_;
};

}  // namespace vexnumkr::cli
