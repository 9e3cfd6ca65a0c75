#include "windows/registration.h"

#include <array>
#include <string_view>

#include "windows/interface.h"
#include "windows/registry_key.h"

namespace vexnumkr::server {
namespace {

constexpr const wchar_t* classesPath = L"Software\\Classes";
// Calls from other apartments are passed on by the type library.
constexpr const wchar_t* typeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr bool is64Bit = sizeof(void*) == 8;
constexpr const wchar_t* platform = is64Bit ? L"win64" : L"win32";
constexpr const wchar_t* otherPlatform = is64Bit ? L"win32" : L"win64";

std::wstring textOf(const GUID& id) {
  std::array<wchar_t, 39> text = {};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring classKey() { return L"CLSID\\" + textOf(classId); }
std::wstring interfaceKey() { return L"Interface\\" + textOf(interfaceId); }
std::wstring libraryKey() { return L"TypeLib\\" + textOf(libraryId); }
std::wstring versionKey() { return libraryKey() + L"\\" + libraryVersion; }
std::wstring localeKey() { return versionKey() + L"\\" + libraryLocale; }

std::wstring folderOf(const std::wstring& file) { return file.substr(0, file.find_last_of(L'\\')); }

LSTATUS writeClass(HKEY classes, const std::wstring& file) {
  const std::wstring key = classKey();
  return firstFailure({
      [&] { return setText(classes, key, L"", programId); },
      [&] { return setText(classes, key + L"\\InprocServer32", L"", file); },
      [&] { return setText(classes, key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"); },
      [&] { return setText(classes, key + L"\\ProgID", L"", programId); },
      [&] { return setText(classes, key + L"\\TypeLib", L"", textOf(libraryId)); },
      [&] { return setText(classes, key + L"\\VERSION", L"", libraryVersion); },
      [&] { return createKey(classes, key + L"\\Programmable"); },
      [&] { return setText(classes, programId, L"", programId); },
      [&] { return setText(classes, std::wstring(programId) + L"\\Clsid", L"", textOf(classId)); },
  });
}

LSTATUS writeTypeLibrary(HKEY classes, const std::wstring& file) {
  return firstFailure({
      [&] { return setText(classes, versionKey(), L"", libraryDescription); },
      [&] { return setText(classes, localeKey() + L"\\" + platform, L"", file); },
      [&] { return setText(classes, versionKey() + L"\\FLAGS", L"", L"0"); },
      [&] { return setText(classes, versionKey() + L"\\HELPDIR", L"", folderOf(file)); },
  });
}

LSTATUS writeInterface(HKEY classes) {
  const std::wstring key = interfaceKey();
  return firstFailure({
      [&] { return setText(classes, key, L"", interfaceName); },
      [&] { return setText(classes, key + L"\\ProxyStubClsid32", L"", typeLibraryMarshaller); },
      [&] { return setText(classes, key + L"\\TypeLib", L"", textOf(libraryId)); },
      [&] { return setText(classes, key + L"\\TypeLib", L"Version", libraryVersion); },
  });
}

// Both word lengths share the name and the type library's key; the library's tells whether the
// other one is registered.
LSTATUS removeWhatIsShared(HKEY classes) {
  if (keyExists(classes, localeKey() + L"\\" + otherPlatform)) return ERROR_SUCCESS;
  return firstFailure({
      [&] { return removeTree(classes, programId); },
      [&] { return removeTree(classes, libraryKey()); },
  });
}

LSTATUS remove(HKEY classes) {
  return firstFailure({
      [&] { return removeTree(classes, classKey()); },
      [&] { return removeTree(classes, interfaceKey()); },
      [&] { return removeTree(classes, localeKey() + L"\\" + platform); },
      [&] { return removeWhatIsShared(classes); },
  });
}

HRESULT withClasses(HKEY root, HRESULT (*action)(HKEY, const std::wstring&),
                    const std::wstring& file) {
  RegistryKey classes;
  const LSTATUS opened = classes.create(root, classesPath);
  return opened == ERROR_SUCCESS ? action(classes.get(), file) : HRESULT_FROM_WIN32(opened);
}

HRESULT removeFrom(HKEY root) {
  return withClasses(root, [](HKEY classes, const std::wstring&) { return unregisterIn(classes); },
                     {});
}

// Any part will do, so that what an interrupted removal has left is found again.
bool isRegisteredIn(HKEY root) {
  const std::wstring classes = std::wstring(classesPath) + L"\\";
  return keyExists(root, classes + classKey()) || keyExists(root, classes + interfaceKey()) ||
         keyExists(root, classes + localeKey() + L"\\" + platform);
}

}  // namespace

HRESULT registerIn(HKEY classes, const std::wstring& libraryFile) {
  const LSTATUS written = firstFailure({
      [&] { return writeClass(classes, libraryFile); },
      [&] { return writeTypeLibrary(classes, libraryFile); },
      [&] { return writeInterface(classes); },
  });
  if (written != ERROR_SUCCESS) remove(classes);
  return HRESULT_FROM_WIN32(written);
}

HRESULT unregisterIn(HKEY classes) { return HRESULT_FROM_WIN32(remove(classes)); }

HRESULT registerServer(const std::wstring& libraryFile) {
  const HRESULT registered = withClasses(HKEY_LOCAL_MACHINE, registerIn, libraryFile);
  if (registered == E_ACCESSDENIED) return withClasses(HKEY_CURRENT_USER, registerIn, libraryFile);
  if (FAILED(registered)) return registered;
  // What this user registered earlier would hide the machine's.
  if (isRegisteredIn(HKEY_CURRENT_USER)) removeFrom(HKEY_CURRENT_USER);
  return S_OK;
}

HRESULT unregisterServer() {
  HRESULT result = S_OK;
  for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    if (!isRegisteredIn(root)) continue;
    const HRESULT removed = removeFrom(root);
    if (FAILED(removed)) result = removed;
  }
  return result;
}

}  // namespace vexnumkr::server
