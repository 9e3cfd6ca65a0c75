// Texts as automation passes them.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "adapters/automation/com/com_headers.h"

namespace vexnumkr::automation {

/// UTF-8 to UTF-16 and back. What is not well formed becomes U+FFFD.
std::wstring toWide(std::string_view text);
std::string toUtf8(std::wstring_view text);

/// Whether a text is well-formed, so that nothing of it has to be replaced.
bool isWellFormed(std::wstring_view text);

/// The text of a BSTR, which may be null or hold zero characters.
std::string toUtf8(BSTR text);

/// A BSTR that is freed with its owner.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view text);
  explicit Bstr(std::wstring_view text);
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { SysFreeString(text_); }

  BSTR get() const { return text_; }
  /// For functions that deliver a BSTR. REQUIRES: it is empty.
  BSTR* receive() { return &text_; }
  /// Hands the BSTR over to the caller.
  BSTR release() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

}  // namespace vexnumkr::automation
