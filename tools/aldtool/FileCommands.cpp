#include <cstdint>
#include <cstdio>
#include <iostream>
#include <limits>
#include <string>

#include "aldlib/files/FileErrors.h"
#include "aldlib/files/Filesyst.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

int Complain(const std::string& sPath, const ald::File& file) {
  std::cerr << "aldtool: " << sPath << ": " << ErrorOf(file).message();
  if (file.nSystemError != 0) std::cerr << " (system error " << file.nSystemError << ")";
  std::cerr << '\n';
  return kUnusable;
}

// Opens for reading beside others, hands the file to the work, and says what went wrong.
template <class TWork>
int WithFile(const std::string& sPath, TWork work) {
  ald::File file;
  ald::MultiLookup(&file, sPath.c_str(), 1, 1, 0);
  if (file.nError != 0) return Complain(sPath, file);
  const ald::CFileGuard guard(file);
  work(file);
  const auto pastTheEnd = static_cast<std::uint32_t>(ald::FileStatus::WrongUse);
  return file.nError == 0 || file.nError == pastTheEnd ? kGood : Complain(sPath, file);
}

}  // namespace

int RunFileCat(const std::string& sPath) {
  return WithFile(sPath, [](ald::File& file) {
    char chCharacter = 0;
    for (ald::ReadChar(&file, &chCharacter); file.nError == 0 && file.bEof == 0;
         ald::ReadChar(&file, &chCharacter)) {
      std::cout.put(chCharacter == ald::kEndOfLine ? '\n' : chCharacter);
    }
  });
}

int RunFileLines(const std::string& sPath) {
  return WithFile(sPath, [](ald::File& file) {
    ald::CFixedString<1024> sLine;
    for (std::size_t nLine = 1;; ++nLine) {
      const std::uint16_t nLength = ald::ReadLn(&file, sLine);
      if (file.nError != 0 || (file.bEof != 0 && nLength == 0)) break;
      std::printf("%6zu %5d  %s\n", nLine, nLength, static_cast<const char*>(sLine));
    }
  });
}

int RunFileCopy(const std::string& sFrom, const std::string& sTo) {
  if (ald::CopyFile2(sTo.c_str(), sFrom.c_str(), 1) != 0) return kGood;
  std::cerr << "aldtool: " << sFrom << " could not be copied to " << sTo << '\n';
  return kUnusable;
}

int RunFileLock(const std::string& sPath, std::int32_t nStart, std::int32_t nLength) {
  ald::File file;
  ald::MultiLookup(&file, sPath.c_str(), 1, 0, 0);
  if (file.nError != 0) return Complain(sPath, file);
  const ald::CFileGuard guard(file);
  const ald::LockRec range{nStart, nLength};
  if (ald::Lock(&file, &range) == 0) {
    std::cerr << "aldtool: bytes " << nStart << " to " << std::int64_t{nStart} + nLength << " of "
              << sPath
              << (ald::ShareIsLoaded(&file) != 0 ? " are locked by another program\n"
                                                 : " lie where files cannot be locked\n");
    return kUnusable;
  }
  std::cout << "locked until the end of the input" << std::endl;
  std::cin.ignore(std::numeric_limits<std::streamsize>::max());
  ald::UnLock(&file, &range);
  return kGood;
}

}  // namespace aldtool
