#include "cli/transfer/file_content.h"

#include <fstream>
#include <iostream>
#include <sstream>

#include "cli/usage_error.h"

namespace vexnumkr::cli {

std::string contentOf(const std::string& file) {
  std::ostringstream content;
  if (file == "-") {
    content << std::cin.rdbuf();
    return content.str();
  }
  std::ifstream in(file, std::ios::binary);
  if (in) content << in.rdbuf();
  if (!in) throw UsageError("Die Datei " + file + " ist nicht zu lesen.");
  return content.str();
}

}  // namespace vexnumkr::cli
