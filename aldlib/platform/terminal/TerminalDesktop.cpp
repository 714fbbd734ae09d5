#include "aldlib/platform/terminal/TerminalDesktop.h"

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/terminal/internal/Question.h"

namespace ald {

TerminalDesktop::TerminalDesktop(Clock& clock, Terminal& terminal)
    : m_terminal(terminal), m_windows(clock), m_help(terminal) {
  m_windows.RecordOutput(false);
  m_windows.WhenWaiting([this](WindowHandle hModal) { return AskPerson(hModal); });
}

Desktop TerminalDesktop::Ports() {
  const Desktop ports = m_windows.Ports();
  return {ports.queue, ports.windows,   ports.controls, ports.canvas,
          ports.menus, ports.presenter, m_help};
}

// True if the dialog heard an answer.
bool TerminalDesktop::AskPerson(WindowHandle hModal) {
  const Question question = QuestionOf(m_windows, hModal);
  if (m_hShown != hModal) {
    const CString sKind = question.sKind.empty() ? CString() : ": " + question.sKind;
    m_terminal.Write(TerminalText(question.sTitle + sKind + "\n" + question.sText));
    m_hShown = hModal;
  }
  const Choice* pChoice = nullptr;
  while (!question.choices.empty() && m_terminal.HasPerson()) {
    m_terminal.Write(TerminalText(PromptOf(question)));
    std::string sLine;
    if (!m_terminal.ReadLine(sLine)) {
      m_terminal.Write("\n");
      break;
    }
    pChoice = FindChoice(question, CodePage1252FromUtf8(sLine));
    if (pChoice != nullptr) break;
    m_terminal.Write("Please answer with one of the names, or its beginning.\n");
  }
  if (pChoice == nullptr && question.bBox) {
    pChoice = FindChoice(question, "");
    if (pChoice != nullptr) {
      m_terminal.Write(TerminalText("[" + pChoice->sName + "]\n"));
    }
  }
  return pChoice != nullptr && m_windows.Press(hModal, pChoice->nId);
}

bool TerminalDesktop::TerminalHelp::OpenTopic(WindowHandle, const CString& sFile,
                                              std::uint32_t nTopic) {
  m_terminal.Write("Help: topic " + std::to_string(nTopic) + " of " + TerminalText(sFile) + "\n");
  return true;
}

}  // namespace ald
