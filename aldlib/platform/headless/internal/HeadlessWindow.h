#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "aldlib/platform/WindowTypes.h"

namespace ald {

// What the user did on the screen of a view, as it waits in the queue. Only the queue knows these.
constexpr std::uint32_t kUserClick = 0xBFF0;
constexpr std::uint32_t kUserChoose = 0xBFF1;  // long: the item
constexpr std::uint32_t kUserEdit = 0xBFF2;
constexpr std::uint32_t kUserFocus = 0xBFF3;
constexpr std::uint32_t kUserActivate = 0xBFF4;
constexpr std::uint32_t kUserLeave = 0xBFF5;
constexpr std::uint32_t kUserCommand = 0xBFF6;  // word: the command of the window's menu
constexpr bool IsUserAct(std::uint32_t nMessage) {
  return nMessage >= kUserClick && nMessage <= kUserCommand;
}

// What a class can do by itself; a registered class has the kind of the one at its root.
enum class WindowKind : std::uint8_t { kArea, kDialog, kButton, kEdit, kStatic, kList, kCombo };

struct WindowClass {
  CString sName;
  WindowKind kind = WindowKind::kArea;
  std::shared_ptr<const WindowClass> pBase;
  WindowProcedure procedure;
  bool bBuiltIn = false;
};

struct ListItem {
  CString sText;
  std::int32_t nData = 0;
};

// What a control holds beside its text.
struct ControlContent {
  std::vector<ListItem> items;
  int nSelection = -1;
  std::uint32_t nLimit = 0;
  std::int32_t nSelectionFirst = 0;  // selected text, from first up to end
  std::int32_t nSelectionEnd = 0;
  int nCheck = 0;
  IconHandle hIcon{};  // of a static control
};

struct HeadlessWindow {
  std::shared_ptr<const WindowClass> pClass;
  WindowProcedure procedure;  // its own, in place of the class's
  CString sText;
  std::uint32_t nStyle = 0;
  Rect place{};            // in the parent's client terms, or the screen's
  WindowHandle hParent{};  // of a child; the owner of another window
  std::vector<WindowHandle> children;
  std::int32_t nId = 0;
  ModuleHandle hModule{};
  FontHandle hFont{};
  MenuHandle hMenu{};
  std::map<Atom, std::intptr_t> properties;
  ControlContent content;

  bool bTopmost = false;
  bool bFlashed = false;
  bool bDying = false;
  std::uint64_t nUsed = 0;  // grows each time that the user comes to the window

  bool bToPaint = false;        // a paint message is due
  std::optional<Rect> invalid;  // what is left to paint

  // Of a dialog.
  Size baseUnits{};
  FontHandle hDialogFont{};  // goes with the dialog
  std::int32_t nDefaultId = 0;
  WindowHandle hLastFocus{};

  // Of another program's window.
  std::uint32_t nThread = 0;
  std::uint32_t nProcess = 0;

  bool IsChild() const { return (nStyle & kStyleChild) != 0; }
  bool IsShown() const { return (nStyle & kStyleVisible) != 0; }
  bool IsDisabled() const { return (nStyle & kStyleDisabled) != 0; }
  bool IsPushButton() const {
    const std::uint32_t nKind = nStyle & kButtonKindMask;
    return pClass->kind == WindowKind::kButton &&
           (nKind == kButtonPush || nKind == kButtonDefaultPush);
  }
};

inline std::intptr_t LongOf(WindowHandle hWindow) {
  return static_cast<std::intptr_t>(static_cast<std::uint32_t>(hWindow));
}
inline std::uint32_t WordOf(WindowHandle hWindow) {
  return static_cast<std::uint32_t>(hWindow);
}

}  // namespace ald
