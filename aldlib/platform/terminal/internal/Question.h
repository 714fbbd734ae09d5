#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "aldlib/platform/headless/HeadlessDesktop.h"

namespace ald {

// What can be answered: a button of the dialog that waits.
struct Choice {
  std::int32_t nId = 0;
  CString sName;        // without the sign of its letter
  char chLetter = 0;    // in upper case; 0 for none
  bool bStays = false;  // a check box or radio button, which leaves the dialog up
  bool bOn = false;
};

// A box or dialog, in code page 1252, as a terminal puts it.
struct Question {
  CString sTitle;
  CString sKind;  // "question", "warning", ...; empty for none
  CString sText;  // lines, each with its end
  std::vector<Choice> choices;
  std::int32_t nDefault = 0;
  bool bBox = false;
};

// Reads the dialog as it stands now: what is hidden or disabled is left out.
Question QuestionOf(HeadlessDesktop& windows, WindowHandle hModal);

// The choice that the answer names; null for none, or for more than one.
const Choice* FindChoice(const Question& question, std::string_view sAnswer);

// The line that asks, "Yes / No [Yes]: ".
CString PromptOf(const Question& question);

// The text as UTF-8, without the characters that could steer a terminal.
std::string TerminalText(std::string_view sText);

}  // namespace ald
