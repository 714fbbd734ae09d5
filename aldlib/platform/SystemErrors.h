#pragma once

#include <cstdint>

namespace ald {

// The classic numbers by which a system tells why a call on a file or folder failed. Callers of the
// library test them.
enum SystemError : std::uint32_t {
  kNoSystemError = 0,
  kFileNotFound = 2,
  kPathNotFound = 3,  // a folder on the way is missing, or is no folder
  kTooManyOpenFiles = 4,
  kAccessDenied = 5,
  kInvalidHandle = 6,
  kSharingViolation = 32,
  kFileExists = 80,
  kFolderNotEmpty = 145,
};

}  // namespace ald
