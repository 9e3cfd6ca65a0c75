// Files of "vexnumkr export", in either form that can be read.
#pragma once

#include <string>

#include "cli/session.h"
#include "cli/transfer/wanted_company.h"

namespace vexnumkr::cli {

/// The company in a file, in a folder of CSV files, or on standard input ("-"). Error: UsageError
/// for what is not as it should be, or of another application than the session's.
WantedCompany readWantedCompany(const Session& session, const std::string& file);

}  // namespace vexnumkr::cli
