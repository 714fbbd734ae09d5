#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// Bits of Windows::Place, by the numbers that screens pass through.
constexpr std::uint32_t kPlaceNoSize = 0x01;
constexpr std::uint32_t kPlaceNoMove = 0x02;
constexpr std::uint32_t kPlaceNoOrder = 0x04;
constexpr std::uint32_t kPlaceNoRedraw = 0x08;
constexpr std::uint32_t kPlaceNoActivate = 0x10;
constexpr std::uint32_t kPlaceShow = 0x40;
constexpr std::uint32_t kPlaceHide = 0x80;

// Where a window goes in front of and behind its neighbours.
enum class WindowOrder : std::uint8_t { kKeep, kTop, kTopmost };

constexpr std::int16_t kShowHide = 0;
constexpr std::int16_t kShowNormal = 1;
constexpr std::int16_t kShowNoActivate = 4;
constexpr std::int16_t kShowCurrent = 5;

// Numbers of Windows::Metric.
constexpr int kMetricScreenWidth = 0;
constexpr int kMetricScreenHeight = 1;
constexpr int kMetricIconWidth = 11;
constexpr int kMetricIconHeight = 12;

// What it takes to make a window.
struct WindowSpec {
  CString sClass{};  // a class that the desktop has, in any case
  CString sText{};
  std::uint32_t nStyle = 0;  // kStyle bits; with kStyleChild it lives inside its parent
  Rect place{};              // in the parent's client terms, or the screen's
  WindowHandle hParent{};    // the parent of a child, the owner of another window
  std::int32_t nId = 0;      // of a child
  ModuleHandle hModule{};
};

// The windows of the desktop. A handle that names no window is harmless everywhere: texts are
// empty, handles 0, rectangles all zero and changes false.
//
// Every desktop has the classes "BUTTON", "EDIT", "STATIC", "LISTBOX", "COMBOBOX" and "COMBO" from
// the start, and "ABD_Edit", which is an edit control. Dialogs are of the class "DIALOG".
class ALDLIB_EXPORT Windows {
 public:
  virtual ~Windows() = default;

  // Adds a window class that stands on one that the desktop has, or on none for an empty base: then
  // it is a plain area. A window of it hands its messages to the procedure; what the procedure has
  // no answer for it gives to DefaultProcedure, which does what the base does. A null procedure
  // gives everything there. Names are known in any case. False if the name is empty or taken, or
  // the base unknown.
  virtual bool RegisterClass(const CString& sName, const CString& sBase,
                             WindowProcedure procedure) = 0;
  virtual bool UnregisterClass(const CString& sName) = 0;

  // Makes a window; 0 if the class is unknown, or a child's parent none or going. Destroying it
  // destroys its children, and tells each by kMessageDestroy, the parent first.
  virtual WindowHandle Create(const WindowSpec& spec) = 0;
  virtual bool Destroy(WindowHandle hWindow) = 0;

  // Makes a modeless dialog with its controls from the template, sends it kMessageInitDialog with
  // `nInit` as the long, and returns it; 0 if a class of it is unknown.
  virtual WindowHandle CreateDialog(WindowHandle hOwner, ModuleHandle hModule,
                                    const DialogTemplate& dialog, DialogProcedure procedure,
                                    std::intptr_t nInit) = 0;

  // What a class does with a message that its procedure passes on: for the procedure of a window or
  // class that runs now, what the class beneath it does.
  virtual std::intptr_t DefaultProcedure(WindowHandle hWindow, std::uint32_t nMessage,
                                         std::uint32_t nWord, std::intptr_t nLong) = 0;
  // Gives one window a procedure of its own in place of its class's.
  virtual bool SetProcedure(WindowHandle hWindow, WindowProcedure procedure) = 0;

  virtual bool IsWindow(WindowHandle hWindow) = 0;
  // Visible means that all windows above it are, too.
  virtual bool IsVisible(WindowHandle hWindow) = 0;
  virtual bool IsEnabled(WindowHandle hWindow) = 0;

  // The name as the class was registered; "DIALOG" for a dialog.
  virtual CString ClassName(WindowHandle hWindow) = 0;
  virtual CString Text(WindowHandle hWindow) = 0;
  virtual bool SetText(WindowHandle hWindow, const CString& sText) = 0;
  virtual std::uint32_t Style(WindowHandle hWindow) = 0;
  virtual bool SetStyle(WindowHandle hWindow, std::uint32_t nStyle) = 0;
  virtual ModuleHandle Module(WindowHandle hWindow) = 0;
  virtual FontHandle Font(WindowHandle hWindow) = 0;
  virtual bool SetFont(WindowHandle hWindow, FontHandle hFont, bool bRedraw) = 0;

