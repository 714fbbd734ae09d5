#include "host/Pages.h"

#include "aldlib/files/FileErrors.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/inspect/ProcessWalker.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/text/Strings.h"

namespace alder_checks {

std::vector<ald::CString> ProcessLines() {
  ald::CProcessWalker walker;
  if (!walker.LoadMemoryInformation()) return {"The processes cannot be listed."};
  std::vector<ald::CString> lines;
  // The modules of a process stand together, its program first.
  for (int i = 0; i < walker.Size();) {
    const ald::CProcessInfo program = walker.GetAt(i);
    int nModules = 0;
    for (; i < walker.Size() && walker.GetAt(i).GetProcessId() == program.GetProcessId(); ++i) {
      ++nModules;
    }
    lines.push_back(std::to_string(program.GetProcessId()) + "  " +
                    ald::CString(program.GetFullName()) + " (" + std::to_string(nModules - 1) +
                    " libraries)");
  }
  return lines;
}

std::vector<ald::CString> LogLines() {
  ald::CPathNameString sPath(ald::MyAlderLibDataPtr->szDataPath);
  ald::sstrcat(sPath, ald::kLogFileName, sPath.GetSize());
  ald::File file;
  ald::MultiLookup(&file, sPath, 1, 1, 0);
  if (file.nError != 0) return {"No message has been shown yet."};
  const ald::CFileGuard guard(file);
  ald::CString sBytes(ald::kLogSize, '\0');
  ald::ReadBlock(&file, static_cast<std::uint16_t>(sBytes.size()), sBytes.data());
  sBytes.resize(file.nTransferred);
  std::vector<ald::LoggedMessage> messages;
  std::vector<ald::CString> lines;
  if (!ald::ReadMessageLog(sBytes, messages)) lines.push_back("The log is damaged from here on.");
  for (const ald::LoggedMessage& message : messages) {
    const ald::CString sNumber = message.nNumber != 0 ? std::to_string(message.nNumber) : "-";
    // The log keeps the sign of a Help button.
    const std::size_t nHelp = message.sText.starts_with("|!")  ? 2
                              : message.sText.starts_with('|') ? 1
                                                               : 0;
    lines.push_back(sNumber + "  " + message.sText.substr(nHelp));
  }
  return lines;
}

}  // namespace alder_checks
