#include "app/connection_text.h"
#include "app/sample/create_sample.h"
#include "bench/cases.h"

namespace vexnumkr::bench {

std::string Workplace::companyFile(const char* name, int companyScale) const {
  const std::string file = folder.filePath(QLatin1String(name)).toStdString();
  host::createSampleFile(file, companyScale);
  return file;
}

std::string connectionStringOf(const std::string& file) { return host::sqliteConnectionText(file); }

}  // namespace vexnumkr::bench
