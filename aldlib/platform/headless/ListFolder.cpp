#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {
namespace {

// Attributes of a directory search.
constexpr std::uint32_t kSearchFolders = 0x0010;
constexpr std::uint32_t kSearchOnlyThese = 0x8000;  // no plain files

// Whether the name fits the pattern, in any case: '*' stands for any stretch, '?' for one
// character, and "*.*" for every name.
bool Fits(std::string_view sName, std::string_view sPattern) {
  if (sPattern == "*.*") return true;
  std::size_t nName = 0;
  std::size_t nPattern = 0;
  std::size_t nStar = std::string_view::npos;  // the last '*', and the name from where it stands
  std::size_t nRest = 0;
  while (nName < sName.size()) {
    if (nPattern < sPattern.size() && sPattern[nPattern] == '*') {
      nStar = nPattern++;
      nRest = nName;
    } else if (nPattern < sPattern.size() &&
               (sPattern[nPattern] == '?' ||
                CharUpper(sPattern[nPattern]) == CharUpper(sName[nName]))) {
      ++nPattern;
      ++nName;
    } else if (nStar != std::string_view::npos) {
      nPattern = nStar + 1;
      nName = ++nRest;
    } else {
      return false;
    }
  }
  return sPattern.find_first_not_of('*', nPattern) == std::string_view::npos;
}

}  // namespace

// Reads the folder itself, by the system's own paths; a backslash counts as a slash. Folders stand
// in brackets behind the files.
bool HeadlessControls::ListFolder(WindowHandle hParent, const CString& sPath, std::int32_t nList,
                                  std::int32_t nLabel, std::uint32_t nAttributes) {
  namespace fs = std::filesystem;
  CString sFolder = sPath;
  std::replace(sFolder.begin(), sFolder.end(), '\\', '/');
  CString sPattern = "*.*";
  const std::size_t nLast = sFolder.rfind('/');
  const std::size_t nElement = nLast == CString::npos ? 0 : nLast + 1;
  if (sFolder.find_first_of("*?", nElement) != CString::npos) {
    sPattern = sFolder.substr(nElement);
    sFolder.erase(nElement);
  }
  std::error_code error;
  fs::path folder =
      fs::absolute(sFolder.empty() ? "." : Utf8FromCodePage1252(sFolder), error).lexically_normal();
  if (!folder.has_filename()) folder = folder.parent_path();  // no slash behind the last name
  fs::directory_iterator entries(folder, error);
  if (error) return false;

  std::vector<CString> files;
  std::vector<CString> folders;
  if ((nAttributes & kSearchFolders) != 0 && folder.has_relative_path()) folders.push_back("[..]");
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    const CString sName = CodePage1252FromUtf8(entries->path().filename().string());
    std::error_code noStatus;
    if (entries->is_directory(noStatus)) {
      if ((nAttributes & kSearchFolders) != 0) folders.push_back("[" + sName + "]");
    } else if ((nAttributes & kSearchOnlyThese) == 0 && Fits(sName, sPattern)) {
      files.push_back(sName);
    }
  }
  std::sort(files.begin(), files.end());
  std::sort(folders.begin(), folders.end());

  const WindowHandle hList = m_parts.windows.Child(hParent, nList);
  RemoveAllItems(hList);
  for (const CString& sName : files) AddItem(hList, sName);
  for (const CString& sName : folders) AddItem(hList, sName);
  m_parts.windows.SetText(m_parts.windows.Child(hParent, nLabel),
                          CodePage1252FromUtf8(folder.string()));
  return true;
}

}  // namespace ald
