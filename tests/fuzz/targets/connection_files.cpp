// Files with connection strings: their first line comes out, or they are refused.
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string>

#include "app/command_line.h"
#include "app/connection_file.h"
#include "fuzz/support/input.h"
#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

// A file that has no name but the one of its descriptor.
class NamelessFile {
 public:
  NamelessFile(const std::string& content, mode_t mode)
      : number_(memfd_create("connection", MFD_CLOEXEC)) {
    require(number_ >= 0 && fchmod(number_, mode) == 0, "a file can be made");
    require(write(number_, content.data(), content.size()) == static_cast<ssize_t>(content.size()),
            "a file can be written");
  }
  ~NamelessFile() { close(number_); }
  NamelessFile(const NamelessFile&) = delete;
  NamelessFile& operator=(const NamelessFile&) = delete;

  std::string name() const { return "/proc/self/fd/" + std::to_string(number_); }

 private:
  int number_;
};

std::optional<std::string> expected(const std::string& content, mode_t mode) {
  constexpr std::size_t largest = 65536;
  if ((mode & 0066) != 0 || content.size() > largest) return std::nullopt;
  std::string line = content.substr(0, content.find('\n'));
  line.erase(line.find_last_not_of(" \t\r") + 1);
  line.erase(0, line.find_first_not_of(" \t\r"));
  if (line.empty()) return std::nullopt;
  return line;
}

std::optional<std::string> readBack(const std::string& content, mode_t mode) {
  const NamelessFile file(content, mode);
  try {
    return app::readConnectionFile(file.name());
  } catch (const app::UsageError& error) {
    const std::string message = error.what();
    require(message.find(file.name()) != std::string::npos, "a refusal names the file", {message});
    return std::nullopt;
  }
}

}  // namespace
}  // namespace vexnumkr::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vexnumkr::fuzz;
  Input input(data, size);
  // Others may read or write one in four; the user may always read, or root alone could.
  static constexpr mode_t modes[] = {0600, 0400, 0700, 0711, 0600, 0640, 0602, 0666};
  const mode_t mode = modes[input.choice(std::size(modes))];
  const auto padding = static_cast<std::size_t>(input.number()) % 70'000;
  std::string content = input.rest();
  content.insert(0, padding, input.flag() ? '\n' : ' ');
  const auto found = readBack(content, mode);
  require(found == expected(content, mode), "the first line comes out, or nothing",
          {content, found.value_or("(nothing)")});
  return 0;
}
