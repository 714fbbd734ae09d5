#include "aldlib/platform/posix/ProcProcesses.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include "aldlib/platform/posix/PathMapper.h"

namespace ald {
namespace {

constexpr std::string_view kDeleted = " (deleted)";
// A mapping that looks like a file and is memory.
constexpr std::string_view kMemoryFile = "/memfd:";
constexpr std::size_t kFirstRoom = 64 * 1024;

struct DirectoryCloser {
  void operator()(DIR* pDirectory) const { ::closedir(pDirectory); }
};

// Opens a file to read; closes it at the end of its life.
class ReadFile {
 public:
  explicit ReadFile(const char* szPath) : m_nFile(::open(szPath, O_RDONLY | O_CLOEXEC)) {}
  ReadFile(const ReadFile&) = delete;
  ReadFile& operator=(const ReadFile&) = delete;
  ~ReadFile() {
    if (m_nFile >= 0) ::close(m_nFile);
  }

  // Reads all of the file to the front of the buffer, which grows as needed. Returns the length, or
  // -1 if it cannot be read to its end.
  std::ptrdiff_t ReadAll(std::vector<char>& buffer) const {
    std::size_t nLength = 0;
    while (m_nFile >= 0) {
      if (buffer.size() - nLength < kFirstRoom / 2) buffer.resize(buffer.size() + kFirstRoom);
      const ssize_t nRead = ::read(m_nFile, buffer.data() + nLength, buffer.size() - nLength);
      if (nRead == 0) return static_cast<std::ptrdiff_t>(nLength);
      if (nRead > 0) {
        nLength += static_cast<std::size_t>(nRead);
      } else if (errno != EINTR) {
        break;
      }
    }
    return -1;
  }

 private:
  int m_nFile;
};

std::string_view WithoutDeleted(std::string_view sPath) {
  if (sPath.ends_with(kDeleted)) sPath.remove_suffix(kDeleted.size());
  return sPath;
}

// The path at the end of a line such as
//   7f2a4000-7f2a9000 r-xp 00001000 08:01 1234   /usr/lib/libm.so.6
// if the line is of a file and its memory may be executed; else an empty text.
std::string_view ExecutedFile(std::string_view sLine) {
  const std::size_t nRights = sLine.find(' ') + 1;
  if (nRights == 0 || sLine.size() < nRights + 4 || sLine[nRights + 2] != 'x') return {};
  std::size_t nPath = nRights;
  for (int nField = 0; nField < 4; ++nField) {
    nPath = sLine.find(' ', nPath) + 1;
    if (nPath == 0) return {};
  }
  nPath = sLine.find_first_not_of(' ', nPath);
  if (nPath == std::string_view::npos || sLine[nPath] != '/') return {};
  const std::string_view sPath = sLine.substr(nPath);
  return sPath.starts_with(kMemoryFile) ? std::string_view() : WithoutDeleted(sPath);
}

}  // namespace

ProcProcesses::ProcProcesses(PathMapper& paths, std::string sFolder)
    : m_paths(paths), m_sFolder(std::move(sFolder)) {}

// What the drives have no spelling for is told on drive C, so that its file name can be found.
CString ProcProcesses::DrivePath(std::string_view sPath) {
  CString sDrivePath = m_paths.Spelled(sPath);
  if (!sDrivePath.empty()) return sDrivePath;
  sDrivePath.append("C:").append(sPath);
  std::replace(sDrivePath.begin(), sDrivePath.end(), '/', '\\');
  return sDrivePath;
}

std::uint32_t ProcProcesses::PlatformId() {
  return kPlatformLists;
}

bool ProcProcesses::EnumerateProcesses(std::span<std::uint32_t> ids, std::size_t& nCount) {
  nCount = 0;
  const std::unique_ptr<DIR, DirectoryCloser> pDirectory(::opendir(m_sFolder.c_str()));
  if (pDirectory == nullptr) return false;
  while (nCount < ids.size()) {
    const dirent* const pEntry = ::readdir(pDirectory.get());
    if (pEntry == nullptr) break;
    const char* const pEnd = pEntry->d_name + std::strlen(pEntry->d_name);
    std::uint32_t nProcess = 0;
    const auto [pStop, error] = std::from_chars(pEntry->d_name, pEnd, nProcess);
    if (error == std::errc() && pStop == pEnd) ids[nCount++] = nProcess;
  }
  return true;
}

bool ProcProcesses::EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) try {
  paths.clear();
  const std::string sProcess = m_sFolder + '/' + std::to_string(nProcess);
  if (m_buffer.empty()) m_buffer.resize(kFirstRoom);

  // The program comes first whatever its place in memory, and a kernel thread has none.
  const ssize_t nLink = ::readlink((sProcess + "/exe").c_str(), m_buffer.data(), m_buffer.size());
  if (nLink <= 0 || m_buffer.front() != '/') return false;
  const std::string_view sLink(m_buffer.data(), static_cast<std::size_t>(nLink));
  const std::string sProgram(WithoutDeleted(sLink));

  const std::ptrdiff_t nLength = ReadFile((sProcess + "/maps").c_str()).ReadAll(m_buffer);
  if (nLength <= 0) return false;  // it ends just now
  paths.push_back(DrivePath(sProgram));
  std::string_view sMaps(m_buffer.data(), static_cast<std::size_t>(nLength));
  std::string_view sLast = sProgram;
  while (!sMaps.empty()) {
    const std::string_view sLine = sMaps.substr(0, sMaps.find('\n'));
    sMaps.remove_prefix(std::min(sLine.size() + 1, sMaps.size()));
    const std::string_view sPath = ExecutedFile(sLine);
    if (sPath.empty() || sPath == sLast || sPath == sProgram) continue;
    paths.push_back(DrivePath(sPath));
    sLast = sPath;
  }
  return true;
} catch (const std::bad_alloc&) {
  paths.clear();
  return false;
}

}  // namespace ald
