#include "aldlib/platform/posix/FolderIndex.h"

#include <dirent.h>

#include <algorithm>
#include <bit>

#include "aldlib/platform/Characters.h"

namespace ald {
namespace {

constexpr std::size_t kMostBytes = UINT32_MAX / 2;

std::size_t HashOfName(std::string_view sName) {
  std::uint64_t nHash = 14695981039346656037U;
  for (const char c : sName) {
    nHash = (nHash ^ static_cast<unsigned char>(CharUpper(c))) * 1099511628211U;
  }
  return static_cast<std::size_t>(nHash ^ (nHash >> 32));
}

}  // namespace

bool IsSameName(std::string_view sFirst, std::string_view sSecond) noexcept {
  return std::equal(sFirst.begin(), sFirst.end(), sSecond.begin(), sSecond.end(),
                    [](char a, char b) { return CharUpper(a) == CharUpper(b); });
}

bool FolderIndex::Refresh(const char* szFolder) {
  struct stat status {};
  const bool bThere = ::stat(szFolder, &status) == 0;
  const FileState state = FileState::Of(status);
  if (bThere && m_bSettled && state == m_state) return true;
  // Nothing is kept of the old names, should memory run out among the new ones.
  m_bSettled = false;
  m_table.clear();
  // Asked before the names are read: a change while they are read then shows as another state.
  const bool bSettled = bThere && state.IsSettled();
  if (!bThere || !ReadNames(szFolder)) return false;
  BuildTable();
  m_state = state;
  m_bSettled = bSettled;
  return true;
}

bool FolderIndex::ReadNames(const char* szFolder) {
  m_sNames.clear();
  m_starts.clear();
  DIR* const pFolder = ::opendir(szFolder);
  if (pFolder == nullptr) return false;
  try {
    while (const dirent* const pEntry = ::readdir(pFolder)) {
      const std::string_view sName(pEntry->d_name);
      if (m_sNames.size() + sName.size() > kMostBytes) break;
      m_starts.push_back(static_cast<std::uint32_t>(m_sNames.size()));
      m_sNames.append(sName).push_back('\0');
    }
  } catch (...) {
    ::closedir(pFolder);
    throw;
  }
  ::closedir(pFolder);
  return true;
}

void FolderIndex::BuildTable() {
  // At most half full, so that a search meets a free place soon.
  m_table.assign(std::bit_ceil(2 * m_starts.size() + 2), 0);
  for (const std::uint32_t nStart : m_starts) {
    const std::string_view sName = NameAt(nStart);
    std::size_t nPlace = HashOfName(sName) & (m_table.size() - 1);
    while (m_table[nPlace] != 0 && !IsSameName(NameAt(m_table[nPlace] - 1), sName)) {
      nPlace = (nPlace + 1) & (m_table.size() - 1);
    }
    if (m_table[nPlace] == 0 || sName < NameAt(m_table[nPlace] - 1)) m_table[nPlace] = nStart + 1;
  }
}

std::string_view FolderIndex::Find(std::string_view sName) const {
  if (m_table.empty()) return {};
  std::size_t nPlace = HashOfName(sName) & (m_table.size() - 1);
  while (m_table[nPlace] != 0) {
    const std::string_view sFound = NameAt(m_table[nPlace] - 1);
    if (IsSameName(sFound, sName)) return sFound;
    nPlace = (nPlace + 1) & (m_table.size() - 1);
  }
  return {};
}

}  // namespace ald
