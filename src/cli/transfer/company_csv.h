// The settings of a company read from the CSV files that it was written to.
#pragma once

#include <string>

#include "cli/transfer/wanted_company.h"

namespace vexnumkr::cli {

/// The company in the files of `folder` that writeCsv has written there (company_tables.h), its
/// texts without trailing blanks. Columns are found by their headings; AktuellerWert may be
/// missing. Error: UsageError for files that are missing or not as they should be, with all their
/// faults.
WantedCompany companyInFolder(const std::string& folder);

}  // namespace vexnumkr::cli
