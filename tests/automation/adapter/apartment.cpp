// The single-threaded apartment that automation needs, for programs that link this file.
#include <gtest/gtest.h>

#include "adapters/automation/com/com_headers.h"

namespace {

class Apartment : public testing::Environment {
 public:
  void SetUp() override { ASSERT_EQ(CoInitialize(nullptr), S_OK); }
  void TearDown() override { CoUninitialize(); }
};

[[maybe_unused]] const testing::Environment* const apartment =
    testing::AddGlobalTestEnvironment(new Apartment);

}  // namespace
