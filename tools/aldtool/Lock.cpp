#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "aldlib/files/Directories.h"
#include "aldlib/files/FileErrors.h"
#include "aldlib/files/Filesyst.h"
#include "aldlib/files/SingleUser.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

std::string Quoted(const std::string& sArgument) {
  std::string sQuoted = "'";
  for (const char c : sArgument) {
    if (c == '\'') {
      sQuoted += "'\\''";
    } else {
      sQuoted += c;
    }
  }
  return sQuoted + '\'';
}

// Runs a program with the terminal's interrupts going to it alone. A program that a signal has
// ended has the status that shells give it.
int RunProgram(const std::vector<std::string>& command) {
  std::string sCommand = "exec";
  for (const std::string& sArgument : command) sCommand += ' ' + Quoted(sArgument);
  const int nStatus = std::system(sCommand.c_str());
  if (nStatus == -1) return kUnusable;
  return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : 128 + WTERMSIG(nStatus);
}

// Why the area was not to be had.
std::string ReasonOf(std::int32_t nArea, const std::string& sFolder) {
  if (ald::FileExist(sFolder.c_str()) == 0) return "there is no such folder";
  ald::CPathNameString sPath(sFolder.c_str());
  ald::AddBackSlash(sPath);
  std::string sNumber = std::to_string(nArea);
  sNumber.insert(0, 5 - sNumber.size(), '0');
  ald::File file;
  ald::MultiLookup(&file, ("SUA" + sNumber + ".LCK").insert(0, sPath).c_str(), 1, 1, 0);
  const ald::CFileGuard guard(file);
  const auto held = static_cast<std::uint32_t>(ald::FileStatus::SharingViolation);
  if (file.nError == held) return "another program holds it alone";
  if (file.nError == 0) return "other programs hold it, or its file may not be written";
  return "its file cannot be made: " + ErrorOf(file).message();
}

}  // namespace

int RunLock(std::int32_t nArea, const std::string& sFolder, bool bShared,
            const std::vector<std::string>& command) {
  ald::CALWSingleUserAccess access(ald::Areas{nArea});
  const auto eMode = bShared ? ald::LockMode::Shared : ald::LockMode::Exclusive;
  if (!access.Start(0, eMode, sFolder.c_str())) {
    std::cerr << "aldtool: area " << nArea << " of " << sFolder
              << " was not locked: " << ReasonOf(nArea, sFolder) << '\n';
    return kUnusable;
  }
  const int nStatus = RunProgram(command);
  access.End(sFolder.c_str());
  return nStatus;
}

}  // namespace aldtool
