// Creating the component by name from a library loaded at run time.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>

#include <vexnumkr/component.h>
#include <vexnumkr/error.h>

namespace vexnumkr {
namespace {

struct CloseLibrary {
  void operator()(void* library) const { dlclose(library); }
};

class FactoryTest : public ::testing::Test {
 protected:
  using Create = VXNummernkreise* (*)(const char*, HostComponents*);
  using Release = void (*)(VXNummernkreise*);

  void SetUp() override {
    library_.reset(dlopen(VEXNUMKR_LIBRARY, RTLD_NOW));
    ASSERT_NE(library_, nullptr) << dlerror();
    create = reinterpret_cast<Create>(dlsym(library_.get(), "vexnumkrCreateObject"));
    release = reinterpret_cast<Release>(dlsym(library_.get(), "vexnumkrReleaseObject"));
    ASSERT_NE(create, nullptr);
    ASSERT_NE(release, nullptr);
  }

  bool creates(const char* className) {
    VXNummernkreise* object = create(className, nullptr);
    release(object);
    return object != nullptr;
  }

  Create create = nullptr;
  Release release = nullptr;

 private:
  std::unique_ptr<void, CloseLibrary> library_;
};

TEST_F(FactoryTest, KnowsItsOneClassInAnyCase) {
  EXPECT_TRUE(creates("VXNummernkreise"));
  EXPECT_TRUE(creates("vxnummernkreise"));
  EXPECT_TRUE(creates("VEXNummernkreise.VXNummernkreise"));
}

TEST_F(FactoryTest, ReturnsNullForAnyOtherName) {
  EXPECT_FALSE(creates("VXNummernkreis"));
  EXPECT_FALSE(creates("frmNummernkreise"));
  EXPECT_FALSE(creates(""));
  EXPECT_FALSE(creates(nullptr));
}

TEST_F(FactoryTest, HandsOutAFreshObjectEachTime) {
  VXNummernkreise* first = create("VXNummernkreise", nullptr);
  VXNummernkreise* second = create("VXNummernkreise", nullptr);
  EXPECT_NE(first, second);
  release(first);
  release(second);
}

TEST(EmptyHostTest, OffersNothing) {
  EXPECT_EQ(emptyHost().Texts(), nullptr);
  EXPECT_EQ(emptyHost().Messages(), nullptr);
  try {
    emptyHost().CreateObject(component_name::settings);
    ADD_FAILURE() << "created";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), error_number::cannotCreateObject);
  }
}

}  // namespace
}  // namespace vexnumkr
