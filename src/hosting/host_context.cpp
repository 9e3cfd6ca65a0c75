#include "hosting/host_context.h"

namespace vexnumkr {
namespace {

constexpr const char* firstOrigin = "ORB";
constexpr const char* secondOrigin = "ORC";

}  // namespace

std::string HostContext::Herkunft() const {
  if (LngApplication_ == 1) return firstOrigin;
  if (LngApplication_ == 2) return secondOrigin;
  return {};
}

std::string HostContext::andereHerkunft() const {
  if (LngApplication_ == 1) return secondOrigin;
  if (LngApplication_ == 2) return firstOrigin;
  return {};
}

}  // namespace vexnumkr
