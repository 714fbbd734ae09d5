#include "aldlib/files/FileErrors.h"

#include <string>

#include "aldlib/platform/internal/NeverDestroyed.h"

namespace ald {
namespace {

class FileCategory : public std::error_category {
 public:
  constexpr FileCategory() = default;

  const char* name() const noexcept override { return "file"; }

  std::string message(int nStatus) const override {
    switch (static_cast<FileStatus>(nStatus)) {
      case FileStatus::Good:
        return "success";
      case FileStatus::SystemFailure:
        return "the system failed to open, read, write or close the file";
      case FileStatus::WrongUse:
        return "written while reading, read while writing, or read past the end";
      case FileStatus::PathNotFound:
        return "no such folder";
      case FileStatus::FileNotFound:
        return "no such file";
      case FileStatus::NotOpen:
        return "the file is not open";
      case FileStatus::TooManyOpenFiles:
        return "too many open files";
      case FileStatus::DiskFull:
        return "the disk is full";
      case FileStatus::AccessDenied:
        return "access denied";
      case FileStatus::SharingViolation:
        return "the file is in use";
    }
    return "file error " + std::to_string(nStatus);
  }

  std::error_condition default_error_condition(int nStatus) const noexcept override {
    switch (static_cast<FileStatus>(nStatus)) {
      case FileStatus::Good:
        return {};
      case FileStatus::SystemFailure:
        return std::errc::io_error;
      case FileStatus::WrongUse:
        return std::errc::operation_not_permitted;
      case FileStatus::PathNotFound:
      case FileStatus::FileNotFound:
        return std::errc::no_such_file_or_directory;
      case FileStatus::NotOpen:
        return std::errc::bad_file_descriptor;
      case FileStatus::TooManyOpenFiles:
        return std::errc::too_many_files_open;
      case FileStatus::DiskFull:
        return std::errc::no_space_on_device;
      case FileStatus::AccessDenied:
        return std::errc::permission_denied;
      case FileStatus::SharingViolation:
        return std::errc::device_or_resource_busy;
    }
    return {nStatus, *this};
  }
};

}  // namespace

const std::error_category& FileErrorCategory() noexcept {
  static const NeverDestroyed<FileCategory> s_category;
  return *s_category;
}

CFileGuard::CFileGuard(File& file, std::error_code* pError) noexcept
    : m_file(file), m_pError(pError) {
  if (m_pError != nullptr) m_pError->clear();
}

CFileGuard::~CFileGuard() {
  if (m_file.nSignature != kFileSignature || m_file.hFile == 0) return;
  Close(&m_file);
  const std::error_code error = ErrorOf(m_file);
  if (!error) return;
  if (m_pError != nullptr) *m_pError = error;
  // What could not be written keeps the file open, for a caller who would try again.
  m_file.nBufPos = 0;
  Close(&m_file);
}

}  // namespace ald
