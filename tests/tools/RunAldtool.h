#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

// Starts aldtool as a user does.
namespace aldtool {

struct Outcome {
  int nStatus = -1;
  std::string sOutput;  // both streams, in the order of writing
};

// The arguments are read by the shell.
inline Outcome RunAldtool(const std::string& sArguments) {
  Outcome outcome;
  std::FILE* pPipe = popen(("LC_ALL=C " ALDTOOL " " + sArguments + " 2>&1").c_str(), "r");
  if (pPipe == nullptr) return outcome;
  char aBuffer[4096];
  std::size_t nRead = 0;
  while ((nRead = std::fread(aBuffer, 1, sizeof aBuffer, pPipe)) > 0) {
    outcome.sOutput.append(aBuffer, nRead);
  }
  const int nWait = pclose(pPipe);
  if (WIFEXITED(nWait)) outcome.nStatus = WEXITSTATUS(nWait);
  return outcome;
}

}  // namespace aldtool
