// Registration by a user who may write where all users' classes are, and by one who may not.
//
// Windows lets a program replace the roots of its registry; these tests replace both.
#include "windows/registration.h"

#include <gtest/gtest.h>

#include "automation/hosts/session.h"
//
#include <sddl.h>

#include "windows/registry_key.h"

namespace vexnumkr::test {
namespace {

using server::keyExists;
using server::RegistryKey;

constexpr const wchar_t* library = L"C:\\Programme\\Firma\\VEXNumKr.dll";
constexpr const wchar_t* programKey = L"VEXNummernkreise.VXNummernkreise";
constexpr const wchar_t* classKey = L"CLSID\\{1799D539-16B2-4FA4-9CE5-48A27AE28092}";
constexpr const wchar_t* interfaceKey = L"Interface\\{B0FD56C2-6766-4A4D-B174-3CDD8672C0D1}";
constexpr const wchar_t* libraryKey = L"TypeLib\\{BED45F65-D524-4953-9E13-277FF3DC5AC5}";
constexpr const wchar_t* otherLength = sizeof(void*) == 8 ? L"win32" : L"win64";

/// An empty tree of the registry in place of one of the roots; gone with its owner.
class Root {
 public:
  /// In a tree that is not `writable` the classes may only be read.
  Root(HKEY root, const wchar_t* name, bool writable) : root_(root), path_(tree + name) {
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    EXPECT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, path_.c_str(), &key_), ERROR_SUCCESS);
    EXPECT_EQ(RegCreateKeyW(key_, L"Software\\Classes", &classes_), ERROR_SUCCESS);
    if (!writable) allow(L"D:P(A;;KR;;;WD)");
  }
  ~Root() {
    allow(L"D:P(A;;KA;;;WD)");
    RegOverridePredefKey(root_, nullptr);
    RegCloseKey(classes_);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
  }
  Root(const Root&) = delete;
  Root& operator=(const Root&) = delete;

  void takePlace() { EXPECT_EQ(RegOverridePredefKey(root_, key_), ERROR_SUCCESS); }

  bool has(const std::wstring& key) const { return keyExists(key_, L"Software\\Classes\\" + key); }
  /// The default value of a key; empty without one.
  std::wstring text(const std::wstring& key, const wchar_t* name = L"") const {
    wchar_t value[300] = {};
    DWORD size = sizeof value;
    RegGetValueW(key_, (L"Software\\Classes\\" + key).c_str(), name, RRF_RT_REG_SZ, nullptr, value,
                 &size);
    return value;
  }
  /// How many keys there are directly below the classes.
  DWORD classCount() const {
    HKEY classes = nullptr;
    DWORD count = 0;
    if (RegOpenKeyExW(key_, L"Software\\Classes", 0, KEY_READ, &classes) != ERROR_SUCCESS) return 0;
    RegQueryInfoKeyW(classes, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr,
                     nullptr, nullptr, nullptr);
    RegCloseKey(classes);
    return count;
  }

 private:
  /// Sets who may do what with the classes.
  void allow(const wchar_t* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1,
                                                                     &descriptor, nullptr));
    EXPECT_EQ(RegSetKeySecurity(classes_, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
  }

  static inline const std::wstring tree = L"Software\\vexnumkr-test\\";
  HKEY root_;
  HKEY key_ = nullptr;
  HKEY classes_ = nullptr;
  std::wstring path_;
};

class Registration : public testing::Test {
 protected:
  /// Replaces the roots: from now on this is the registry.
  void enter(bool machineIsWritable) {
    machine_ = std::make_unique<Root>(HKEY_LOCAL_MACHINE, L"machine", machineIsWritable);
    user_ = std::make_unique<Root>(HKEY_CURRENT_USER, L"user", true);
    machine_->takePlace();
    user_->takePlace();
  }
  static void expectNothingIn(const Root& root) {
    for (const wchar_t* const key : {programKey, classKey, interfaceKey, libraryKey})
      EXPECT_FALSE(root.has(key)) << key;
  }

