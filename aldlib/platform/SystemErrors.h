#pragma once

#include <cstdint>

namespace ald {

// The classic numbers by which a system tells why a call on a file or folder failed. Callers of the
// library test them.
enum SystemError : std::uint32_t {
  kNoSystemError = 0,
  kInvalidFunction = 1,  // what lies below has no such thing, as locks on some network folders
  kFileNotFound = 2,
  kPathNotFound = 3,  // a folder on the way is missing, or is no folder
  kTooManyOpenFiles = 4,
  kAccessDenied = 5,
  kInvalidHandle = 6,
  kNotEnoughMemory = 8,
  kNotSameDevice = 17,
  kGeneralFailure = 31,
  kSharingViolation = 32,  // an open that another one keeps out
  kLockViolation = 33,     // a range of bytes that another open has locked
  kFileExists = 80,
  kInvalidParameter = 87,
  kDiskFull = 112,
  kBadPosition = 131,  // ahead of the start of the file
  kFolderNotEmpty = 145,
  kNotLocked = 158,
};

}  // namespace ald
