#include "host/Texts.h"

#include <utility>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/platform/Platform.h"

namespace alder_checks {

void RegisterTexts() {
  constexpr std::pair<std::uint16_t, const char*> kTexts[] = {
      {kTextNoPayee, "*|Choose whom the cheque is for."},
      {kTextNoAmount, "*|Type an amount above zero."},
      {kTextAmountTooLarge, "*|A cheque cannot be written for more than $$$."},
      {kTextNoAccount, "*|Choose the account that the money is spent on."},
      {kTextNotRecorded, "@The cheque could not be recorded: $$$."},
      // Without a sign the box offers Retry and Cancel.
      {kTextBookInUse, "Somebody else is recording a cheque."},
      {kTextNoMoreScreens, "*No more screens can be opened."},
      {kTextBookHolds, "Cheques in the book: %u, in all %s"},
      {kTextAbout, "*|Alder Checks writes the cheques of one company.\nIts folder is $$$"},
  };
  ald::StringTable texts;
  for (const auto& [nNumber, szText] : kTexts) texts.Add(nNumber, szText);
  ald::RegisterInstanceForStringSearch(ald::RegisterStringModule(std::move(texts)), 1);
}

}  // namespace alder_checks
