// A fuzzer's target over its corpus: what was found once is not found again.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/support/property.h"

namespace vexnumkr::fuzz {
namespace {

std::vector<std::filesystem::path> inputs() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(CORPUS_FOLDER))
    files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

TEST(CorpusTest, EveryPropertyHolds) {
  const auto files = inputs();
  ASSERT_FALSE(files.empty()) << "there is no input in " << CORPUS_FOLDER;
  for (const auto& file : files) {
    SCOPED_TRACE(file.filename());
    std::ifstream in(file, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(in), {}};
    const auto* const data = reinterpret_cast<const std::uint8_t*>(input.data());
    EXPECT_NO_THROW(EXPECT_EQ(LLVMFuzzerTestOneInput(data, input.size()), 0));
  }
}

}  // namespace
}  // namespace vexnumkr::fuzz
