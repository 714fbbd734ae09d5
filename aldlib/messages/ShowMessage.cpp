#include "aldlib/messages/internal/ShowMessage.h"

#include <new>

#include "aldlib/config/Profile.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/platform/internal/Undo.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/screens/MessagePump.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr std::uint32_t kWaitTimer = 2;
constexpr std::uint32_t kWaitPeriod = 500;  // milliseconds
constexpr std::int32_t kNoHelpTopic = -1;

constexpr const char* kOwnerClass = "ABD_Edit";
constexpr std::string_view kLibraryName = "Alderfell Library";
constexpr std::size_t kLongestLibraryText = 2048;

const Desktop& CurrentDesktop() {
  return CurrentPlatform().desktop;
}

// Gives the focus back to the window that had it, if it is elsewhere in the end.
class KeptFocus {
 public:
  KeptFocus() : m_hFocus(CurrentDesktop().windows.Focus()) {}
  KeptFocus(const KeptFocus&) = delete;
  KeptFocus& operator=(const KeptFocus&) = delete;
  ~KeptFocus() {
    Undo([this] { Restore(); });
  }

  WindowHandle Window() const { return m_hFocus; }
  void Restore() const {
    Windows& windows = CurrentDesktop().windows;
    if (m_hFocus != WindowHandle{} && windows.Focus() != m_hFocus) windows.SetFocus(m_hFocus);
  }

 private:
  WindowHandle m_hFocus;
};

// Flashes the main window, and wakes the queue so that it goes on, until the wait is over.
class Attention {
 public:
  Attention() = default;
  Attention(const Attention&) = delete;
  Attention& operator=(const Attention&) = delete;
  ~Attention() {
    if (m_hTimer != WindowHandle{}) {
      Undo([this] { CurrentDesktop().queue.KillTimer(m_hTimer, kWaitTimer); });
    }
    if (m_hFlashed != WindowHandle{}) {
      Undo([this] { CurrentDesktop().windows.Flash(m_hFlashed, false); });
    }
  }

  // False if there is no timer to wake the queue.
  bool Call(WindowHandle hMainWindow) {
    CurrentDesktop().windows.Flash(hMainWindow, true);
    m_hFlashed = hMainWindow;
    if (m_hTimer != WindowHandle{}) return true;
    if (!CurrentDesktop().queue.SetTimer(hMainWindow, kWaitTimer, kWaitPeriod)) return false;
    m_hTimer = hMainWindow;
    return true;
  }

 private:
  WindowHandle m_hFlashed{};
  WindowHandle m_hTimer{};
};

bool MustWait(std::uint32_t nFlags) {
  return MyAlderLibDataPtr != nullptr && MyAlderLibDataPtr->hMainWindow != WindowHandle{} &&
         MyAlderLibDataPtr->bWeAreActive == 0 && (nFlags & kBoxSystemModal) == 0;
}

void WaitUntilActive(std::uint32_t nFlags) {
  Attention attention;
  while (MustWait(nFlags)) {
    if (!attention.Call(MyAlderLibDataPtr->hMainWindow)) return;
    if (MyGetMessage() == 0) {
      CurrentPlatform().machine.FatalExit("Quit while message pending.");
    }
  }
}

// Says that a message is on the screen, with its help topic, until it is gone.
class OnScreen {
 public:
  explicit OnScreen(std::int32_t nHelpTopic) : m_bBefore(MyAlderLibDataPtr->bInMessage) {
    MyAlderLibDataPtr->bInMessage = 1;
    PushHelpLevel(nHelpTopic);
  }
  OnScreen(const OnScreen&) = delete;
  OnScreen& operator=(const OnScreen&) = delete;
  ~OnScreen() {
    PopHelpLevel();
    if (MyAlderLibDataPtr != nullptr) MyAlderLibDataPtr->bInMessage = m_bBefore;
  }

 private:
  unsigned char m_bBefore;
};

