#include <algorithm>
#include <utility>

#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {
namespace {

// What an item keeps of the flags that it was made with.
constexpr std::uint32_t kKeptFlags =
    kMenuGrayed | kMenuDisabled | kMenuChecked | kMenuPopup | kMenuSeparator;

}  // namespace

MenuHandle HeadlessMenus::Of(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = m_parts.windows.Find(hWindow);
  return pWindow != nullptr && m_menus.Find(pWindow->hMenu) != nullptr ? pWindow->hMenu
                                                                       : MenuHandle{};
}

bool HeadlessMenus::SetOf(WindowHandle hWindow, MenuHandle hMenu) {
  HeadlessWindow* const pWindow = m_parts.windows.Find(hWindow);
  if (pWindow == nullptr || pWindow->IsChild()) return false;
  if (hMenu != MenuHandle{} && m_menus.Find(hMenu) == nullptr) return false;
  pWindow->hMenu = hMenu;
  Changed();
  return true;
}

void HeadlessMenus::Changed() {
  if (m_parts.pView != nullptr) m_parts.pView->MenusChanged();
}

void HeadlessMenus::Redraw(WindowHandle hWindow) {
  if (m_parts.bRecord && m_parts.windows.IsWindow(hWindow)) m_redrawn.push_back(hWindow);
}

bool HeadlessMenus::DestroyMenu(MenuHandle hMenu) {
  Menu* const pMenu = m_menus.Find(hMenu);
  if (pMenu == nullptr) return false;
  const std::vector<Item> items = std::move(pMenu->items);
  m_menus.Remove(hMenu);
  Changed();
  for (const Item& item : items) DestroyMenu(item.hSubmenu);
  return true;
}

int HeadlessMenus::Count(MenuHandle hMenu) {
  const Menu* const pMenu = m_menus.Find(hMenu);
  return pMenu != nullptr ? static_cast<int>(pMenu->items.size()) : -1;
}

HeadlessMenus::Found HeadlessMenus::Find(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) {
  Menu* const pMenu = m_menus.Find(hMenu);
  if (pMenu == nullptr) return {};
  if ((nBy & kMenuByPosition) != 0) {
    return nItem < pMenu->items.size() ? Found{pMenu, nItem} : Found{};
  }
  for (std::size_t i = 0; i < pMenu->items.size(); ++i) {
    const Item& item = pMenu->items[i];
    if (item.hSubmenu != MenuHandle{}) {
      if (const Found found = Find(item.hSubmenu, nItem, nBy)) return found;
    } else if (item.nId == nItem && (item.nState & kMenuSeparator) == 0) {
      return {pMenu, i};
    }
  }
  return {};
}

CString HeadlessMenus::Text(MenuHandle hMenu, std::uint32_t nItem, int nLimit, std::uint32_t nBy) {
  const Found found = Find(hMenu, nItem, nBy);
  if (!found || nLimit < 1) return {};
  return found.Get().sText.substr(0, static_cast<std::size_t>(nLimit) - 1);
}

std::uint32_t HeadlessMenus::StateOf(const Item& item) {
  return item.nState & kKeptFlags;
}

std::uint32_t HeadlessMenus::State(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) {
  const Found found = Find(hMenu, nItem, nBy);
  if (!found) return kMenuNoItem;
  const Item& item = found.Get();
  if (item.hSubmenu == MenuHandle{}) return StateOf(item);
  const auto nCount = static_cast<std::uint32_t>(std::clamp(Count(item.hSubmenu), 0, 255));
  return (StateOf(item) & 0xFF) | nCount << 8;
}

std::uint32_t HeadlessMenus::Id(MenuHandle hMenu, int nPosition) {
  const Found found = Find(hMenu, static_cast<std::uint32_t>(nPosition), kMenuByPosition);
  if (!found || found.Get().hSubmenu != MenuHandle{}) return kMenuIdOfPopup;
  return (found.Get().nState & kMenuSeparator) != 0 ? 0 : found.Get().nId;
}

MenuHandle HeadlessMenus::Submenu(MenuHandle hMenu, int nPosition) {
  const Found found = Find(hMenu, static_cast<std::uint32_t>(nPosition), kMenuByPosition);
  return found ? found.Get().hSubmenu : MenuHandle{};
}

