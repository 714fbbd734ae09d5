#include "tests/support/SecondProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstring>
#include <iostream>
#include <sstream>
#include <vector>

#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr const char* kSwitch = "--second-process";

Files& TheFiles() {
  return CurrentPlatform().files;
}

void WaitFor(long long nMoment) {
  timespec now{};
  do {
    ::clock_gettime(CLOCK_MONOTONIC, &now);
  } while (now.tv_sec * 1'000'000'000LL + now.tv_nsec < nMoment);
}

// Makes the file its own, as a lock file is used: whoever has it leaves a mark beside it that
// nobody else may find.
std::string Enter(int nRounds, const std::string& sPath) {
  const std::string sMark = sPath + ".inside";
  int nAlone = 0;
  int nNotAlone = 0;
  for (int i = 0; i < nRounds; ++i) {
    FileHandle hFile{};
    if (TheFiles().Open(sPath.c_str(), FileAccess::ReadWrite, FileSharing::None,
                        FileDisposition::OpenOrCreate, hFile) != kNoSystemError) {
      continue;
    }
    const int nMark = ::open(sMark.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
    nMark >= 0 && TheFiles().IsNamed(hFile, sPath.c_str()) ? ++nAlone : ++nNotAlone;
    if (nMark >= 0) {
      ::close(nMark);
      ::unlink(sMark.c_str());
    }
    TheFiles().Close(hFile);
    TheFiles().Delete(sPath.c_str());
  }
  return std::to_string(nAlone) + ' ' + std::to_string(nNotAlone);
}

std::string Answer(const std::string& sLine) {
  static FileHandle s_hFile{};
  std::istringstream in(sLine);
  std::string sVerb, sPath;
  long long n1 = 0, n2 = 0, n3 = 0, n4 = 0;
  in >> sVerb;
  std::uint32_t nMoved = 0;
  std::vector<char> bytes;
  if (sVerb == "open") {
    in >> n1 >> n2 >> n3 >> n4 >> sPath;
    WaitFor(n4);
    return std::to_string(TheFiles().Open(sPath.c_str(), static_cast<FileAccess>(n1),
                                          static_cast<FileSharing>(n2),
                                          static_cast<FileDisposition>(n3), s_hFile));
  }
  if (sVerb == "close") return std::to_string(TheFiles().Close(s_hFile));
  if (sVerb == "delete") {
    in >> sPath;
    return std::to_string(TheFiles().Delete(sPath.c_str()));
  }
  if (sVerb == "nobody") return ::setgid(65534) == 0 && ::setuid(65534) == 0 ? "1" : "0";
  in >> n1 >> n2;
  if (sVerb == "lock") return std::to_string(TheFiles().Lock(s_hFile, n1, n2));
  if (sVerb == "unlock") return std::to_string(TheFiles().Unlock(s_hFile, n1, n2));
  bytes.resize(static_cast<std::size_t>(n1));
  const auto nBytes = static_cast<std::uint32_t>(n1);
  if (sVerb == "read") {
    return std::to_string(TheFiles().Read(s_hFile, bytes.data(), nBytes, nMoved));
  }
  if (sVerb == "write") {
    return std::to_string(TheFiles().Write(s_hFile, bytes.data(), nBytes, nMoved));
  }
  if (sVerb == "enter") {
    std::istringstream again(sLine);
    again >> sVerb >> n1 >> sPath;
    return Enter(static_cast<int>(n1), sPath);
  }
  return "not understood: " + sLine;
}

}  // namespace

SecondProcess::SecondProcess() {
  int aTo[2];
  int aFrom[2];
  if (::pipe2(aTo, O_CLOEXEC) != 0 || ::pipe2(aFrom, O_CLOEXEC) != 0) std::abort();
  m_nProcess = ::fork();
  if (m_nProcess == 0) {
    ::dup2(aTo[0], 0);
    ::dup2(aFrom[1], 1);
    ::execl("/proc/self/exe", "second", kSwitch, nullptr);
    ::_exit(127);
  }
  ::close(aTo[0]);
  ::close(aFrom[1]);
  m_pTo = ::fdopen(aTo[1], "w");
  m_pFrom = ::fdopen(aFrom[0], "r");
}

void SecondProcess::Send(const std::string& sLine) {
  std::fputs((sLine + '\n').c_str(), m_pTo);
  std::fflush(m_pTo);
}

std::string SecondProcess::Receive() {
  char szLine[256];
  if (std::fgets(szLine, sizeof szLine, m_pFrom) == nullptr) return "no answer";
  szLine[std::strcspn(szLine, "\n")] = '\0';
  return szLine;
}

void SecondProcess::Kill() {
  if (m_nProcess < 0) return;
  ::kill(m_nProcess, SIGKILL);
  ::waitpid(m_nProcess, nullptr, 0);
  m_nProcess = -1;
  std::fclose(m_pTo);
  std::fclose(m_pFrom);
}

}  // namespace ald

int main(int nArguments, char** pszArguments) {
  if (nArguments == 2 && std::strcmp(pszArguments[1], ald::kSwitch) == 0) {
    for (std::string sLine; std::getline(std::cin, sLine);) {
      std::cout << ald::Answer(sLine) << std::endl;
    }
    return 0;
  }
  testing::InitGoogleTest(&nArguments, pszArguments);
  return RUN_ALL_TESTS();
}
