#pragma once

#include <vector>

#include "aldlib/platform/Types.h"

namespace alder_checks {

// The running processes, "1234  /usr/bin/program (12 libraries)"; one line that says so if they
// cannot be listed.
std::vector<ald::CString> ProcessLines();

// The messages that the user has seen, the newest first: "20311  Invalid date".
std::vector<ald::CString> LogLines();

}  // namespace alder_checks
