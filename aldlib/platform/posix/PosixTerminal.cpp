#include "aldlib/platform/posix/PosixTerminal.h"

#include <unistd.h>

#include <iostream>

namespace ald {

bool PosixTerminal::HasPerson() {
  return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1;
}

void PosixTerminal::Write(std::string_view sText) {
  std::cerr << sText << std::flush;
}

bool PosixTerminal::ReadLine(std::string& sLine) {
  if (std::getline(std::cin, sLine)) return true;
  std::cin.clear();
  return false;
}

}  // namespace ald
