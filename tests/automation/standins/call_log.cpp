#include "automation/standins/call_log.h"

#include <fstream>

#include "automation/standins/environment.h"

namespace vexnumkr::standins {

void logCall(const std::string& line) {
  const std::string file = environment(L"VEXNUMKR_CALL_LOG");
  if (!file.empty()) std::ofstream(file, std::ios::app | std::ios::binary) << line << '\n';
}

}  // namespace vexnumkr::standins
