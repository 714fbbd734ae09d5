#pragma once

#include <system_error>

#include "aldlib/files/Filesyst.h"

namespace ald {

// nError as the standard library's error codes.
//
//   Lookup(&file, "CHART.DAT", 0);
//   if (const std::error_code error = ErrorOf(file)) std::cerr << error.message();
//   if (ErrorOf(file) == std::errc::no_such_file_or_directory) ...
//   if (ErrorOf(file) == FileStatus::SharingViolation) ...
ALDLIB_EXPORT const std::error_category& FileErrorCategory() noexcept;

inline std::error_code make_error_code(FileStatus eStatus) noexcept {
  return {static_cast<int>(eStatus), FileErrorCategory()};
}
inline std::error_code ErrorOf(const File& file) noexcept {
  return make_error_code(static_cast<FileStatus>(file.nError));
}

// Closes a file when the block is left, if nobody has closed it by then.
//
//   std::error_code error;
//   {
//     File file;
//     Create(&file, "REPORT.TXT");
//     const CFileGuard guard(file, &error);
//     WriteLn(&file, "Trial balance");
//   }
//   if (error) ...                          // not everything is in the file
//
// Nothing stays open: characters that cannot be written are given up, and the error tells of them.
class ALDLIB_EXPORT CFileGuard {
 public:
  // A record that is not open is left alone. The error, if one is wanted, is cleared now and set
  // when closing fails.
  explicit CFileGuard(File& file, std::error_code* pError = nullptr) noexcept;
  CFileGuard(const CFileGuard&) = delete;
  CFileGuard& operator=(const CFileGuard&) = delete;
  ~CFileGuard();

 private:
  File& m_file;
  std::error_code* m_pError;
};

}  // namespace ald

template <>
struct std::is_error_code_enum<ald::FileStatus> : std::true_type {};
