#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Processes.h"

namespace ald {

class PathMapper;

// Processes as /proc tells of them.
//
// A module is the program itself or a file that a part of is mapped to be executed. Its path is
// that of the process's own view of the disk, spelled on the platform's drives, and on C where none
// of them holds it: "C:\usr\lib\libm.so.6". The bytes of names stay as they are. A file that has
// been replaced since, as an update does, keeps the path it had. Kernel threads, processes that
// have ended and those of other users have no modules to tell.
class ALDLIB_EXPORT ProcProcesses : public Processes {
 public:
  // The paths must live as long as this. Another folder is read in place of /proc.
  explicit ProcProcesses(PathMapper& paths, std::string sFolder = "/proc");

  // Always kPlatformLists.
  std::uint32_t PlatformId() override;
  bool EnumerateProcesses(std::span<std::uint32_t> ids, std::size_t& nCount) override;
  bool EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) override;

 private:
  CString DrivePath(std::string_view sPath);

  PathMapper& m_paths;
  std::string m_sFolder;
  std::vector<char> m_buffer;  // of the texts read, kept from process to process
};

}  // namespace ald
