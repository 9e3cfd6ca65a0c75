#include "data/origin.h"

namespace vexnumkr {
namespace {

constexpr const char* firstOrigin = "ORB";
constexpr const char* secondOrigin = "ORC";

}  // namespace

std::string Origin::Herkunft() const {
  if (!exists()) return {};
  return application_ == 1 ? firstOrigin : secondOrigin;
}

std::string Origin::andereHerkunft() const {
  if (!exists()) return {};
  return application_ == 1 ? secondOrigin : firstOrigin;
}

}  // namespace vexnumkr
