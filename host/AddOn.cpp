#include "host/AddOn.h"

#include <map>
#include <utility>

#include "aldlib/amounts/Format.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/Menus.h"
#include "host/Commands.h"

namespace alder_checks {

namespace {

constexpr std::uint16_t kTextTotals = 32001;
constexpr std::uint16_t kTextNoTotals = 32002;
// Behind the program's own texts, before the library's.
constexpr std::int16_t kSearchOrder = 2;

ald::MenuBar& CurrentMenus() {
  return ald::CurrentPlatform().desktop.menus;
}

ald::ModuleHandle RegisterModule() {
  ald::StringTable texts;
  texts.Add(kTextTotals, "*Spent so far\n%s");
  texts.Add(kTextNoTotals, "*There are no cheques yet.");
  const ald::ModuleHandle hModule = ald::RegisterStringModule(std::move(texts));
  ald::RegisterInstanceForStringSearch(hModule, kSearchOrder);
  return hModule;
}

// The module's menu, which is only there to be merged. "Tasks" is the program's own menu.
class ModuleMenu {
 public:
  ModuleMenu() : m_hBar(CurrentMenus().CreateBar()) {
    const ald::MenuHandle hTasks = CurrentMenus().CreatePopup();
    CurrentMenus().Append(hTasks, ald::kMenuSeparator, 0, "");
    CurrentMenus().Append(hTasks, 0, kCommandTotals, "&Totals of Payees");
    CurrentMenus().Append(m_hBar, ald::kMenuPopup, static_cast<std::uint32_t>(hTasks), "&Tasks");
  }
  ModuleMenu(const ModuleMenu&) = delete;
  ModuleMenu& operator=(const ModuleMenu&) = delete;
  ~ModuleMenu() { CurrentMenus().DestroyMenu(m_hBar); }

  ald::MenuHandle Bar() const { return m_hBar; }

 private:
  ald::MenuHandle m_hBar;
};

}  // namespace

void AddOn::Load(ald::MenuHandle hBar) {
  if (m_hModule == ald::ModuleHandle{}) m_hModule = RegisterModule();
  ald::AddMenuToMenu(m_hModule, hBar, ModuleMenu().Bar());
  m_bLoaded = true;
}

void AddOn::Unload(ald::MenuHandle hBar) {
  ald::DelMenuFromMenu(m_hModule, hBar, ModuleMenu().Bar());
  m_bLoaded = false;
}

bool AddOn::OnCommand(ald::MenuHandle hBar, std::uint16_t nCommand) {
  if (!m_bLoaded) return false;
  for (int n = 0; n < CurrentMenus().Count(hBar); ++n) {
    if (ald::MenuIDToModule(CurrentMenus().Submenu(hBar, n), nCommand) != m_hModule) continue;
    ShowTotals();
    return true;
  }
  return false;
}

void AddOn::ShowTotals() const {
  std::map<ald::CString, ald::CDecimal> totals;
  for (const Cheque& cheque : m_book.ReadAll()) {
    totals[ald::CString(cheque.sPayee.view())] += cheque.amount;
  }
  ald::CString sLines;
  for (const auto& [sPayee, total] : totals) {
    ald::CFixedString<46> sTotal;
    ald::DollarsToString(total, sTotal, 0, ald::kMoneyMinus);
    sLines += "\n" + sPayee + ": " + ald::CString(sTotal.view());
  }
  if (sLines.empty()) {
    ald::Message(0, ald::MessageByNumber(kTextNoTotals));
  } else {
    ald::MessageWithArgs(0, ald::MessageByNumber(kTextTotals), sLines);
  }
}

}  // namespace alder_checks
