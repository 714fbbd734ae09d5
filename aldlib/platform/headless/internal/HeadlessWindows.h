#pragma once

#include <map>
#include <memory>
#include <vector>

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/Windows.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/headless/internal/HandleTable.h"
#include "aldlib/platform/headless/internal/HeadlessWindow.h"

namespace ald {

struct HeadlessParts;

// The windows of HeadlessDesktop. Any call of a procedure can destroy any window, so a pointer to a
// window's record is looked up again behind each of them.
// The font that a dialog of the template has.
tagLOGFONTA DialogFont(const DialogTemplate& dialog);

class HeadlessWindows : public Windows {
 public:
  explicit HeadlessWindows(HeadlessParts& parts);

  // WindowClasses.cpp
  bool RegisterClass(const CString& sName, const CString& sBase,
                     WindowProcedure procedure) override;
  bool UnregisterClass(const CString& sName) override;
  std::intptr_t DefaultProcedure(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                                 std::intptr_t nLong) override;
  bool SetProcedure(WindowHandle hWindow, WindowProcedure procedure) override;
  CString ClassName(WindowHandle hWindow) override;

  // WindowTree.cpp
  WindowHandle Create(const WindowSpec& spec) override;
  bool Destroy(WindowHandle hWindow) override;
  bool IsWindow(WindowHandle hWindow) override;
  CString Text(WindowHandle hWindow) override;
  bool SetText(WindowHandle hWindow, const CString& sText) override;
  std::uint32_t Style(WindowHandle hWindow) override;
  bool SetStyle(WindowHandle hWindow, std::uint32_t nStyle) override;
  ModuleHandle Module(WindowHandle hWindow) override;
  FontHandle Font(WindowHandle hWindow) override;
  bool SetFont(WindowHandle hWindow, FontHandle hFont, bool bRedraw) override;
  WindowHandle Parent(WindowHandle hWindow) override;
  WindowHandle Child(WindowHandle hParent, std::int32_t nId) override;
  std::int32_t ControlId(WindowHandle hWindow) override;
  std::vector<WindowHandle> Children(WindowHandle hParent) override;
  std::vector<WindowHandle> TopLevel() override;
  std::vector<WindowHandle> OfThread(std::uint32_t nThread) override;
  std::uint32_t ProcessOf(WindowHandle hWindow) override;
  bool SetProperty(WindowHandle hWindow, Atom nName, std::intptr_t nValue) override;
  std::intptr_t Property(WindowHandle hWindow, Atom nName) override;
  std::intptr_t RemoveProperty(WindowHandle hWindow, Atom nName) override;
  WindowHandle MainWindow() override;
  void SetMainWindow(WindowHandle hWindow) override;
  WindowHandle ActiveDocument(WindowHandle hClient) override;

  // WindowPlaces.cpp
  Rect WindowRect(WindowHandle hWindow) override;
  Rect ClientRect(WindowHandle hWindow) override;
  Point ToScreen(WindowHandle hWindow, Point client) override;
  Point ToClient(WindowHandle hWindow, Point screen) override;
  bool Place(WindowHandle hWindow, WindowOrder order, std::int32_t x, std::int32_t y,
             std::int32_t cx, std::int32_t cy, std::uint32_t nPlaceBits) override;
  bool PlaceAll(std::span<const Move> moves) override;
  void Invalidate(WindowHandle hWindow, const Rect* pPart, bool bErase) override;
  int Metric(int nMetric) override;
  Size DialogBaseUnits() override;

  // WindowStates.cpp
  bool IsVisible(WindowHandle hWindow) override;
  bool IsEnabled(WindowHandle hWindow) override;
  bool Show(WindowHandle hWindow, std::int16_t nShow) override;
  bool Enable(WindowHandle hWindow, bool bEnable) override;
  WindowHandle Focus() override;
  WindowHandle SetFocus(WindowHandle hWindow) override;
  WindowHandle Active() override;
  bool SetForeground(WindowHandle hWindow) override;
  std::uint32_t ForegroundLockTimeout() override;
  void SetForegroundLockTimeout(std::uint32_t nMilliseconds) override;
  bool Flash(WindowHandle hWindow, bool bInvert) override;
  void SetFrameAccelerator(AcceleratorHandle hAccelerator) override;

  // Dialogs.cpp
  WindowHandle CreateDialog(WindowHandle hOwner, ModuleHandle hModule, const DialogTemplate& dialog,
                            DialogProcedure procedure, std::intptr_t nInit) override;
  Rect MapDialogRect(WindowHandle hDialog, const Rect& units) override;

  // For the other parts of the desktop.

