#include "scenario/world/temporary_folder.h"

#include <stdlib.h>

#include <filesystem>
#include <system_error>

#include <vexnumkr/error.h>

namespace vexnumkr::scenario {

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "vexnumkr-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr)
    throw Error(75, "TemporaryFolder", "no temporary folder can be made");
  path_ = pattern;
}

void TemporaryFolder::remove() noexcept {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace vexnumkr::scenario
