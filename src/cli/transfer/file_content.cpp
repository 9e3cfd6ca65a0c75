#include "cli/transfer/file_content.h"

#include <fstream>
#include <iostream>

#include "cli/usage_error.h"

namespace vexnumkr::cli {
namespace {

std::string contentOf(std::istream& in, const std::string& file) {
  constexpr std::size_t largest = std::size_t{256} << 20;
  constexpr std::size_t block = std::size_t{1} << 20;
  std::string content;
  for (std::size_t size = 0; in && size <= largest; content.resize(size)) {
    content.resize(size + block);
    in.read(content.data() + size, block);
    size += static_cast<std::size_t>(in.gcount());
  }
  if (in.bad()) throw UsageError("Die Datei " + file + " ist nicht zu lesen.");
  if (content.size() > largest)
    throw UsageError("Die Datei " + file + " ist zu groß; mehr als 256 MiB werden nicht gelesen.");
  return content;
}

}  // namespace

std::string contentOf(const std::string& file) {
  if (file == "-") return contentOf(std::cin, file);
  std::ifstream in(file, std::ios::binary);
  if (!in) throw UsageError("Die Datei " + file + " ist nicht zu lesen.");
  return contentOf(in, file);
}

}  // namespace vexnumkr::cli
