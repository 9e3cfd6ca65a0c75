// The few things that registration does to the registry. All return Windows' error codes.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::server {

/// A key that is closed with its owner.
class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }

  /// Opens the key for reading and writing; one that is not there is made.
  LSTATUS create(HKEY parent, const std::wstring& path);
  HKEY get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

LSTATUS createKey(HKEY parent, const std::wstring& path);
/// Writes a text value of that key, which is made where it is missing; the default value has the
/// name "".
LSTATUS setText(HKEY parent, const std::wstring& path, const std::wstring& name,
                const std::wstring& text);
bool keyExists(HKEY parent, const std::wstring& path);
/// Removes the key with all below; a missing one is no failure.
LSTATUS removeTree(HKEY parent, const std::wstring& path);

/// Takes the steps one after the other, up to the first that fails, and returns its code.
LSTATUS firstFailure(std::initializer_list<std::function<LSTATUS()>> steps);

}  // namespace vexnumkr::server
