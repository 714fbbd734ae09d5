#include "host/MainMenu.h"

#include <initializer_list>

#include "aldlib/platform/Platform.h"
#include "host/Commands.h"

namespace alder_checks {

namespace {

struct Entry {
  std::uint16_t nCommand;  // 0 for a separator
  const char* szText;
};

ald::MenuBar& CurrentMenus() {
  return ald::CurrentPlatform().desktop.menus;
}

void AddTopMenu(ald::MenuHandle hBar, const char* szName, std::initializer_list<Entry> entries) {
  const ald::MenuHandle hMenu = CurrentMenus().CreatePopup();
  for (const Entry& entry : entries) {
    CurrentMenus().Append(hMenu, entry.nCommand == 0 ? ald::kMenuSeparator : 0, entry.nCommand,
                          entry.szText);
  }
  CurrentMenus().Append(hBar, ald::kMenuPopup, static_cast<std::uint32_t>(hMenu), szName);
}

}  // namespace

ald::MenuHandle CreateMainMenu() {
  const ald::MenuHandle hBar = CurrentMenus().CreateBar();
  AddTopMenu(hBar, "&File", {{kCommandAddOn, "&Add-On Module"}, {0, ""}, {kCommandExit, "E&xit"}});
  AddTopMenu(hBar, "&Tasks",
             {{kCommandWriteChecks, "&Write Checks\tCtrl+W"},
              {kCommandAnotherScreen, "&Another Write Checks Window"}});
  AddTopMenu(hBar, "&View",
             {{kCommandProcesses, "&Processes"},
              {kCommandLog, "&Log of Messages\tCtrl+L"},
              {0, ""},
              {kCommandFirstScheme, "&Gray"},
              {kCommandFirstScheme + 1, "&Mint"},
              {kCommandFirstScheme + 2, "&Sand"},
              {kCommandFirstScheme + 3, "&Olive"},
              {kCommandFirstScheme + 4, "&Teal"}});
  AddTopMenu(hBar, "&Help",
             {{kCommandAskAgain, "&Show All Messages Again"}, {kCommandAbout, "&About"}});
  return hBar;
}

void TickCommand(ald::MenuHandle hMenu, std::uint16_t nCommand, bool bTick) {
  const ald::CString sText = CurrentMenus().Text(hMenu, nCommand, 80, ald::kMenuByCommand);
  CurrentMenus().Modify(hMenu, nCommand, ald::kMenuByCommand | (bTick ? ald::kMenuChecked : 0),
                        nCommand, sText);
}

}  // namespace alder_checks
