#include "adapters/automation/com/bstr.h"

#include <new>

namespace vexnumkr::automation {

std::wstring toWide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string toUtf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), static_cast<int>(narrow.size()),
                      nullptr, nullptr);
  return narrow;
}

bool isWellFormed(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  return text.empty() || WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, text.data(), size,
                                             nullptr, 0, nullptr, nullptr) > 0;
}

std::string toUtf8(BSTR text) { return toUtf8(std::wstring_view(text, SysStringLen(text))); }

Bstr::Bstr(std::string_view text) : Bstr(std::wstring_view(toWide(text))) {}

Bstr::Bstr(std::wstring_view text)
    : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
  if (text_ == nullptr) throw std::bad_alloc();
}

}  // namespace vexnumkr::automation
