#include "aldlib/screens/Menus.h"

#include <algorithm>
#include <limits>
#include <map>
#include <vector>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/internal/NeverDestroyed.h"

namespace ald {
namespace {

constexpr int kTextLimit = 80;
constexpr std::uint32_t kStateMask = 0xFF;

struct Owner {
  std::uint16_t nCommand;
  ModuleHandle hModule;
};

using OwnerTable = std::map<MenuHandle, std::vector<Owner>>;

OwnerTable& Owners() {
  static const NeverDestroyed<OwnerTable> s_owners;
  return *s_owners;
}

// One pair of the command goes; of several, the module's own.
void DropOwner(ModuleHandle hModule, MenuHandle hMenu, std::uint16_t nCommand) {
  const auto itMenu = Owners().find(hMenu);
  if (itMenu == Owners().end()) return;
  std::vector<Owner>& owners = itMenu->second;
  auto it = std::find_if(owners.begin(), owners.end(), [&](const Owner& owner) {
    return owner.nCommand == nCommand && owner.hModule == hModule;
  });
  if (it == owners.end()) {
    it = std::find_if(owners.begin(), owners.end(),
                      [&](const Owner& owner) { return owner.nCommand == nCommand; });
  }
  if (it != owners.end()) owners.erase(it);
  if (owners.empty()) Owners().erase(itMenu);
}

MenuBar& Menus() {
  return CurrentPlatform().desktop.menus;
}

std::uint32_t Position(int nPosition) {
  return static_cast<std::uint32_t>(nPosition);
}

CString TextAt(MenuHandle hMenu, int nPosition) {
  return Menus().Text(hMenu, Position(nPosition), kTextLimit, kMenuByPosition);
}

CString NormalForm(std::string_view sText) {
  CString sNormal;
  for (std::size_t i = 0; i < sText.size() && sText[i] != '\t'; ++i) {
    if (sText[i] == '\\') {
      if (i + 1 < sText.size() && sText[i + 1] == 't') break;
      ++i;  // the character behind it goes as well
    } else if (sText[i] != '&' && sText[i] != '.') {
      sNormal += sText[i];
    }
  }
  return sNormal;
}

// Looks for an item from position 0 on. Positions are given as 16-bit numbers.
template <class Predicate>
std::int16_t FindItem(MenuHandle hMenu, Predicate isMeant) {
  const int nCount = std::min<int>(Menus().Count(hMenu), std::numeric_limits<std::int16_t>::max());
  for (int i = 0; i < nCount; ++i) {
    if (isMeant(i)) return static_cast<std::int16_t>(i);
  }
  return -1;
}

// Whether a menu is a submenu of another one, however deep.
bool IsBelow(MenuHandle hMenu, MenuHandle hTop) {
  const int nCount = Menus().Count(hTop);
  for (int i = 0; i < nCount; ++i) {
    const MenuHandle hSubmenu = Menus().Submenu(hTop, i);
    if (hSubmenu == MenuHandle{}) continue;
    if (hSubmenu == hMenu || IsBelow(hMenu, hSubmenu)) return true;
  }
  return false;
}

void MergePopup(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource, int nSource) {
  MenuBar& menus = Menus();
  const CString sText = TextAt(hSource, nSource);
  const std::uint32_t nState =
      menus.State(hSource, Position(nSource), kMenuByPosition) & kStateMask;
  int nPosition = FindMenuItemWithText(hTarget, sText.c_str());
  if (nPosition < 0) {
    const MenuHandle hNew = menus.CreatePopup();
    if (!menus.Append(hTarget, nState | kMenuPopup, static_cast<std::uint32_t>(hNew), sText)) {
      menus.DestroyMenu(hNew);
      return;
    }
    nPosition = FindMenuItemWithText(hTarget, sText.c_str());
    if (nPosition < 0) return;
  }
  MenuHandle hSubmenu = menus.Submenu(hTarget, nPosition);
  if (hSubmenu == MenuHandle{}) hSubmenu = menus.CreatePopup();  // it was a plain command
  menus.Modify(hTarget, Position(nPosition), nState | kMenuByPosition | kMenuPopup,
               static_cast<std::uint32_t>(hSubmenu), sText);
  AddMenuToMenu(hModule, menus.Submenu(hTarget, nPosition), menus.Submenu(hSource, nSource));
}

void MergeCommand(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource, int nSource) {
  MenuBar& menus = Menus();
  const CString sText = TextAt(hSource, nSource);
  const std::uint32_t nState =
      menus.State(hSource, Position(nSource), kMenuByPosition) & kStateMask;
  const std::uint32_t nId = menus.Id(hSource, nSource);
  const auto nCommand = static_cast<std::uint16_t>(nId);
  const int nPosition = FindMenuItemWithID(hTarget, nCommand);
  if (nPosition >= 0) {
    menus.Modify(hTarget, Position(nPosition), nState | kMenuByPosition, nId, sText);
  } else {
    menus.Append(hTarget, nState, nId, sText);
  }
  Owners()[hTarget].push_back({nCommand, hModule});
}

bool RemovePopup(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource, int nSource) {
  MenuBar& menus = Menus();
  const int nPosition = FindMenuItemWithText(hTarget, TextAt(hSource, nSource).c_str());
  if (nPosition < 0) return false;
  const MenuHandle hSubmenu = menus.Submenu(hTarget, nPosition);
  DelMenuFromMenu(hModule, hSubmenu, menus.Submenu(hSource, nSource));
  if (menus.Count(hSubmenu) == 0) menus.Delete(hTarget, Position(nPosition), kMenuByPosition);
  return true;
}

bool RemoveCommand(ModuleHandle hModule, MenuHandle hTarget, std::uint32_t nId) {
  const auto nCommand = static_cast<std::uint16_t>(nId);
  const int nPosition = FindMenuItemWithID(hTarget, nCommand);
  if (nPosition < 0) return false;
  Menus().Remove(hTarget, Position(nPosition), kMenuByPosition);
  DropOwner(hModule, hTarget, nCommand);
  return true;
}

void RemoveLastSeparator(MenuHandle hTarget) {
  for (int i = Menus().Count(hTarget) - 1; i >= 0; --i) {
    if (Menus().Id(hTarget, i) == 0) {
      Menus().Remove(hTarget, Position(i), kMenuByPosition);
      return;
    }
  }
}

MenuHandle MainMenu() {
  return Menus().Of(CurrentPlatform().desktop.windows.MainWindow());
}

// Names of top menus are compared as they are stored.
int FindTopMenu(MenuHandle hBar, const CString& sName, bool bLast) {
  int nFound = -1;
  const int nCount = Menus().Count(hBar);
  for (int i = 0; i < nCount && (bLast || nFound < 0); ++i) {
    if (TextAt(hBar, i) == sName) nFound = i;
  }
  return std::max(nFound, 0);
}

}  // namespace

ModuleHandle MenuIDToModule(MenuHandle hMenu, std::uint16_t nCommand) {
  const auto itMenu = Owners().find(hMenu);
  if (itMenu == Owners().end()) return {};
  for (const Owner& owner : itMenu->second) {
    if (owner.nCommand == nCommand) return owner.hModule;
  }
  return {};
}

std::int16_t FindMenuItemWithID(MenuHandle hMenu, std::uint16_t nId) {
  return FindItem(hMenu, [&](int i) { return Menus().Id(hMenu, i) == nId; });
}

std::int16_t FindMenuItemWithText(MenuHandle hMenu, const char* szText) try {
  const CString sWanted = NormalForm(szText != nullptr ? szText : "");
  return FindItem(hMenu, [&](int i) { return NormalForm(TextAt(hMenu, i)) == sWanted; });
} catch (...) {
  return -1;
}

int AddMenuToMenu(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource) try {
  // Into a part of itself a menu would be merged without end.
  if (IsBelow(hTarget, hSource)) return 1;
  const int nCount = Menus().Count(hSource);
  for (int i = 0; i < nCount; ++i) {
    switch (Menus().Id(hSource, i)) {
      case kMenuIdOfPopup:
        MergePopup(hModule, hTarget, hSource, i);
        break;
      case 0:
        Menus().Append(hTarget, kMenuSeparator, 0, CString());
        break;
      default:
        MergeCommand(hModule, hTarget, hSource, i);
        break;
    }
  }
  return 1;
} catch (...) {
  return 1;
}

int DelMenuFromMenu(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource) try {
  const int nCount = Menus().Count(hSource);
  for (int i = 0; i < nCount; ++i) {
    const std::uint32_t nId = Menus().Id(hSource, i);
    if (nId == kMenuIdOfPopup) {
      if (!RemovePopup(hModule, hTarget, hSource, i)) return 0;
    } else if (nId != 0) {
      if (!RemoveCommand(hModule, hTarget, nId)) return 0;
    } else {
      RemoveLastSeparator(hTarget);
    }
  }
  return 1;
} catch (...) {
  return 0;
}

void DelMenuIDOwnerTable() {
  Owners().clear();
}

std::uint32_t EnableMainMenuItemByCommand(std::uint32_t nCommand, int bEnable) {
  return Menus().Enable(MainMenu(), nCommand, kMenuByCommand | (bEnable != 0 ? 0 : kMenuGrayed));
}

void DeleteMenuItem(const CString& sTopMenu, std::uint32_t nCommand) try {
  const MenuHandle hBar = MainMenu();
  const MenuHandle hMenu = Menus().Submenu(hBar, FindTopMenu(hBar, sTopMenu, true));
  Menus().Delete(hMenu, nCommand, kMenuByCommand);
} catch (...) {
}

void InsertMenuItemA(const CString& sTopMenu, std::uint32_t nCommand, const char* szText,
                     int nSeparator, int nOffset) try {
  const MenuHandle hBar = MainMenu();
  const int nTopMenus = Menus().Count(hBar);
  if (nTopMenus <= 0) return;
  const MenuHandle hMenu = Menus().Submenu(hBar, FindTopMenu(hBar, sTopMenu, false));
  const CString sText = szText != nullptr ? szText : "";
  const CString sNormal = NormalForm(sText);
  int nLeft = std::max(nSeparator, 1);
  std::int64_t nNoted = 0;
  const int nWalk = std::min(nTopMenus, Menus().Count(hMenu));
  for (int i = 0; i < nWalk && nLeft > 0; ++i) {
    if (NormalForm(TextAt(hMenu, i)) == sNormal) return;
    if (Menus().Id(hMenu, i) == 0 && --nLeft == 0) nNoted = i;
  }
  const auto nPosition = std::max<std::int64_t>(nNoted - nOffset + 1, 0);
  const auto nItem =
      static_cast<std::uint32_t>(std::min<std::int64_t>(nPosition, Menus().Count(hMenu)));
  Menus().Insert(hMenu, nItem, kMenuByPosition, nCommand, sText);
} catch (...) {
}

}  // namespace ald