  HeadlessWindow* Find(WindowHandle hWindow) { return m_windows.Find(hWindow); }
  std::size_t Count() const { return m_windows.Count(); }
  bool IsOfClass(WindowHandle hWindow, const CString& sClass);
  // Hands a message to the window's procedure.
  std::intptr_t Call(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                     std::intptr_t nLong);
  // Tells the parent of a control what the user did to it.
  void Notify(WindowHandle hControl, std::uint32_t nNotice);
  // The window itself or the parent above it that is no child.
  WindowHandle TopLevelOf(WindowHandle hWindow);
  bool IsInside(WindowHandle hWindow, WindowHandle hAncestor);
  // Visible, and neither it nor a parent is disabled.
  bool TakesInput(WindowHandle hWindow);
  // Brings a top-level window to the front, and the focus into it.
  void Activate(WindowHandle hWindow);
  void Deactivate();
  // The next window with a paint message due; 0 if there is none.
  WindowHandle NextToPaint();
  // Marks a window and all inside it as to be painted.
  void PaintAll(WindowHandle hWindow);
  WindowHandle AddForeign(std::uint32_t nThread, std::uint32_t nProcess, const CString& sClass,
                          const CString& sText);

  // The dialog as CreateDialog makes it, shown whatever its style says if `bShow` does.
  WindowHandle MakeDialog(WindowHandle hOwner, ModuleHandle hModule, const DialogTemplate& dialog,
                          DialogProcedure procedure, std::intptr_t nInit, bool bShow);
  bool IsDialogMessage(WindowHandle hDialog, const WindowMessage& message);
  // A click on a button: changes its state and tells its parent. False if it takes none.
  bool Click(WindowHandle hButton);
  // Does what the user of a view did: one of the kUser messages.
  void UserDid(const WindowMessage& act);
  // Sends a command of the window's menu. False if the menu has none, or it cannot be given now.
  bool ChooseMenu(WindowHandle hWindow, std::uint32_t nCommand);
  // The widths of the frame on each side: a window with a caption has one.
  static Rect FrameOf(std::uint32_t nStyle);
  // The id of the dialog's default button: 1 if nothing else was said.
  std::int32_t DefaultId(WindowHandle hDialog);

  AcceleratorHandle FrameAccelerator() const { return m_hFrameAccelerator; }

  std::vector<Invalidation> m_invalidations;
  std::vector<WindowHandle> m_flashed;  // one entry a flash

 private:
  struct ActiveCall {
    WindowHandle hWindow;
    std::size_t nLevel;
  };

  void AddBuiltIn(const char* szName, WindowKind kind);
  std::intptr_t CallFrom(std::size_t nLevel, WindowHandle hWindow, std::uint32_t nMessage,
                         std::uint32_t nWord, std::intptr_t nLong);
  void DestroyTree(WindowHandle hWindow);
  void Forget(WindowHandle hWindow);
  void ActivateNext(WindowHandle hPreferred);
  void BringToFront(WindowHandle hWindow, bool bTopmost);
  void NoteInvalid(WindowHandle hWindow, const Rect& part, bool bErase);
  bool FindToPaint(WindowHandle hWindow, WindowHandle& hFound);
  std::vector<WindowHandle>* SiblingsOf(const HeadlessWindow& window);

  // BuiltInClasses.cpp
  std::intptr_t BuiltIn(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                        std::intptr_t nLong);
  void TypeInto(WindowHandle hEdit, char chTyped);
  void PaintControl(WindowHandle hWindow);

  // Dialogs.cpp
  bool DialogKey(WindowHandle hDialog, const WindowMessage& message);
  bool MoveFocus(WindowHandle hDialog, WindowHandle hFrom, bool bBack);
  bool MoveInGroup(WindowHandle hFrom, bool bBack);
  bool ChooseMnemonic(WindowHandle hDialog, char chMnemonic);
  void Command(WindowHandle hDialog, std::int32_t nId);

  HeadlessParts& m_parts;
  std::map<CString, std::shared_ptr<const WindowClass>> m_classes;  // by folded name
  HandleTable<WindowHandle, HeadlessWindow> m_windows;
  std::vector<WindowHandle> m_order;    // top-level windows, the frontmost first
  std::vector<WindowHandle> m_foreign;  // other programs' windows
  std::vector<ActiveCall> m_calls;      // procedures that run now, the innermost last
  WindowHandle m_hFocus{};
  WindowHandle m_hActive{};
  WindowHandle m_hMain{};
  AcceleratorHandle m_hFrameAccelerator{};
  std::uint32_t m_nForegroundLock = 200000;
  std::uint64_t m_nUse = 0;
};

}  // namespace ald
