// The single-threaded apartment that automation needs, for programs that link this file.
#include <gtest/gtest.h>

#include <optional>

#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

class InApartment : public testing::Environment {
 public:
  void SetUp() override { apartment_.emplace(); }
  void TearDown() override { apartment_.reset(); }

 private:
  std::optional<Apartment> apartment_;
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new InApartment);

}  // namespace
}  // namespace vexnumkr::test