// Of the menu that the item is to stand in. False for a submenu that does not exist, or that would
// hold itself.
bool HeadlessMenus::MakeItem(const Menu& menu, std::uint32_t nFlags, std::uint32_t nIdOrSubmenu,
                             const CString& sText, Item& item) {
  item.nState = nFlags & kKeptFlags;
  item.sText = sText;
  if ((nFlags & kMenuPopup) == 0) {
    item.nId = nIdOrSubmenu;
    return true;
  }
  item.hSubmenu = static_cast<MenuHandle>(nIdOrSubmenu);
  return m_menus.Find(item.hSubmenu) != nullptr && !Contains(item.hSubmenu, menu);
}

bool HeadlessMenus::Contains(MenuHandle hMenu, const Menu& other) {
  const Menu* const pMenu = m_menus.Find(hMenu);
  if (pMenu == nullptr) return false;
  return pMenu == &other ||
         std::any_of(pMenu->items.begin(), pMenu->items.end(), [&](const Item& item) {
           return item.hSubmenu != MenuHandle{} && Contains(item.hSubmenu, other);
         });
}

bool HeadlessMenus::Append(MenuHandle hMenu, std::uint32_t nFlags, std::uint32_t nIdOrSubmenu,
                           const CString& sText) {
  return Insert(hMenu, kMenuNoItem, nFlags | kMenuByPosition, nIdOrSubmenu, sText);
}

// A position past the end means the end; a command that is not there takes nothing.
bool HeadlessMenus::Insert(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
                           std::uint32_t nIdOrSubmenu, const CString& sText) {
  Menu* pMenu = m_menus.Find(hMenu);
  if (pMenu == nullptr) return false;
  std::size_t nPosition = std::min<std::size_t>(nItem, pMenu->items.size());
  if ((nFlags & kMenuByPosition) == 0) {
    const Found found = Find(hMenu, nItem, kMenuByCommand);
    if (!found) return false;
    pMenu = found.pMenu;
    nPosition = found.nPosition;
  }
  Item item;
  if (!MakeItem(*pMenu, nFlags, nIdOrSubmenu, sText, item)) return false;
  pMenu->items.insert(pMenu->items.begin() + static_cast<std::ptrdiff_t>(nPosition),
                      std::move(item));
  Changed();
  return true;
}

bool HeadlessMenus::Modify(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
                           std::uint32_t nIdOrSubmenu, const CString& sText) {
  const Found found = Find(hMenu, nItem, nFlags);
  Item item;
  if (!found || !MakeItem(*found.pMenu, nFlags, nIdOrSubmenu, sText, item)) return false;
  const MenuHandle hBefore = std::exchange(found.Get(), item).hSubmenu;
  if (hBefore != item.hSubmenu) DestroyMenu(hBefore);
  Changed();
  return true;
}

bool HeadlessMenus::Remove(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) {
  const Found found = Find(hMenu, nItem, nBy);
  if (!found) return false;
  found.pMenu->items.erase(found.pMenu->items.begin() +
                           static_cast<std::ptrdiff_t>(found.nPosition));
  Changed();
  return true;
}

bool HeadlessMenus::Delete(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) {
  const Found found = Find(hMenu, nItem, nBy);
  if (!found) return false;
  const MenuHandle hSubmenu = found.Get().hSubmenu;
  Remove(hMenu, nItem, nBy);
  DestroyMenu(hSubmenu);
  return true;
}

bool HeadlessWindows::ChooseMenu(WindowHandle hWindow, std::uint32_t nCommand) {
  const std::uint32_t nState =
      m_parts.menus.State(m_parts.menus.Of(hWindow), nCommand, kMenuByCommand);
  if (nState == kMenuNoItem || (nState & (kMenuGrayed | kMenuDisabled)) != 0 ||
      !TakesInput(hWindow)) {
    return false;
  }
  Call(hWindow, kMessageCommand, nCommand, 0);
  return true;
}

std::uint32_t HeadlessMenus::Enable(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags) {
  constexpr std::uint32_t kStates = kMenuGrayed | kMenuDisabled;
  const Found found = Find(hMenu, nItem, nFlags);
  if (!found) return kMenuNoItem;
  std::uint32_t& nState = found.Get().nState;
  const std::uint32_t nBefore = nState & kStates;
  nState = (nState & ~kStates) | (nFlags & kStates);
  Changed();
  return nBefore;
}

}  // namespace ald
