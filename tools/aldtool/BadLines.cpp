#include "tools/aldtool/BadLines.h"

#include "aldlib/config/Reread.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/MessageFormat.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace aldtool {

namespace {

constexpr std::uint16_t kBadLine = 30001;

// The tool is a module of its own, with one text.
bool RegisterTexts() {
  ald::StringTable texts;
  texts.Add(kBadLine, "*Line %u: %s");
  ald::RegisterInstanceForStringSearch(ald::RegisterStringModule(std::move(texts)), 1);
  if (ald::MyAlderLibDataPtr->szDataPath[0] == '\0') ald::ReReadAlderIni();
  return true;
}

}  // namespace

void UseLogFolder(const std::string& sFolder) {
  ald::CPathNameString sPath(sFolder.c_str());
  if (!sPath.view().ends_with('/')) ald::sstrcat(sPath, "/", sPath.GetSize());
  ald::sstrcpy(ald::MyAlderLibDataPtr->szDataPath, sPath, sPath.GetSize());
}

void LogBadLine(std::size_t nLine, const std::string& sTrouble) {
  static const bool s_bRegistered = RegisterTexts();
  if (!s_bRegistered || ald::MyAlderLibDataPtr->szDataPath[0] == '\0') return;
  ald::CFixedString<256> sFormat;
  ald::GetTheMessage(nullptr, kBadLine, sFormat);
  const std::string sLogged = ald::CodePage1252FromUtf8(sTrouble);
  const ald::MessageValue aValues[] = {nLine, sLogged};
  ald::CFixedString<256> sText;
  ald::FormatMessageText(sText, sFormat, aValues);
  ald::SaveTheMessage(kBadLine, sText);
}

}  // namespace aldtool