  // The trees lie below the real root, which has to be back before they can be removed.
  void TearDown() override {
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    user_.reset();
    machine_.reset();
  }

  std::unique_ptr<Root> machine_;
  std::unique_ptr<Root> user_;
};

TEST_F(Registration, IsForTheMachineWhereThatIsAllowed) {
  enter(true);
  ASSERT_EQ(server::registerServer(library), S_OK);
  EXPECT_TRUE(machine_->has(programKey));
  EXPECT_EQ(user_->classCount(), 0U);
}

TEST_F(Registration, SaysWhereTheClassIs) {
  enter(true);
  ASSERT_EQ(server::registerServer(library), S_OK);
  const std::wstring server = std::wstring(classKey) + L"\\InprocServer32";
  EXPECT_EQ(machine_->text(server), library);
  EXPECT_EQ(machine_->text(server, L"ThreadingModel"), L"Apartment");
  EXPECT_EQ(machine_->text(std::wstring(programKey) + L"\\Clsid"),
            L"{1799D539-16B2-4FA4-9CE5-48A27AE28092}");
}

TEST_F(Registration, LeavesNothingBehind) {
  enter(true);
  ASSERT_EQ(server::registerServer(library), S_OK);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  expectNothingIn(*machine_);
}

TEST_F(Registration, IsForTheUserWhereTheMachineIsOthers) {
  enter(false);
  ASSERT_EQ(server::registerServer(library), S_OK);
  EXPECT_EQ(machine_->classCount(), 0U);
  EXPECT_EQ(user_->text(std::wstring(classKey) + L"\\InprocServer32"), library);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  expectNothingIn(*user_);
}

TEST_F(Registration, LeavesWhatTheOtherWordLengthNeeds) {
  enter(true);
  const std::wstring other = std::wstring(libraryKey) + L"\\2.0\\409\\" + otherLength;
  const std::wstring path = L"Software\\Classes\\" + other;
  ASSERT_EQ(server::setText(HKEY_LOCAL_MACHINE, path, L"", library), ERROR_SUCCESS);
  ASSERT_EQ(server::registerServer(library), S_OK);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  EXPECT_FALSE(machine_->has(classKey));
  EXPECT_TRUE(machine_->has(programKey));
  EXPECT_TRUE(machine_->has(other));
  ASSERT_EQ(server::removeTree(HKEY_LOCAL_MACHINE, path), ERROR_SUCCESS);
  ASSERT_EQ(server::registerServer(library), S_OK);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  expectNothingIn(*machine_);
}

TEST_F(Registration, MayBeRepeated) {
  enter(true);
  ASSERT_EQ(server::registerServer(L"C:\\alt\\VEXNumKr.dll"), S_OK);
  ASSERT_EQ(server::registerServer(library), S_OK);
  EXPECT_EQ(machine_->text(std::wstring(classKey) + L"\\InprocServer32"), library);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  EXPECT_EQ(server::unregisterServer(), S_OK);
}

TEST_F(Registration, OfTheMachineReplacesTheUsersOwn) {
  enter(true);
  RegistryKey classes;
  ASSERT_EQ(classes.create(HKEY_CURRENT_USER, L"Software\\Classes"), ERROR_SUCCESS);
  ASSERT_EQ(server::registerIn(classes.get(), L"C:\\alt\\VEXNumKr.dll"), S_OK);
  ASSERT_EQ(server::registerServer(library), S_OK);
  EXPECT_FALSE(user_->has(classKey));
  EXPECT_TRUE(machine_->has(classKey));
}

TEST_F(Registration, KeepsWhatOthersHave) {
  enter(true);
  ASSERT_EQ(server::setText(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID\\{andere}", L"", L"x"),
            ERROR_SUCCESS);
  ASSERT_EQ(server::registerServer(library), S_OK);
  ASSERT_EQ(server::unregisterServer(), S_OK);
  EXPECT_EQ(machine_->text(L"CLSID\\{andere}"), L"x");
}

}  // namespace
}  // namespace vexnumkr::test
