#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/terminal/Terminal.h"
#include "aldlib/platform/terminal/TerminalDesktop.h"

namespace ald {

// The process's own terminal: it writes to standard error, so that standard output stays the
// program's, and reads standard input. Somebody is there while both are a terminal.
class ALDLIB_EXPORT PosixTerminal : public Terminal {
 public:
  bool HasPerson() override;
  void Write(std::string_view sText) override;
  // At the end of the input the next line can still come: a person ends it by a key.
  bool ReadLine(std::string& sLine) override;
};

// The desktop of the system's own platform, for a host that gives its boxes a name.
ALDLIB_EXPORT TerminalDesktop& SystemDesktop();

}  // namespace ald
