#pragma once

#include <cstdint>

namespace ald {

// The classic number for an errno, and the only place where one becomes the other. A missing name
// is kFileNotFound here; only who knows the path can tell a missing folder. An errno that is not in
// the list is kGeneralFailure.
std::uint32_t ClassicError(int nErrno) noexcept;

}  // namespace ald
