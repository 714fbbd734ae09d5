#pragma once

#include "aldlib/platform/Clock.h"
#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/terminal/Terminal.h"

namespace ald {

// A desktop for programs without windows of their own on a screen: windows are kept in memory, as
// HeadlessDesktop keeps them, and whatever waits for an answer is put to the person at the
// terminal.
//
//   Ledger: question
//   Save the changes to invoice 17?
//   Yes / No / Cancel [No]: y
//
// The answer is a button's name, the beginning of one that no other has, or its underlined letter;
// case does not count. An empty line means the button in brackets. Anything else is asked for
// again. Help shows the help, and the question is asked again. A dialog is shown as its texts and
// its buttons; a check box or radio button among the answers changes, and the question is asked
// again.
//
// If nobody is there, the text is written all the same. A box then takes its default button, which
// is written behind it, and a dialog ends as on HeadlessDesktop.
//
// Nothing is read ahead, and while the person thinks, timers stand still. What comes out is not
// recorded.
class ALDLIB_EXPORT TerminalDesktop {
 public:
  // Both must outlive the desktop.
  TerminalDesktop(Clock& clock, Terminal& terminal);
  TerminalDesktop(const TerminalDesktop&) = delete;
  TerminalDesktop& operator=(const TerminalDesktop&) = delete;

  // The ports, for a Platform. They live as long as the desktop.
  Desktop Ports();

  // What stands in the caption of the application's own boxes; empty until it is set.
  void SetApplicationName(const CString& sName) { m_windows.SetApplicationName(sName); }

  // The desktop beneath, which keeps the windows.
  HeadlessDesktop& Headless() { return m_windows; }

 private:
  // Help as a line that says where to look.
  class TerminalHelp : public Help {
   public:
    explicit TerminalHelp(Terminal& terminal) : m_terminal(terminal) {}
    bool OpenTopic(WindowHandle hOwner, const CString& sFile, std::uint32_t nTopic) override;

   private:
    Terminal& m_terminal;
  };

  bool AskPerson(WindowHandle hModal);

  Terminal& m_terminal;
  HeadlessDesktop m_windows;
  TerminalHelp m_help;
  WindowHandle m_hShown{};  // whose text was written last
};

}  // namespace ald
