#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "aldlib/platform/Windows.h"

namespace ald {

// A desktop of top-level windows with titles, threads and processes, and nothing else.
class FewWindows : public Windows {
 public:
  struct Window {
    WindowHandle hWindow;
    CString sTitle;
    std::uint32_t nThread;
    std::uint32_t nProcess;
  };

  std::vector<WindowHandle> TopLevel() override {
    std::vector<WindowHandle> handles;
    for (const Window& window : m_windows) handles.push_back(window.hWindow);
    return handles;
  }
  std::vector<WindowHandle> OfThread(std::uint32_t nThread) override {
    std::vector<WindowHandle> handles;
    for (const Window& window : m_windows) {
      if (window.nThread == nThread) handles.push_back(window.hWindow);
    }
    return handles;
  }
  std::uint32_t ProcessOf(WindowHandle hWindow) override { return Find(hWindow).nProcess; }
  CString Text(WindowHandle hWindow) override { return Find(hWindow).sTitle; }

  std::vector<Window> m_windows;  // the frontmost first

  // What these windows do not have.
  bool RegisterClass(const CString&, const CString&, WindowProcedure) override { return {}; }
  bool UnregisterClass(const CString&) override { return {}; }
  WindowHandle Create(const WindowSpec&) override { return {}; }
  bool Destroy(WindowHandle) override { return {}; }
  WindowHandle CreateDialog(WindowHandle, ModuleHandle, const DialogTemplate&, DialogProcedure,
                            std::intptr_t) override {
    return {};
  }
  std::intptr_t DefaultProcedure(WindowHandle, std::uint32_t, std::uint32_t,
                                 std::intptr_t) override {
    return {};
  }
  bool SetProcedure(WindowHandle, WindowProcedure) override { return {}; }
  bool IsWindow(WindowHandle) override { return {}; }
  bool IsVisible(WindowHandle) override { return {}; }
  bool IsEnabled(WindowHandle) override { return {}; }
  CString ClassName(WindowHandle) override { return {}; }
  bool SetText(WindowHandle, const CString&) override { return {}; }
  std::uint32_t Style(WindowHandle) override { return {}; }
  bool SetStyle(WindowHandle, std::uint32_t) override { return {}; }
  ModuleHandle Module(WindowHandle) override { return {}; }
  FontHandle Font(WindowHandle) override { return {}; }
  bool SetFont(WindowHandle, FontHandle, bool) override { return {}; }
  WindowHandle Parent(WindowHandle) override { return {}; }
  WindowHandle Child(WindowHandle, std::int32_t) override { return {}; }
  std::int32_t ControlId(WindowHandle) override { return {}; }
  std::vector<WindowHandle> Children(WindowHandle) override { return {}; }
  Rect WindowRect(WindowHandle) override { return {}; }
  Rect ClientRect(WindowHandle) override { return {}; }
  Point ToScreen(WindowHandle, Point) override { return {}; }
  Point ToClient(WindowHandle, Point) override { return {}; }
  bool Place(WindowHandle, WindowOrder, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
             std::uint32_t) override {
    return {};
  }
  bool PlaceAll(std::span<const Move>) override { return {}; }
  bool Show(WindowHandle, std::int16_t) override { return {}; }
  bool Enable(WindowHandle, bool) override { return {}; }
  void Invalidate(WindowHandle, const Rect*, bool) override {}
  WindowHandle Focus() override { return {}; }
  WindowHandle SetFocus(WindowHandle) override { return {}; }
  WindowHandle Active() override { return {}; }
  bool SetForeground(WindowHandle) override { return {}; }
  std::uint32_t ForegroundLockTimeout() override { return {}; }
  void SetForegroundLockTimeout(std::uint32_t) override {}
  bool Flash(WindowHandle, bool) override { return {}; }
  bool SetProperty(WindowHandle, Atom, std::intptr_t) override { return {}; }
  std::intptr_t Property(WindowHandle, Atom) override { return {}; }
  std::intptr_t RemoveProperty(WindowHandle, Atom) override { return {}; }
  WindowHandle MainWindow() override { return {}; }
  void SetMainWindow(WindowHandle) override {}
  void SetFrameAccelerator(AcceleratorHandle) override {}
  WindowHandle ActiveDocument(WindowHandle) override { return {}; }
  int Metric(int) override { return {}; }
  Size DialogBaseUnits() override { return {}; }
  Rect MapDialogRect(WindowHandle, const Rect&) override { return {}; }

 private:
  Window Find(WindowHandle hWindow) const {
    for (const Window& window : m_windows) {
      if (window.hWindow == hWindow) return window;
    }
    return {};
  }
};

}  // namespace ald
