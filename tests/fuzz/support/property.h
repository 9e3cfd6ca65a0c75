// What a target demands of the code that it attacks.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

/// The entry of every target; libFuzzer and the test over the corpus call it. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace vexnumkr::fuzz {

/// An input for which a property does not hold. Nobody catches it: it ends a fuzzer, which keeps
/// the input, and fails a test.
class Violation : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Demands a property; the message of the violation names it and shows the texts at hand.
inline void require(bool holds, const char* property,
                    std::initializer_list<std::string_view> texts = {}) {
  if (holds) return;
  std::string message = property;
  for (const std::string_view text : texts) message.append("\n  <").append(text).append(">");
  throw Violation(message);
}

}  // namespace vexnumkr::fuzz