// Keeps the user out of the application's other windows while a box with help is up.
class ModelessDisabled {
 public:
  // Goes by way of the other one, so that the destructor runs whatever throws here.
  explicit ModelessDisabled(WindowHandle hParent) : ModelessDisabled() {
    m_hOwner = hParent;
    if (m_hOwner == WindowHandle{}) m_hOwner = CurrentDesktop().presenter.SafeOwner(m_hDisabled);
  }
  ModelessDisabled(const ModelessDisabled&) = delete;
  ModelessDisabled& operator=(const ModelessDisabled&) = delete;
  ~ModelessDisabled() {
    const WindowHandle hEnable = m_hDisabled != WindowHandle{} ? m_hDisabled : m_hOwner;
    if (hEnable != WindowHandle{}) {
      Undo([hEnable] { CurrentDesktop().windows.Enable(hEnable, true); });
    }
    Undo([] { CurrentDesktop().presenter.EnableModeless(); });
  }

  WindowHandle Owner() const { return m_hOwner; }

 private:
  ModelessDisabled() { CurrentDesktop().presenter.DisableModeless(); }

  WindowHandle m_hOwner{};
  WindowHandle m_hDisabled{};
};

int ShowWithHelp(std::uint32_t nFlags, const CString& sText, std::int32_t nHelpTopic,
                 WindowHandle hParent) {
  const ModelessDisabled disabled(hParent);
  Presenter& presenter = CurrentDesktop().presenter;
  const WindowHandle hOwner = disabled.Owner();
  return presenter.HelpBox(hOwner, sText, presenter.ApplicationName(), nFlags, nHelpTopic,
                           [hOwner](std::int32_t) { ShowMessageHelp(hOwner); });
}

// Takes the "|" of help off the text. Returns whether it was there; *pbButton says if it stands for
// a Help button.
bool TakeHelpSign(CFixedStringParamRef text, bool* pbButton) {
  if (!text.view().starts_with('|')) return false;
  *pbButton = !text.view().starts_with("|!");
  Delete(text, 0, *pbButton ? 1 : 2);
  return true;
}

int ShowBox(std::uint32_t nFlags, CFixedStringParamRef text, std::int32_t nHelpTopic,
            WindowHandle hParent) {
  const Desktop& desktop = CurrentDesktop();
  if (MyAlderLibDataPtr == nullptr) {
    // Before there is a record there are no help levels either, and "|!" has no meaning.
    const bool bHelp = text.view().starts_with('|');
    if (bHelp) Delete(text, 0, 1);
    return desktop.presenter.FrameworkBox(CString(text.view()), nFlags | (bHelp ? kBoxHelp : 0),
                                          bHelp ? nHelpTopic : kNoHelpTopic);
  }
  if (hParent == WindowHandle{}) {
    // Nothing is done with the answers, but a client that is asked may do something of its own.
    const WindowHandle hClient = MyAlderLibDataPtr->hMDIClient;
    if (hClient != WindowHandle{}) desktop.windows.ActiveDocument(hClient);
    const WindowHandle hTop = MyAlderLibDataPtr->hTopWindow;
    if (hTop != WindowHandle{}) desktop.windows.IsWindow(hTop);
  }
  bool bButton = false;
  if (TakeHelpSign(text, &bButton)) {
    const OnScreen onScreen(nHelpTopic);
    return ShowWithHelp(nFlags | (bButton ? kBoxHelp : 0), CString(text.view()), nHelpTopic,
                        hParent);
  }
  if ((nFlags & kBoxHelp) != 0) {
    const OnScreen onScreen(nHelpTopic);
    return ShowWithHelp(nFlags, CString(text.view()), nHelpTopic, WindowHandle{});
  }
  const OnScreen onScreen(0);
  return desktop.presenter.FrameworkBox(CString(text.view()), nFlags, kNoHelpTopic);
}

std::uint16_t LowWord(int nResult) {
  return static_cast<std::uint16_t>(static_cast<unsigned>(nResult) & 0xFFFF);
}

// The strings that the library's box hands to the desktop, with memory taken beforehand: the box
// that says that there is none left must not ask for any.
class LibraryBoxTexts {
 public:
  LibraryBoxTexts() : m_sCaption(kLibraryName) { m_sText.reserve(kLongestLibraryText); }

  CString m_sText;
  const CString m_sCaption;
  bool m_bInUse = false;
};

LibraryBoxTexts& ReservedTexts() {
  static const NeverDestroyed<LibraryBoxTexts> s_texts;
  return *s_texts;
}

