#include "aldlib/platform/terminal/internal/Question.h"

#include <algorithm>

#include "aldlib/platform/Characters.h"

namespace ald {
namespace {

// A caption without the sign of its mnemonic, and the letter that it marks, in upper case.
CString NameOf(std::string_view sCaption, char& chLetter) {
  CString sName;
  for (std::size_t i = 0; i < sCaption.size(); ++i) {
    if (sCaption[i] == '&') {
      if (++i == sCaption.size()) break;
      if (sCaption[i] != '&' && chLetter == 0) chLetter = CharUpper(sCaption[i]);
    }
    sName += sCaption[i];
  }
  return sName;
}

CString KindOf(std::uint32_t nFlags) {
  switch (nFlags & kBoxIconMask) {
    case kBoxStop:
      return "error";
    case kBoxQuestion:
      return "question";
    case kBoxExclamation:
      return "warning";
    case kBoxInformation:
      return "information";
    default:
      return {};
  }
}

CString Upper(std::string_view sText) {
  CString sUpper(sText);
  for (char& ch : sUpper) ch = CharUpper(ch);
  return sUpper;
}

std::string_view WithoutBlanks(std::string_view sText) {
  while (!sText.empty() && IsSpaceAscii(sText.front())) sText.remove_prefix(1);
  while (!sText.empty() && IsSpaceAscii(sText.back())) sText.remove_suffix(1);
  return sText;
}

// Ends each line by a line feed alone, the last one too.
void AddLines(CString& sLines, std::string_view sText) {
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const char ch = sText[i];
    if (ch == '\r') {
      if (i + 1 == sText.size() || sText[i + 1] != '\n') sLines += '\n';
    } else {
      sLines += ch;
    }
  }
  if (!sLines.empty() && sLines.back() != '\n') sLines += '\n';
}

void AddControl(HeadlessDesktop& desktop, Windows& windows, WindowHandle hControl,
                bool bMnemonicsInTexts, Question& question) {
  char chLetter = 0;
  const CString sText = windows.Text(hControl);
  if (desktop.IsOfClass(hControl, "STATIC")) {
    AddLines(question.sText, bMnemonicsInTexts ? NameOf(sText, chLetter) : sText);
    return;
  }
  if (!desktop.IsOfClass(hControl, "BUTTON")) {
    if (!sText.empty()) AddLines(question.sText, "  " + sText);
    return;
  }
  const CString sName = NameOf(sText, chLetter);
  const std::uint32_t nKind = windows.Style(hControl) & kButtonKindMask;
  if (nKind == kButtonGroupBox) return AddLines(question.sText, sName);
  if (!windows.IsEnabled(hControl)) return;
  const bool bStays = nKind != kButtonPush && nKind != kButtonDefaultPush;
  const bool bOn = desktop.Ports().controls.Check(hControl) == 1;
  question.choices.push_back({windows.ControlId(hControl), sName, chLetter, bStays, bOn});
}

}  // namespace

std::string TerminalText(std::string_view sText) {
  // The bytes to which code page 1252 gives no character would become control characters.
  constexpr std::string_view kNoCharacter = "\x7F\x81\x8D\x8F\x90\x9D";
  CString sPlain;
  for (const char ch : sText) {
    const bool bControl =
        static_cast<unsigned char>(ch) < ' ' || kNoCharacter.find(ch) != std::string_view::npos;
    if (!bControl || ch == '\t' || ch == '\n') sPlain += ch;
  }
  return Utf8FromCodePage1252(sPlain);
}

Question QuestionOf(HeadlessDesktop& desktop, WindowHandle hModal) {
  Windows& windows = desktop.Ports().windows;
  Question question;
  question.sTitle = windows.Text(hModal);
  question.nDefault = desktop.DefaultButton(hModal);
  for (const ShownBox& box : desktop.Boxes()) {
    if (box.hBox != hModal || box.nAnswer != 0) continue;
    question.bBox = true;
    question.sKind = KindOf(box.nFlags);
  }
  for (const WindowHandle hControl : windows.Children(hModal)) {
    // The text of a box is shown as it is: it has no mnemonics.
    if (windows.IsVisible(hControl)) {
      AddControl(desktop, windows, hControl, !question.bBox, question);
    }
  }
  return question;
}

const Choice* FindChoice(const Question& question, std::string_view sAnswer) {
  const CString sWanted = Upper(WithoutBlanks(sAnswer));
  const auto theOnly = [&](auto fits) -> const Choice* {
    const auto begin = question.choices.begin();
    const auto end = question.choices.end();
    const auto it = std::find_if(begin, end, fits);
    return it != end && std::find_if(it + 1, end, fits) == end ? &*it : nullptr;
  };
  if (sWanted.empty()) {
    return theOnly([&](const Choice& choice) { return choice.nId == question.nDefault; });
  }
  const Choice* pFound =
      theOnly([&](const Choice& choice) { return Upper(choice.sName) == sWanted; });
  if (pFound == nullptr && sWanted.size() == 1) {
    pFound = theOnly([&](const Choice& choice) { return choice.chLetter == sWanted[0]; });
  }
  if (pFound != nullptr) return pFound;
  return theOnly([&](const Choice& choice) { return Upper(choice.sName).starts_with(sWanted); });
}

CString PromptOf(const Question& question) {
  CString sPrompt;
  for (const Choice& choice : question.choices) {
    if (!sPrompt.empty()) sPrompt += " / ";
    if (choice.bStays) sPrompt += choice.bOn ? "(x) " : "( ) ";
    sPrompt += choice.sName;
  }
  const Choice* const pDefault = FindChoice(question, "");
  if (pDefault != nullptr) sPrompt += " [" + pDefault->sName + "]";
  return sPrompt + ": ";
}

}  // namespace ald
