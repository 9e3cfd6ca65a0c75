// The settings of a company as one JSON document.
#pragma once

#include <string>

#include <vexnumkr/number_company.h>

#include "cli/json.h"
#include "cli/transfer/wanted_company.h"

namespace vexnumkr::cli {

/// The same company always gives the same document. Without current values where they are not
/// wanted.
Json documentOf(const numbers::Company& company, bool withCurrent);

/// The company in a document, its texts without trailing blanks. Error: UsageError for a text that
/// is no such document, with all its faults and their places.
WantedCompany companyOf(const std::string& text);

}  // namespace vexnumkr::cli