// Lends the reserved texts to one box at a time.
class LentTexts {
 public:
  explicit LentTexts(std::string_view sText) : m_texts(ReservedTexts()) {
    m_texts.m_sText.assign(sText);
    m_texts.m_bInUse = true;
  }
  LentTexts(const LentTexts&) = delete;
  LentTexts& operator=(const LentTexts&) = delete;
  ~LentTexts() { m_texts.m_bInUse = false; }

  const CString& Text() const { return m_texts.m_sText; }
  const CString& Caption() const { return m_texts.m_sCaption; }

 private:
  LibraryBoxTexts& m_texts;
};

// The window that owns the library's box where nothing else does.
class HiddenOwner {
 public:
  HiddenOwner() {
    WindowSpec spec;
    spec.sClass = kOwnerClass;
    spec.hModule = AlderLibHandle();
    m_hWindow = CurrentDesktop().windows.Create(spec);
  }
  HiddenOwner(const HiddenOwner&) = delete;
  HiddenOwner& operator=(const HiddenOwner&) = delete;
  ~HiddenOwner() {
    if (m_hWindow == WindowHandle{}) return;
    Undo([this] { CurrentDesktop().windows.Destroy(m_hWindow); });
  }

  WindowHandle Window() const { return m_hWindow; }

 private:
  WindowHandle m_hWindow{};
};

std::uint16_t ShowPlainBox(std::uint32_t nFlags, const CString& sText, const CString& sCaption) {
  const KeptFocus focus;
  const HiddenOwner owner;
  if (owner.Window() == WindowHandle{}) return kButtonCancel;
  CurrentDesktop().windows.SetFocus(owner.Window());
  const WindowHandle hOwner = focus.Window() != WindowHandle{} ? focus.Window() : owner.Window();
  const int nButton = CurrentDesktop().presenter.PlainBox(hOwner, sText, sCaption, nFlags);
  focus.Restore();  // before its holder goes
  return LowWord(nButton);
}

// Adds a name to the path, behind a backslash, as far as 260 characters go.
void AddToPath(CPathNameString& sPath, const char* szName) {
  if (!sPath.IsEmpty() && !sPath.view().ends_with('\\')) sstrcat(sPath, "\\", sPath.GetSize());
  sstrcat(sPath, szName, sPath.GetSize());
}

bool HelpFile(CPathNameString& sPath) {
  const auto nSize = static_cast<std::int16_t>(sPath.GetSize());
  GetALWProfileString(AlderIniSections::Install, "ALDERWHELPPATH", "", sPath, nSize);
  if (sPath.IsEmpty()) {
    GetALWProfileString(AlderIniSections::Install, "PROGRAMPATH", "", sPath, nSize);
    if (sPath.IsEmpty()) return false;
    AddToPath(sPath, "Help");
  }
  AddToPath(sPath, "Msghelp.chm");
  return true;
}

}  // namespace

std::uint16_t ShowComposed(std::uint32_t nFlags, CFixedStringParamRef text, std::int32_t nHelpTopic,
                           WindowHandle hParent) try {
  const KeptFocus focus;
  WaitUntilActive(nFlags);
  return LowWord(ShowBox(nFlags, text, nHelpTopic, hParent));
} catch (const std::bad_alloc&) {
  return 0;
}

std::uint16_t ShowLibraryBox(std::uint32_t nFlags, std::string_view sText) try {
  sText = sText.substr(0, kLongestLibraryText);
  if (ReservedTexts().m_bInUse) {
    return ShowPlainBox(nFlags, CString(sText), CString(kLibraryName));
  }
  const LentTexts texts(sText);
  return ShowPlainBox(nFlags, texts.Text(), texts.Caption());
} catch (const std::bad_alloc&) {
  return kButtonCancel;
}

void ReserveLibraryBox() noexcept try { ReservedTexts(); } catch (const std::bad_alloc&) {
  // The next call tries again.
}

void ShowMessageHelp(WindowHandle hOwner) try {
  CPathNameString sPath;
  if (!HelpFile(sPath)) return;
  const std::int64_t nLevel = GetHelpLevel();
  const auto nTopic = static_cast<std::uint32_t>(nLevel < 0 ? -nLevel : nLevel);
  CurrentDesktop().help.OpenTopic(hOwner, CString(sPath.view()), nTopic);
} catch (const std::bad_alloc&) {
  // No memory for the name: no help.
}

}  // namespace ald
