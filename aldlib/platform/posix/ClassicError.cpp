#include "aldlib/platform/posix/ClassicError.h"

#include <cerrno>

#include "aldlib/platform/SystemErrors.h"

namespace ald {

std::uint32_t ClassicError(int nErrno) noexcept {
  switch (nErrno) {
    case 0:
      return kNoSystemError;
    case ENOENT:
      return kFileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return kPathNotFound;
    case EMFILE:
    case ENFILE:
      return kTooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENXIO:
      return kAccessDenied;
    case EBADF:
      return kInvalidHandle;
    case ENOMEM:
      return kNotEnoughMemory;
    case EXDEV:
      return kNotSameDevice;
    case ETXTBSY:
    case EBUSY:
      return kSharingViolation;
    case EEXIST:
      return kFileExists;
    case EINVAL:
      return kInvalidParameter;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return kDiskFull;
    case ENOTEMPTY:
      return kFolderNotEmpty;
    case ENOLCK:
    case ENOSYS:
    case EOPNOTSUPP:
      return kInvalidFunction;
    default:
      return kGeneralFailure;
  }
}

}  // namespace ald
