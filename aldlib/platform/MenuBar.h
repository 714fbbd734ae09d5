#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// State bits of a menu item, by the numbers that modules pass through.
constexpr std::uint32_t kMenuGrayed = 0x0001;
constexpr std::uint32_t kMenuDisabled = 0x0002;
constexpr std::uint32_t kMenuChecked = 0x0008;
constexpr std::uint32_t kMenuPopup = 0x0010;
constexpr std::uint32_t kMenuSeparator = 0x0800;
// Tells whether an item is meant by its position or by its command id.
constexpr std::uint32_t kMenuByCommand = 0x0000;
constexpr std::uint32_t kMenuByPosition = 0x0400;

// The id of an item that opens a submenu.
constexpr std::uint32_t kMenuIdOfPopup = 0xFFFFFFFF;

// Menus as trees of items. An item is a command (id above 0), a submenu or a separator (id 0).
// Where an item is meant by its command id, the first one in the menu or in a submenu of it counts.
// A menu that does not exist has no items, and every change to it is false.
class ALDLIB_EXPORT MenuBar {
 public:
  virtual ~MenuBar() = default;

  // The menu of a window; 0 for a window without.
  virtual MenuHandle Of(WindowHandle hWindow) = 0;
  virtual bool SetOf(WindowHandle hWindow, MenuHandle hMenu) = 0;
  // The main window's menu shows what has changed.
  virtual void Redraw(WindowHandle hWindow) = 0;

  virtual MenuHandle CreateBar() = 0;
  virtual MenuHandle CreatePopup() = 0;
  // Destroys the menu with its submenus.
  virtual bool DestroyMenu(MenuHandle hMenu) = 0;

  // -1 for a menu that does not exist.
  virtual int Count(MenuHandle hMenu) = 0;
  // Cut at nLimit - 1 characters.
  virtual CString Text(MenuHandle hMenu, std::uint32_t nItem, int nLimit, std::uint32_t nBy) = 0;
  // The state bits; for a submenu the count of its items in the next byte up. All ones if the item
  // is not there.
  virtual std::uint32_t State(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) = 0;
  // The command id of an item by position: 0 for a separator, kMenuIdOfPopup for a submenu or an
  // item that is not there.
  virtual std::uint32_t Id(MenuHandle hMenu, int nPosition) = 0;
  // 0 unless the item at the position opens one.
  virtual MenuHandle Submenu(MenuHandle hMenu, int nPosition) = 0;

  // The flags hold state bits, kMenuPopup when `nIdOrSubmenu` is a menu handle, kMenuSeparator for
  // a separator, and how `nItem` is meant. Insert puts the new item in front of that one, and at
  // the end for a position past it. False for a submenu that does not exist or would hold itself.
  virtual bool Append(MenuHandle hMenu, std::uint32_t nFlags, std::uint32_t nIdOrSubmenu,
                      const CString& sText) = 0;
  virtual bool Insert(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
                      std::uint32_t nIdOrSubmenu, const CString& sText) = 0;
  // An item that opened another submenu loses and destroys that one.
  virtual bool Modify(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags,
                      std::uint32_t nIdOrSubmenu, const CString& sText) = 0;
  // Removes an item; its submenu is left alone by the first and destroyed by the second.
  virtual bool Remove(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) = 0;
  virtual bool Delete(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nBy) = 0;
  // Grays, disables or enables, and returns which of these bits were set; all ones if the item is
  // not there.
  virtual std::uint32_t Enable(MenuHandle hMenu, std::uint32_t nItem, std::uint32_t nFlags) = 0;
};

}  // namespace ald
