#pragma once

#include "aldlib/platform/Platform.h"

namespace ald {

// The system's own platform: built on first use and never destroyed. Each system supplies one; not
// for use outside this folder, where CurrentPlatform answers.
const Platform& SystemPlatform();

}  // namespace ald
