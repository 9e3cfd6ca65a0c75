// The library file in a process: loaded, used and let go.
#include <gtest/gtest.h>

#include "automation/hosts/session.h"

namespace vexnumkr::test {
namespace {

using automation::ComPtr;

/// The library file, loaded as long as this lives.
class Library {
 public:
  Library() : module_(LoadLibraryW(environment(L"VEXNUMKR_SERVER").c_str())) {}
  ~Library() { FreeLibrary(module_); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  explicit operator bool() const { return module_ != nullptr; }

  HRESULT canUnloadNow() const { return function<HRESULT STDAPICALLTYPE()>("DllCanUnloadNow")(); }

  template <typename Interface>
  HRESULT classObject(REFCLSID id, ComPtr<Interface>& result) const {
    using Function = HRESULT STDAPICALLTYPE(REFCLSID, REFIID, void**);
    return function<Function>("DllGetClassObject")(
        id, __uuidof(Interface), reinterpret_cast<void**>(result.ReleaseAndGetAddressOf()));
  }

 private:
  template <typename Function>
  Function* function(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
};

std::vector<std::string> exportsOf(const std::wstring& file) {
  const HMODULE module = LoadLibraryExW(file.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
  const auto* const base = reinterpret_cast<const BYTE*>(module);
  const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(
      base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
  const auto& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  const auto* const exports =
      reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
  const auto* const names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
  std::vector<std::string> result;
  for (DWORD i = 0; i < exports->NumberOfNames; ++i)
    result.emplace_back(reinterpret_cast<const char*>(base + names[i]));
  FreeLibrary(module);
  return result;
}

TEST(LibraryFile, ExportsFourFunctions) {
  EXPECT_EQ(exportsOf(environment(L"VEXNUMKR_SERVER")),
            (std::vector<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                      "DllUnregisterServer"}));
}

TEST(LibraryFile, HasAnInternalName) {
  const std::wstring file = environment(L"VEXNUMKR_SERVER");
  std::vector<BYTE> information(GetFileVersionInfoSizeW(file.c_str(), nullptr));
  ASSERT_TRUE(GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(information.size()),
                                  information.data()));
  void* name = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueW(information.data(), L"\\StringFileInfo\\040904B0\\InternalName", &name,
                             &length));
  EXPECT_STREQ(static_cast<const wchar_t*>(name), L"VEXNumKr");
}

TEST(LibraryFile, MayBeLoadedAndUnloaded) {
  for (int round = 0; round < 5; ++round) {
    {
      const Library library;
      ASSERT_TRUE(library);
      EXPECT_EQ(library.canUnloadNow(), S_OK);
    }
    EXPECT_EQ(GetModuleHandleW(L"VEXNumKr.dll"), nullptr);
  }
}

TEST(LibraryFile, StaysWhileSomethingIsInUse) {
  const Apartment apartment;
  const Library library;
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(library.classObject(server::classId, factory), S_OK);
  EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  ComPtr<IDispatch> numbers;
  ASSERT_EQ(factory->CreateInstance(nullptr, IID_PPV_ARGS(&numbers)), S_OK);
  factory.Reset();
  EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  numbers.Reset();
  EXPECT_EQ(library.canUnloadNow(), S_OK);
  ASSERT_EQ(library.classObject(server::classId, factory), S_OK);
  ASSERT_EQ(factory->LockServer(TRUE), S_OK);
  IClassFactory* const bare = factory.Get();
  bare->AddRef();
  factory.Reset();
  EXPECT_EQ(library.canUnloadNow(), S_FALSE);
  ASSERT_EQ(bare->LockServer(FALSE), S_OK);
  bare->Release();
  EXPECT_EQ(library.canUnloadNow(), S_OK);
}

TEST(LibraryFile, ServesOneClass) {
  const Apartment apartment;
  const Library library;
  ComPtr<IClassFactory> factory;
  EXPECT_EQ(library.classObject(IID_IDispatch, factory), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(factory, nullptr);
}

TEST(LibraryFile, IsNotAggregated) {
  const Apartment apartment;
  const Library library;
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(library.classObject(server::classId, factory), S_OK);
  void* numbers = nullptr;
  EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &numbers), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(numbers, nullptr);
}

// Last of all: afterwards the library file stays in this process.
TEST(LibraryFile, StaysOnceItHasBeenUsed) {
  const Apartment apartment;
  automation::LateBound connection = openConnection();
  {
    const ComPtr<_VXNummernkreise> numbers = createNumbers();
    IDispatch* bare = connection.object();
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(numbers->Init(&bare, 2, nullptr, nullptr, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE);
  }
  EXPECT_EQ(Library().canUnloadNow(), S_FALSE);
  CoFreeUnusedLibrariesEx(0, 0);
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_NE(GetModuleHandleW(L"VEXNumKr.dll"), nullptr);
  const ComPtr<_VXNummernkreise> again = createNumbers();
  EXPECT_NE(again, nullptr);
}

}  // namespace
}  // namespace vexnumkr::test
