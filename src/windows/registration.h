// What makes the class known to Windows.
#pragma once

#include <string>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::server {

/// Makes the class and its type library known as living in `libraryFile`: to every user of the
/// machine or, where this user may not do that, to this user. Where it fails, nothing is left of
/// it.
HRESULT registerServer(const std::wstring& libraryFile);

/// Removes what registerServer has made, for the machine and for this user; nothing there is no
/// failure. What the library file of the other word length has registered stays.
HRESULT unregisterServer();

/// The same for one place: `classes` is the key that Windows keeps classes under, of the machine or
/// of a user.
HRESULT registerIn(HKEY classes, const std::wstring& libraryFile);
HRESULT unregisterIn(HKEY classes);

}  // namespace vexnumkr::server
