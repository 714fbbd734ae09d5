// The box that says that memory has run out must not ask for any.
#include <gtest/gtest.h>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/MemStore.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/FixedString.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/WatchedMemory.h"

namespace ald {
namespace {

// A desktop that needs no memory: the one window that a box asks for, and nothing else.
class OneWindow : public Windows {
 public:
  bool RegisterClass(const CString&, const CString&, WindowProcedure) override { return {}; }
  bool UnregisterClass(const CString&) override { return {}; }
  WindowHandle Create(const WindowSpec&) override {
    if (m_bRefuse) return WindowHandle{};
    ++m_nWindows;
    return WindowHandle{1};
  }
  bool Destroy(WindowHandle) override {
    --m_nWindows;
    return true;
  }
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
  CString Text(WindowHandle) override { return {}; }
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
  std::vector<WindowHandle> TopLevel() override { return {}; }
  std::vector<WindowHandle> OfThread(std::uint32_t) override { return {}; }
  std::uint32_t ProcessOf(WindowHandle) override { return {}; }
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

  int m_nWindows = 0;
  bool m_bRefuse = false;
};

class CountingPresenter : public Presenter {
 public:
  CString ApplicationName() override { return {}; }
  int PlainBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
               std::uint32_t nFlags) override {
    ++m_nBoxes;
    m_hOwner = hOwner;
    m_sText = sText.c_str();
    m_sCaption = sCaption.c_str();
    m_nFlags = nFlags;
    return kButtonOk;
  }
  int FrameworkBox(const CString&, std::uint32_t, std::int32_t) override { return 0; }
  int HelpBox(WindowHandle, const CString&, const CString&, std::uint32_t, std::int32_t,
              const std::function<void(std::int32_t)>&) override {
    return 0;
  }
  void DisableModeless() override {}
  void EnableModeless() override {}
  WindowHandle SafeOwner(WindowHandle&) override { return {}; }
  std::intptr_t RunDialog(WindowHandle, ModuleHandle, const DialogTemplate&, DialogProcedure,
                          std::intptr_t) override {
    return 0;
  }
  bool EndDialog(WindowHandle, std::intptr_t) override { return false; }

  int m_nBoxes = 0;
  WindowHandle m_hOwner{};
  CFixedString<100> m_sText;
  CFixedString<100> m_sCaption;
  std::uint32_t m_nFlags = 0;
};

TEST(MemoryFailure, IsShownWithoutTakingMemory) {
  FakePlatform fake;
  OneWindow windows;
  CountingPresenter presenter;
  const Platform& base = CurrentPlatform();
  const Desktop& desk = base.desktop;
  const Platform platform = base.WithDesktop(
      {desk.queue, windows, desk.controls, desk.canvas, desk.menus, presenter, desk.help});
  MoveToPlatform(&platform);

  long nRefused = 0;
  for (int i = 1; i <= 2; ++i) {
    const long nBefore = g_nAllocations;
    g_bNoMemory = true;
    FailAllocation(1);
    void* const pBlock = _RealAllocate(10);
    g_bNoMemory = false;
    nRefused += g_nAllocations - nBefore;
    EXPECT_EQ(pBlock, nullptr);
    EXPECT_EQ(presenter.m_nBoxes, i);
    EXPECT_EQ(windows.m_nWindows, 0);
    EXPECT_EQ(presenter.m_hOwner, WindowHandle{1});
    EXPECT_STREQ(presenter.m_sText, "Not enough Memory to run.");
    EXPECT_STREQ(presenter.m_sCaption, "Alderfell Library");
    EXPECT_EQ(presenter.m_nFlags, 0x1010U);
  }
  // What was refused is the log, which must not keep its file open. With memory it works again.
  EXPECT_GT(nRefused, 0);
  EXPECT_EQ(fake.m_files.OpenHandles(), 0U);

  windows.m_bRefuse = true;  // where not even that window can be made, the answer is Cancel
  EXPECT_EQ(Lib_Message(0, MessageByNumber(20300)), kButtonCancel);
  EXPECT_EQ(presenter.m_nBoxes, 2);
  MoveToPlatform(nullptr);
}

// The desktop in memory does ask for some, to show a box and to put away what was shown.
TEST(MemoryFailure, EndsABoxWithoutAnAnswerAndTheApplicationGoesOn) {
  FakePlatform fake;
  Windows& windows = CurrentPlatform().desktop.windows;
  WindowSpec spec;
  spec.sClass = "STATIC";
  const WindowHandle hLedger = windows.Create(spec);
  spec.hParent = hLedger;
  const WindowHandle hOwned = windows.Create(spec);
  spec.hParent = {};
  const WindowHandle hOther = windows.Create(spec);

  for (const char* szText : {"|Invalid date", "*Saved", "?Delete?"}) {
    windows.SetFocus(hOther);
    windows.SetFocus(hLedger);
    const std::size_t nWindows = windows.TopLevel().size();
    bool bAnswered = false;
    const int nRefused = RefuseEach([&] { bAnswered = Message(0, MessageByText(szText)) != 0; },
                                    [&](bool bRefused) {
                                      EXPECT_EQ(MyAlderLibDataPtr->bInMessage, 0);
                                      for (const WindowHandle hWindow : {hLedger, hOwned, hOther}) {
                                        EXPECT_TRUE(windows.IsEnabled(hWindow)) << szText;
                                      }
                                      if (!bRefused) {
                                        EXPECT_TRUE(bAnswered) << szText;
                                        EXPECT_EQ(windows.Focus(), hLedger) << szText;
                                      }
                                      windows.SetFocus(hOther);
                                      windows.SetFocus(hLedger);
                                    });
    EXPECT_GT(nRefused, 0);
    EXPECT_EQ(windows.TopLevel().size(), nWindows) << szText;
  }
  EXPECT_TRUE(windows.IsWindow(hOwned));
}

}  // namespace
}  // namespace ald
