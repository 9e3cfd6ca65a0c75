// The settings of a company as one JSON document.
#pragma once

#include <string>

#include <vexnumkr/number_company.h>

#include "cli/json.h"

namespace vexnumkr::cli {

/// The same company always gives the same document. Without current values where they are not
/// wanted.
Json documentOf(const numbers::Company& company, bool withCurrent);

/// The company in a document. Error: UsageError for a text that is no such document, with the place
/// in it.
numbers::Company companyOf(const std::string& text);

}  // namespace vexnumkr::cli
