#include "windows/registry_key.h"

namespace vexnumkr::server {

LSTATUS RegistryKey::create(HKEY parent, const std::wstring& path) {
  return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_,
                         nullptr);
}

LSTATUS createKey(HKEY parent, const std::wstring& path) {
  RegistryKey key;
  return key.create(parent, path);
}

LSTATUS setText(HKEY parent, const std::wstring& path, const std::wstring& name,
                const std::wstring& text) {
  RegistryKey key;
  const LSTATUS opened = key.create(parent, path);
  if (opened != ERROR_SUCCESS) return opened;
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetValueExW(key.get(), name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(text.c_str()), size);
}

bool keyExists(HKEY parent, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

LSTATUS removeTree(HKEY parent, const std::wstring& path) {
  const LSTATUS removed = RegDeleteTreeW(parent, path.c_str());
  return removed == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : removed;
}

LSTATUS firstFailure(std::initializer_list<std::function<LSTATUS()>> steps) {
  for (const auto& step : steps)
    if (const LSTATUS status = step(); status != ERROR_SUCCESS) return status;
  return ERROR_SUCCESS;
}

}  // namespace vexnumkr::server
