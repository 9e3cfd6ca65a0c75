#include "app/sample/scaled_company.h"

#include <algorithm>

namespace vexnumkr::app {
namespace {

constexpr const char* origin = "ORB";
constexpr const char* everybody = "ALL";
constexpr std::int32_t numbersPerRange = 10000;

/// `number` with leading zeros, so that names sort as numbers do.
std::string padded(int number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}

int part(int scale, int fifths) { return std::max(1, scale * fifths / 5); }

SampleRange range(std::int32_t circle, int type) {
  const std::int32_t start = circle * numbersPerRange + 1;
  return {circle, "T" + padded(type), "Belegart " + padded(type),
          start,  start + type,       start + numbersPerRange - 2,
          true,   10 * type,          "",
          ""};
}

}  // namespace

SampleCompany scaledCompany(int scale) {
  SampleCompany company;
  for (int user = 1; user <= part(scale, 10); ++user)
    company.users.push_back("Benutzer " + padded(user));
  for (int circle = 1; circle <= part(scale, 4); ++circle)
    company.circles.push_back({circle, "Filiale " + padded(circle), origin});
  for (std::int32_t circle = 0; circle <= part(scale, 4); ++circle) {
    for (int type = 1; type <= part(scale, 6); ++type) {
      company.ranges.push_back(range(circle, type));
      const std::string& key = company.ranges.back().key;
      company.assignments.push_back({circle, key, everybody, origin});
      for (const std::string& user : company.users)
        company.assignments.push_back({circle, key, user, origin});
    }
  }
  return company;
}

SampleCompany sampleCompany(int scale) {
  return scale == 0 ? smallCompany() : scaledCompany(scale);
}

}  // namespace vexnumkr::app