  // The parent of a child, the owner of a dialog; 0 for a window without.
  virtual WindowHandle Parent(WindowHandle hWindow) = 0;
  virtual WindowHandle Child(WindowHandle hParent, std::int32_t nId) = 0;
  virtual std::int32_t ControlId(WindowHandle hWindow) = 0;
  // Direct children, from the first on in their order.
  virtual std::vector<WindowHandle> Children(WindowHandle hParent) = 0;
  // Top-level windows, the frontmost first.
  virtual std::vector<WindowHandle> TopLevel() = 0;
  // Top-level windows of one thread of any program, and the process behind a window; none and 0
  // where the desktop does not see other programs' windows.
  virtual std::vector<WindowHandle> OfThread(std::uint32_t nThread) = 0;
  virtual std::uint32_t ProcessOf(WindowHandle hWindow) = 0;

  // The whole window in screen terms, and the inside of it in its own, from (0, 0) on.
  virtual Rect WindowRect(WindowHandle hWindow) = 0;
  virtual Rect ClientRect(WindowHandle hWindow) = 0;
  virtual Point ToScreen(WindowHandle hWindow, Point client) = 0;
  virtual Point ToClient(WindowHandle hWindow, Point screen) = 0;
  // Moves, sizes, shows and orders by the kPlace bits; a child in its parent's client terms.
  virtual bool Place(WindowHandle hWindow, WindowOrder order, std::int32_t x, std::int32_t y,
                     std::int32_t cx, std::int32_t cy, std::uint32_t nPlaceBits) = 0;
  // Several places at once: nothing is seen of them before the last is set.
  struct Move {
    WindowHandle hWindow;
    std::int32_t x;
    std::int32_t y;
    std::int32_t cx;
    std::int32_t cy;
    std::uint32_t nPlaceBits;
  };
  virtual bool PlaceAll(std::span<const Move> moves) = 0;
  // Returns whether the window was visible before.
  virtual bool Show(WindowHandle hWindow, std::int16_t nShow) = 0;
  // Returns whether the window was disabled before.
  virtual bool Enable(WindowHandle hWindow, bool bEnable) = 0;
  // Has a part of the window's inside painted anew, or all of it for null.
  virtual void Invalidate(WindowHandle hWindow, const Rect* pPart, bool bErase) = 0;

  virtual WindowHandle Focus() = 0;
  // Returns the window that had the focus. It stays there if the other is no window, or disabled,
  // or inside a disabled one; a hidden one can have it. For 0 no window has it.
  virtual WindowHandle SetFocus(WindowHandle hWindow) = 0;
  // The window that the user works in, of this application; 0 if that is another's.
  virtual WindowHandle Active() = 0;
  virtual bool SetForeground(WindowHandle hWindow) = 0;
  // How long another application keeps the foreground to itself, in milliseconds.
  virtual std::uint32_t ForegroundLockTimeout() = 0;
  virtual void SetForegroundLockTimeout(std::uint32_t nMilliseconds) = 0;
  // Turns the window's caption over, or back to how it was; returns whether it was lit.
  virtual bool Flash(WindowHandle hWindow, bool bInvert) = 0;

  // Values kept with a window under an atom, gone with the window.
  virtual bool SetProperty(WindowHandle hWindow, Atom nName, std::intptr_t nValue) = 0;
  virtual std::intptr_t Property(WindowHandle hWindow, Atom nName) = 0;
  virtual std::intptr_t RemoveProperty(WindowHandle hWindow, Atom nName) = 0;

  // The frame window of the application's own thread, which a host names once it has it.
  virtual WindowHandle MainWindow() = 0;
  virtual void SetMainWindow(WindowHandle hWindow) = 0;
  // The accelerators that the frame window's own class looks up keys in.
  virtual void SetFrameAccelerator(AcceleratorHandle hAccelerator) = 0;
  // The child in front inside a multiple-document client.
  virtual WindowHandle ActiveDocument(WindowHandle hClient) = 0;

  virtual int Metric(int nMetric) = 0;
  // Width and height of a character of the system's font: what one dialog unit is made of where no
  // dialog says otherwise.
  virtual Size DialogBaseUnits() = 0;
  // Turns dialog units of that dialog's font into pixels.
  virtual Rect MapDialogRect(WindowHandle hDialog, const Rect& units) = 0;
};

}  // namespace ald
