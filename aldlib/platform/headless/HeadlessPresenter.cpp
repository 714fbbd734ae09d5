#include <algorithm>
#include <utility>

#include "aldlib/platform/headless/internal/BoxLayout.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/headless/internal/TextLayout.h"
#include "aldlib/platform/internal/Undo.h"

// Boxes and dialogs: a loop that serves the queue, and asks the scripted user whenever nothing
// waits there.
namespace ald {
namespace {

// So often a loop asks the user or hears a timer before it gives up.
constexpr int kPatience = 1000;

}  // namespace

int HeadlessPresenter::PlainBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
                                std::uint32_t nFlags) {
  return ShowBox({{}, ShownBox::Kind::kPlain, hOwner, sText, sCaption, nFlags, -1, 0}, nullptr);
}

int HeadlessPresenter::FrameworkBox(const CString& sText, std::uint32_t nFlags,
                                    std::int32_t nHelpTopic) {
  DisableModeless();
  WindowHandle hDisabled{};
  const UndoAtEnd end([&] {
    Undo([&] { m_parts.windows.Enable(hDisabled, true); });
    EnableModeless();
  });
  const WindowHandle hOwner = SafeOwner(hDisabled);
  return ShowBox(
      {{}, ShownBox::Kind::kFramework, hOwner, sText, m_sApplication, nFlags, nHelpTopic, 0},
      nullptr);
}

int HeadlessPresenter::HelpBox(WindowHandle hOwner, const CString& sText, const CString& sCaption,
                               std::uint32_t nFlags, std::int32_t nHelpTopic,
                               const std::function<void(std::int32_t)>& help) {
  return ShowBox({{}, ShownBox::Kind::kHelp, hOwner, sText, sCaption, nFlags, nHelpTopic, 0}, help);
}

int HeadlessPresenter::ShowBox(ShownBox box, const std::function<void(std::int32_t)>& help) {
  const std::uint32_t nFlags = box.nFlags;
  const auto procedure = [&](WindowHandle hBox, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t) -> std::intptr_t {
    if (nMessage == kMessageInitDialog) {
      box.hBox = hBox;
      m_boxes.push_back(box);
      // The flags of the icons are in the order of the system's numbers for them.
      const std::uint32_t nIcon = 0x7F00 + ((nFlags & kBoxIconMask) >> 4);
      m_parts.windows.Call(m_parts.windows.Child(hBox, kBoxIconId), kMessageSetIcon, nIcon, 0);
      m_parts.windows.SetFocus(m_parts.windows.Child(hBox, DefaultButtonOf(nFlags)));
      if (m_parts.pView != nullptr) CenterOverOwner(hBox);
      return 0;
    }
    const bool bHelpKey = nMessage == kMessageHelp && (nFlags & kBoxHelp) != 0;
    if (nMessage != kMessageCommand && !bHelpKey) return 0;
    const int nId = bHelpKey ? kButtonHelp : static_cast<int>(nWord & 0xFFFF);
    if (nId == kButtonHelp) {
      if (help) {
        help(box.nHelpTopic);
      } else {
        m_parts.windows.Call(box.hOwner, kMessageHelp, 0, 0);
      }
    } else if (m_parts.windows.Child(hBox, nId) != WindowHandle{}) {
      EndDialog(hBox, nId);
    } else if (nId == kButtonCancel && EscapeButtonOf(nFlags) != 0) {
      EndDialog(hBox, EscapeButtonOf(nFlags));
    }
    return 1;
  };
  const std::intptr_t nResult =
      Run({.nStuckAnswer = DefaultButtonOf(nFlags), .bBox = true}, box.hOwner, {},
          BoxTemplate(box.sText, TextUnits(box.sText), box.sCaption, nFlags), procedure, 0);
  const int nAnswer = static_cast<int>(nResult);
  const auto it = std::find_if(m_boxes.begin(), m_boxes.end(),
                               [&](const ShownBox& shown) { return shown.hBox == box.hBox; });
  if (it != m_boxes.end() && m_parts.bRecord) it->nAnswer = nAnswer;
  if (it != m_boxes.end() && !m_parts.bRecord) m_boxes.erase(it);
  return nAnswer;
}

