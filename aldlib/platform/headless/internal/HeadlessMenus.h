#pragma once

#include <vector>

#include "aldlib/platform/MenuBar.h"
#include "aldlib/platform/headless/internal/HandleTable.h"

namespace ald {

struct HeadlessParts;

// What State and Enable answer for an item that is not there.
constexpr std::uint32_t kMenuNoItem = 0xFFFFFFFF;

class HeadlessMenus : public MenuBar {
 public:
  explicit HeadlessMenus(HeadlessParts& parts) : m_parts(parts) {}

  MenuHandle Of(WindowHandle hWindow) override;
  bool SetOf(WindowHandle hWindow, MenuHandle hMenu) override;
  void Redraw(WindowHandle hWindow) override;
  MenuHandle CreateBar() override { return m_menus.Add({}); }
  MenuHandle CreatePopup() override { return m_menus.Add({}); }
  bool DestroyMenu(MenuHandle hMenu) override;
  int Count(MenuHandle hMenu) override;
  CString Text(MenuHandle hMenu, std::uint32_t nItem, int nLimit, std::uint32_t nBy) override;
  std::uint32_t State(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) override;
  std::uint32_t Id(MenuHandle hMenu, int nPosition) override;
  MenuHandle Submenu(MenuHandle hMenu, int nPosition) override;
  bool Append(MenuHandle hMenu, std::uint32_t nFlags, std::uint32_t nIdOrSubmenu,
              const CString& sText) override;
  bool Insert(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
              std::uint32_t nIdOrSubmenu, const CString& sText) override;
  bool Modify(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
              std::uint32_t nIdOrSubmenu, const CString& sText) override;
  bool Remove(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) override;
  bool Delete(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) override;
  std::uint32_t Enable(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags) override;

  std::size_t LiveMenus() const { return m_menus.Count(); }

  std::vector<WindowHandle> m_redrawn;

 private:
  struct Item {
    std::uint32_t nState = 0;
    std::uint32_t nId = 0;
    MenuHandle hSubmenu{};
    CString sText;
  };
  struct Menu {
    std::vector<Item> items;
  };
  // Where an item stands: its menu and position. No menu if there is none.
  struct Found {
    Menu* pMenu = nullptr;
    std::size_t nPosition = 0;
    Item& Get() const { return pMenu->items[nPosition]; }
    explicit operator bool() const { return pMenu != nullptr; }
  };

  void Changed();
  Found Find(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy);
  bool MakeItem(const Menu& menu, std::uint32_t nFlags, std::uint32_t nIdOrSubmenu,
                const CString& sText, Item& item);
  bool Contains(MenuHandle hMenu, const Menu& other);
  static std::uint32_t StateOf(const Item& item);

  HeadlessParts& m_parts;
  HandleTable<MenuHandle, Menu> m_menus;
};

}  // namespace ald
