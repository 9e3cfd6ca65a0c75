#include "cli/transfer/wanted_file.h"

#include <filesystem>

#include "cli/transfer/company_csv.h"
#include "cli/transfer/company_json.h"
#include "cli/transfer/file_content.h"
#include "cli/usage_error.h"

namespace vexnumkr::cli {

WantedCompany readWantedCompany(const Session& session, const std::string& file) {
  std::error_code none;
  WantedCompany wanted = std::filesystem::is_directory(file, none) ? companyInFolder(file)
                                                                   : companyOf(contentOf(file));
  const std::int32_t application = wanted.company.application;
  if (application != session.application())
    throw UsageError("Die Datei ist von der Anwendung " + std::to_string(application) +
                     ", nicht von " + std::to_string(session.application()) + ".");
  requireEachOnce(wanted);
  return wanted;
}

}  // namespace vexnumkr::cli
