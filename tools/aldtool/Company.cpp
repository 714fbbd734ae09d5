#include <time.h>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>

#include "aldlib/dates/DateText.h"
#include "aldlib/files/Directories.h"
#include "aldlib/files/FileNames.h"
#include "aldlib/platform/Platform.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

// Finds the file without listing its folder.
bool FindFile(const std::string& sPath, ald::_finddata_t& record) {
  const bool bFound = ald::FindFirst(sPath.c_str(), &record) != 0;
  ald::CloseFinds();
  return bFound && (record.attrib & ald::kFolderAttribute) == 0;
}

// Whether the file could be opened, for reading and with what is shared.
std::uint32_t TryOpen(const std::string& sPath, ald::FileSharing eSharing) {
  ald::Files& files = ald::CurrentPlatform().files;
  ald::FileHandle hFile{};
  const std::uint32_t nError = files.Open(sPath.c_str(), ald::FileAccess::Read, eSharing,
                                          ald::FileDisposition::OpenExisting, hFile);
  if (nError == ald::kNoSystemError) files.Close(hFile);
  return nError;
}

// Who has the file, as the opens of all programs that use the library tell. The look itself holds a
// file that nobody has, for as long as it takes to open and close it.
const char* UseOf(const std::string& sPath) {
  const std::uint32_t nShared = TryOpen(sPath, ald::FileSharing::ReadWrite);
  if (nShared == ald::kSharingViolation) return "held alone";
  if (nShared != ald::kNoSystemError) return "not readable";
  return TryOpen(sPath, ald::FileSharing::None) == ald::kSharingViolation ? "in use" : "free";
}

// The local day of a time, in the order of the region.
std::string DayOf(std::int64_t nTime) {
  const time_t nSeconds = nTime;
  tm local{};
  if (::localtime_r(&nSeconds, &local) == nullptr) return "";
  const ald::DatesType date{static_cast<std::uint8_t>(local.tm_mday),
                            static_cast<std::uint8_t>(local.tm_mon + 1),
                            static_cast<std::uint16_t>(local.tm_year + 1900)};
  ald::CFixedString<19> sDate;
  ald::DateToMedStr(date, sDate);
  return std::string(sDate.view());
}

}  // namespace

int RunCompany(const std::string& sFolder) {
  std::string sStart = sFolder;
  if (!sStart.empty() && sStart.back() != '\\' && sStart.back() != '/') sStart += '\\';
  ald::_finddata_t record;
  const bool bFolder = ald::FindFirst((sStart + "*").c_str(), &record) != 0;
  ald::CloseFinds();
  if (sFolder.empty() || !bFolder) {
    std::cerr << "aldtool: '" << sFolder << "' is no folder that can be listed.\n";
    return kUnusable;
  }

  std::size_t nFound = 0;
  std::size_t nHeld = 0;
  std::int64_t nBytes = 0;
  const auto list = [&](const ald::CFixedString<13>& sName, const char* szRemark) {
    const std::string sPath = sStart + std::string(sName.view());
    if (!FindFile(sPath, record)) return;
    const std::string sUse = UseOf(sPath);
    std::cout << std::left << std::setw(14) << record.name << std::right << std::setw(14)
              << record.size << "  " << std::setw(12) << DayOf(record.time_write) << "  " << sUse
              << szRemark << '\n';
    ++nFound;
    nHeld += sUse == "in use" || sUse == "held alone" ? 1 : 0;
    nBytes += record.size;
  };
  for (const auto* pName : ald::CurrentFileNames::All()) list(*pName, "");
  for (const auto* pName : ald::OldFileNames::All()) list(*pName, ", of the format before");
  if (nFound == 0) {
    std::cout << "There are no data files of a company.\n";
    return kBadLines;
  }
  std::cout << nFound << (nFound == 1 ? " file, " : " files, ") << nBytes << " bytes";
  if (nHeld != 0) std::cout << ", " << nHeld << " in use";
  std::cout << '\n';
  return kGood;
}

}  // namespace aldtool
