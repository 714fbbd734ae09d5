#include <iomanip>
#include <iostream>
#include <string>

#include "aldlib/inspect/ProcessWalker.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

// Prints each process with its program and the number of its libraries.
void PrintPrograms(const ald::CProcessWalker& walker) {
  int nProcesses = 0;
  for (int i = 0; i < walker.Size(); ++nProcesses) {
    const ald::CProcessInfo program = walker.GetAt(i);  // a process's first module
    int nLibraries = -1;
    for (; i < walker.Size() && walker.GetAt(i).GetProcessId() == program.GetProcessId(); ++i) {
      ++nLibraries;
    }
    std::cout << std::setw(8) << program.GetProcessId() << std::setw(6) << nLibraries << "  "
              << program.GetFullName() << '\n';
  }
  std::cout << nProcesses << " processes, " << walker.Size() << " modules\n";
}

}  // namespace

int RunPs(const std::string& sName) {
  ald::CProcessWalker walker;
  if (!walker.LoadMemoryInformation()) {
    std::cerr << "aldtool: the processes cannot be listed\n";
    return kUnusable;
  }
  if (sName.empty()) {
    PrintPrograms(walker);
    return kGood;
  }
  const int nFirst = walker.Find(sName);
  if (nFirst < 0) {
    std::cout << "Not loaded.\n";
    return kBadLines;
  }
  // The same name may be loaded by many, also from several folders.
  const auto nameOf = [&walker](int i) { return walker.GetAt(i).GetName(); };
  for (int i = nFirst; i < walker.Size(); ++i) {
    if (nameOf(i).size() != sName.size() || walker.Find(nameOf(i)) != nFirst) continue;
    const ald::CProcessInfo info = walker.GetAt(i);
    std::cout << std::setw(8) << info.GetProcessId() << "  " << info.GetFullName() << '\n';
  }
  return kGood;
}

}  // namespace aldtool