// In the middle of the owner, or of the screen for a box without one that shows.
void HeadlessPresenter::CenterOverOwner(WindowHandle hBox) {
  HeadlessWindows& windows = m_parts.windows;
  const WindowHandle hOwner = windows.Parent(hBox);
  const Size screen = m_parts.Screen();
  const Rect over =
      windows.IsVisible(hOwner) ? windows.WindowRect(hOwner) : Rect{0, 0, screen.cx, screen.cy};
  const Rect box = windows.WindowRect(hBox);
  const std::int64_t x = over.left + (std::int64_t{over.Width()} - box.Width()) / 2;
  const std::int64_t y = over.top + (std::int64_t{over.Height()} - box.Height()) / 2;
  windows.Place(hBox, WindowOrder::kKeep, std::max(0, ToMeasure(x)), std::max(0, ToMeasure(y)), 0,
                0, kPlaceNoSize | kPlaceNoOrder | kPlaceNoActivate);
}

// On a screen the text is measured as it will look, and broken at words. Some room is added for the
// rounding of units.
Size HeadlessPresenter::TextUnits(const CString& sText) {
  if (m_parts.pView == nullptr) return BoxTextUnits(sText);
  constexpr std::int32_t kMost = 4000;
  const tagLOGFONTA font = DialogFont(BoxTemplate({}, {}, {}, 0));
  const TextMetrics metrics = m_parts.pView->MetricsOf(font);
  const TextMeasure widthOf = [&](std::string_view sLine) {
    return m_parts.pView->WidthOf(font, sLine);
  };
  const std::vector<CString> lines =
      LinesOf(sText, kTextWordBreak | kTextNoPrefix, m_parts.Screen().cx / 2, widthOf);
  std::int32_t nWidest = 0;
  for (const CString& sLine : lines) nWidest = std::max(nWidest, widthOf(sLine));
  return {std::min(kMost, 4 * nWidest / metrics.nAverageWidth + 4),
          std::min(kMost, 8 * static_cast<std::int32_t>(lines.size()))};
}

std::intptr_t HeadlessPresenter::RunDialog(WindowHandle hOwner, ModuleHandle hModule,
                                           const DialogTemplate& dialog, DialogProcedure procedure,
                                           std::intptr_t nInit) {
  return Run({}, hOwner, hModule, dialog, std::move(procedure), nInit);
}

std::intptr_t HeadlessPresenter::Run(const Running& begun, WindowHandle hOwner,
                                     ModuleHandle hModule, const DialogTemplate& dialog,
                                     DialogProcedure procedure, std::intptr_t nInit) {
  HeadlessWindows& windows = m_parts.windows;
  const WindowHandle hOwnerTop = windows.TopLevelOf(hOwner);
  const bool bEnableOwner = windows.IsEnabled(hOwnerTop);
  const std::size_t nRun = m_running.size();
  m_running.push_back(begun);
  WindowHandle hDialog{};
  // A handler may throw; the dialogs behind go on, and the owner must not stay disabled.
  const UndoAtEnd end([&] {
    m_running.resize(nRun);
    if (bEnableOwner) Undo([&] { windows.Enable(hOwnerTop, true); });
    windows.Destroy(hDialog);
  });
  windows.Enable(hOwnerTop, false);

  // The handler of the first message may already end the dialog, so it must know of the run.
  const auto known = [this, nRun, handler = std::move(procedure)](
                         WindowHandle hMade, std::uint32_t nMessage, std::uint32_t nWord,
                         std::intptr_t nLong) -> std::intptr_t {
    if (nRun < m_running.size() && nMessage == kMessageInitDialog) m_running[nRun].hDialog = hMade;
    if (handler) return handler(hMade, nMessage, nWord, nLong);
    return nMessage == kMessageInitDialog ? 1 : 0;
  };
  hDialog = windows.MakeDialog(hOwnerTop, hModule, dialog, known, nInit, true);
  const bool bMade = hDialog != WindowHandle{};
  if (bMade) Serve(nRun);
  const Running& run = m_running[nRun];
  return bMade || run.bEnded ? run.nResult : -1;
}

// Everything that waits is served, but of timers only one between two looks of the user: one that
// is always due holds nobody up.
void HeadlessPresenter::Serve(std::size_t nRun) {
  const WindowHandle hDialog = m_running[nRun].hDialog;
  int nPatience = kPatience;
  bool bRang = false;
  while (!m_running[nRun].bEnded && m_parts.windows.IsWindow(hDialog)) {
    WindowMessage message{};
    bool bTaken = m_parts.queue.Peek(message, false);
    // On a screen the user has had his say already: the queue asks the view first.
    const bool bTimer = bTaken && message.nMessage == kMessageTimer && m_parts.pView == nullptr;
    if (!bTaken || (bTimer && bRang)) {
      bRang = false;
      if (nPatience-- > 0 && AskUser(hDialog)) continue;
      if (m_parts.pView != nullptr && m_parts.queue.WaitForUser()) continue;
      // A box needs an answer; a dialog may be waiting for a timer of its own.
      bTaken = !m_running[nRun].bBox && nPatience > 0 && m_parts.queue.WaitForTimer(message);
    } else {
      m_parts.queue.Peek(message, true);
    }
    if (!bTaken || message.nMessage == kMessageQuit) {
      if (bTaken) m_parts.queue.PostQuit(static_cast<int>(message.nWord));
      GiveUp(nRun);
      continue;
    }
    bRang = message.nMessage == kMessageTimer;
    if (m_parts.windows.IsDialogMessage(hDialog, message)) continue;
    m_parts.queue.Translate(message);
    m_parts.queue.Dispatch(message);
  }
}

// Nothing can happen any more. The handler still has its say.
void HeadlessPresenter::GiveUp(std::size_t nRun) {
  const WindowHandle hDialog = m_running[nRun].hDialog;
  const int nAnswer = m_running[nRun].nStuckAnswer;
  m_parts.windows.Call(hDialog, kMessageCommand, static_cast<std::uint32_t>(nAnswer),
                       LongOf(m_parts.windows.Child(hDialog, nAnswer)));
  EndDialog(hDialog, nAnswer);
}

// True if the user did something: looked around or pressed a button.
bool HeadlessPresenter::AskUser(WindowHandle hDialog) {
  if (m_user) {
    const auto user = m_user;  // it may put another in its place
    if (user(hDialog)) return true;
  }
  if (m_answers.empty()) return false;
  const int nAnswer = m_answers.front();
  m_answers.pop_front();
  m_parts.windows.Click(m_parts.windows.Child(hDialog, nAnswer));
  return true;
}

bool HeadlessPresenter::EndDialog(WindowHandle hDialog, std::intptr_t nResult) {
  if (hDialog == WindowHandle{}) return false;
  const auto it = std::find_if(m_running.rbegin(), m_running.rend(),
                               [hDialog](const Running& run) { return run.hDialog == hDialog; });
  if (it == m_running.rend()) return false;
  if (it->bEnded) return true;
  it->bEnded = true;
  it->nResult = nResult;
  return true;
}

WindowHandle HeadlessPresenter::Modal() const {
  return m_running.empty() ? WindowHandle{} : m_running.back().hDialog;
}

bool HeadlessPresenter::IsModal(WindowHandle hWindow) const {
  return std::any_of(m_running.begin(), m_running.end(),
                     [hWindow](const Running& run) { return run.hDialog == hWindow; });
}

// The window that stands for the application: its main one, or the active one of a host that has
// named none.
WindowHandle HeadlessPresenter::Frame() {
  const WindowHandle hMain = m_parts.windows.MainWindow();
  return hMain != WindowHandle{} ? hMain : m_parts.windows.Active();
}

// Modeless windows are the enabled top-level ones beside that one and the modal dialogs.
void HeadlessPresenter::DisableModeless() {
  if (m_nModelessDisabled++ > 0) return;
  bool bDone = false;
  const UndoAtEnd end([&] {
    if (!bDone) EnableModeless();
  });
  const WindowHandle hFrame = Frame();
  for (const WindowHandle hWindow : m_parts.windows.TopLevel()) {
    if (hWindow == hFrame || IsModal(hWindow) || !m_parts.windows.IsEnabled(hWindow)) continue;
    m_disabledModeless.push_back(hWindow);
    m_parts.windows.Enable(hWindow, false);
  }
  bDone = true;
}

void HeadlessPresenter::EnableModeless() {
  if (m_nModelessDisabled == 0 || --m_nModelessDisabled > 0) return;
  for (const WindowHandle hWindow : std::exchange(m_disabledModeless, {})) {
    Undo([&] { m_parts.windows.Enable(hWindow, true); });
  }
}

// The modal dialog in front, or else the frame. A main window behind the chosen owner is disabled,
// since only the owner would be.
WindowHandle HeadlessPresenter::SafeOwner(WindowHandle& hDisabled) {
  hDisabled = {};
  const WindowHandle hOwner = m_parts.windows.IsWindow(Modal()) ? Modal() : Frame();
  const WindowHandle hMain = m_parts.windows.MainWindow();
  if (hOwner != hMain && m_parts.windows.IsEnabled(hMain)) {
    hDisabled = hMain;
    m_parts.windows.Enable(hMain, false);
  }
  return hOwner;
}

}  // namespace ald
