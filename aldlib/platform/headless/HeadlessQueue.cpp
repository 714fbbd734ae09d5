#include <algorithm>

#include "aldlib/platform/headless/internal/HeadlessParts.h"

namespace ald {
namespace {

constexpr std::uint32_t kKeyF4 = 0x73;
constexpr std::uint32_t kKeyF6 = 0x75;
constexpr std::uint32_t kShortestPeriod = 10;

// How long until the moment, in ticks, which start again at 0; not above 0 if it has come.
std::int32_t TicksUntil(std::uint32_t nMoment, std::uint32_t nNow) {
  return static_cast<std::int32_t>(nMoment - nNow);
}

}  // namespace

// What was posted comes first, then quit, then painting, then timers.
bool HeadlessQueue::Peek(WindowMessage& message, bool bRemove) {
  message = {};
  if (!IsApplicationThread()) return false;  // another thread's queue is empty
  if (m_waiting.empty() && m_parts.pView != nullptr) m_parts.pView->Serve();
  AimAtFocus();
  if (!m_waiting.empty()) {
    message = m_waiting.front().message;
    if (bRemove) {
      m_heldAtLast = m_waiting.front().held;
      m_waiting.pop_front();
    }
    return true;
  }
  if (m_quit) {
    message = {{}, kMessageQuit, static_cast<std::uint32_t>(*m_quit), 0};
    if (bRemove) m_quit.reset();
    return true;
  }
  if (const WindowHandle hWindow = m_parts.windows.NextToPaint(); hWindow != WindowHandle{}) {
    message = {hWindow, kMessagePaint, 0, 0};
    // Once for each reason, even if the window never paints: it cannot hold up the queue.
    if (bRemove) m_parts.windows.Find(hWindow)->bToPaint = false;
    return true;
  }
  Timer* const pTimer = NextTimer();
  if (pTimer == nullptr || TicksUntil(pTimer->nDue, m_parts.clock.Ticks()) > 0) return false;
  message = {pTimer->hWindow, kMessageTimer, pTimer->nTimer, 0};
  if (bRemove) Ring(*pTimer);
  return true;
}

// A key of the screen's user goes to the window that has the focus now, or else to the one in
// front.
void HeadlessQueue::AimAtFocus() {
  while (!m_waiting.empty() && m_waiting.front().bForFocus) {
    WindowHandle& hTarget = m_waiting.front().message.hWindow;
    hTarget = m_parts.windows.Focus();
    if (hTarget == WindowHandle{}) hTarget = m_parts.windows.Active();
    if (hTarget != WindowHandle{}) return;
    m_waiting.pop_front();
  }
}

bool HeadlessQueue::Get(WindowMessage& message) {
  const bool bUser = m_parts.pView != nullptr && IsApplicationThread();
  while (bUser) {
    if (Peek(message, true)) return message.nMessage != kMessageQuit;
    if (!WaitForUser()) break;
  }
  if (Peek(message, true) || (IsApplicationThread() && WaitForTimer(message))) {
    return message.nMessage != kMessageQuit;
  }
  message = {{}, kMessageQuit, 0, 0};
  return false;
}

bool HeadlessQueue::WaitForTimer(WindowMessage& message) {
  Timer* const pTimer = NextTimer();
  if (pTimer == nullptr) return false;
  const std::int32_t nWait = TicksUntil(pTimer->nDue, m_parts.clock.Ticks());
  if (nWait > 0) m_parts.clock.Sleep(static_cast<std::uint32_t>(nWait));
  // Rung without a second look at the clock, so that one which stands still holds nobody up.
  message = Ring(*pTimer);
  return true;
}

bool HeadlessQueue::WaitForUser() {
  const Timer* const pTimer = NextTimer();
  if (pTimer == nullptr) return m_parts.pView->Wait(DesktopView::kForever);
  const std::int32_t nWait = TicksUntil(pTimer->nDue, m_parts.clock.Ticks());
  return m_parts.pView->Wait(static_cast<std::uint32_t>(std::max(nWait, 0)));
}

HeadlessQueue::Timer* HeadlessQueue::NextTimer() {
  const std::uint32_t nNow = m_parts.clock.Ticks();
  const auto it = std::min_element(
      m_timers.begin(), m_timers.end(), [nNow](const Timer& one, const Timer& other) {
        return TicksUntil(one.nDue, nNow) < TicksUntil(other.nDue, nNow);
      });
  return it != m_timers.end() ? &*it : nullptr;
}

// Periods that have passed unseen are not made up for.
WindowMessage HeadlessQueue::Ring(Timer& timer) {
  timer.nDue = m_parts.clock.Ticks() + timer.nPeriod;
  m_heldAtLast = m_held;
  return {timer.hWindow, kMessageTimer, timer.nTimer, 0};
}

bool HeadlessQueue::Post(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                         std::intptr_t nLong) {
  if (!m_parts.windows.IsWindow(hWindow)) return false;
  m_waiting.push_back({{hWindow, nMessage, nWord, nLong}, m_held});
  return true;
}

void HeadlessQueue::PostQuit(int nExitCode) {
  m_quit = nExitCode;
}

void HeadlessQueue::PostKey(WindowHandle hWindow, std::uint32_t nKey, const HeldKeys& held) {
  m_waiting.push_back({{hWindow, kMessageKeyDown, nKey, 0}, m_held | held});
}

void HeadlessQueue::PostViewKey(std::uint32_t nKey, const HeldKeys& held, std::intptr_t nKeyPress) {
  m_waiting.push_back({{{}, kMessageKeyDown, nKey, nKeyPress}, m_held | held, true});
}

std::intptr_t HeadlessQueue::Send(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                                  std::intptr_t nLong) {
  return m_parts.windows.Call(hWindow, nMessage, nWord, nLong);
}

void HeadlessQueue::Forget(WindowHandle hWindow) {
  std::erase_if(m_waiting,
                [hWindow](const Waiting& waiting) { return waiting.message.hWindow == hWindow; });
  std::erase_if(m_timers, [hWindow](const Timer& timer) { return timer.hWindow == hWindow; });
}

bool HeadlessQueue::TranslateAccelerator(WindowHandle hFrame, AcceleratorHandle hAccelerator,
                                         const WindowMessage& message) {
  const std::vector<Accelerator>* const pKeys = m_accelerators.Find(hAccelerator);
  if (pKeys == nullptr || message.nMessage != kMessageKeyDown ||
      !m_parts.windows.IsWindow(hFrame)) {
    return false;
  }
  for (const Accelerator& key : *pKeys) {
    if (key.nKey != message.nWord || key.bControl != IsKeyDown(kKeyControl) ||
        key.bShift != IsKeyDown(kKeyShift) || key.bAlt != IsKeyDown(kKeyAlt)) {
      continue;
    }
    // The key is the command's also while the command cannot be given.
    const std::uint32_t nState =
        m_parts.menus.State(m_parts.menus.Of(hFrame), key.nCommand, kMenuByCommand);
    const bool bGrayed = nState != kMenuNoItem && (nState & (kMenuGrayed | kMenuDisabled)) != 0;
    if (!bGrayed && m_parts.windows.IsEnabled(hFrame)) {
      Send(hFrame, kMessageCommand, kNoticeAccelerator << 16 | key.nCommand, 0);
    }
    return true;
  }
  return false;
}

// Control and F4 closes the document in front, control and F6 brings the one behind it.
bool HeadlessQueue::TranslateMdiAccelerator(WindowHandle hClient, const WindowMessage& message) {
  if (message.nMessage != kMessageKeyDown || !IsKeyDown(kKeyControl) || IsKeyDown(kKeyAlt)) {
    return false;
  }
  const WindowHandle hDocument = m_parts.windows.ActiveDocument(hClient);
  if (hDocument == WindowHandle{}) return false;
  if (message.nWord == kKeyF4) {
    Send(hDocument, kMessageClose, 0, 0);
    return true;
  }
  if (message.nWord != kKeyF6) return false;
  std::vector<WindowHandle> documents = m_parts.windows.Children(hClient);
  const auto itFront = std::find(documents.begin(), documents.end(), hDocument);
  std::rotate(documents.begin(), itFront + 1, documents.end());
  for (const WindowHandle hNext : documents) {
    if (!m_parts.windows.IsVisible(hNext)) continue;
    m_parts.windows.SetFocus(hNext);
    break;
  }
  return true;
}

bool HeadlessQueue::IsDialogMessage(WindowHandle hDialog, const WindowMessage& message) {
  return m_parts.windows.IsDialogMessage(hDialog, message);
}

void HeadlessQueue::Translate(const WindowMessage& message) {
  if (message.nMessage != kMessageKeyDown || IsKeyDown(kKeyAlt)) return;
  if (!m_parts.windows.IsWindow(message.hWindow)) return;
  if (m_parts.pView != nullptr && message.nLong != 0) {
    const CString sTyped = m_parts.pView->TypedBy(message.nLong);
    for (auto it = sTyped.rbegin(); it != sTyped.rend(); ++it) {
      const WindowMessage character{message.hWindow, kMessageChar, static_cast<unsigned char>(*it),
                                    0};
      m_waiting.push_front({character, m_heldAtLast});
    }
    return;
  }
  const std::uint32_t nKey = message.nWord;
  std::uint32_t nCharacter = 0;
  if (nKey >= 'A' && nKey <= 'Z') {
    nCharacter = IsKeyDown(kKeyControl) ? nKey - 'A' + 1 : IsKeyDown(kKeyShift) ? nKey : nKey + 32;
  } else if ((nKey >= '0' && nKey <= '9') || nKey == ' ' || nKey == 8 || nKey == 9 || nKey == 13 ||
             nKey == 27) {
    nCharacter = nKey;
  } else {
    return;
  }
  m_waiting.push_front({{message.hWindow, kMessageChar, nCharacter, 0}, m_heldAtLast});
}

void HeadlessQueue::Dispatch(const WindowMessage& message) {
  if (IsUserAct(message.nMessage)) return m_parts.windows.UserDid(message);
  m_parts.windows.Call(message.hWindow, message.nMessage, message.nWord, message.nLong);
}

bool HeadlessQueue::PumpOne() {
  WindowMessage message{};
  if (!Get(message)) return false;
  if (TranslateAccelerator(m_parts.windows.MainWindow(), m_parts.windows.FrameAccelerator(),
                           message)) {
    return true;
  }
  Translate(message);
  Dispatch(message);
  return true;
}

bool HeadlessQueue::Idle(int nCount) {
  return m_idle && m_idle(nCount);
}

bool HeadlessQueue::IsApplicationThread() {
  return std::this_thread::get_id() == m_thread;
}

void HeadlessQueue::UnlockTemporaryMaps(bool) {
  if (m_nMapLocks > 0) --m_nMapLocks;
}

bool HeadlessQueue::SetTimer(WindowHandle hWindow, std::uint32_t nTimer,
                             std::uint32_t nMilliseconds) {
  if (!m_parts.windows.IsWindow(hWindow)) return false;
  KillTimer(hWindow, nTimer);
  const std::uint32_t nPeriod =
      std::clamp(nMilliseconds, kShortestPeriod, std::uint32_t{INT32_MAX});
  m_timers.push_back({hWindow, nTimer, nPeriod, m_parts.clock.Ticks() + nPeriod});
  return true;
}

bool HeadlessQueue::KillTimer(WindowHandle hWindow, std::uint32_t nTimer) {
  return std::erase_if(m_timers, [&](const Timer& timer) {
           return timer.hWindow == hWindow && timer.nTimer == nTimer;
         }) > 0;
}

AcceleratorHandle HeadlessQueue::CreateAccelerators(std::span<const Accelerator> keys) {
  return m_accelerators.Add(std::vector<Accelerator>(keys.begin(), keys.end()));
}

void HeadlessQueue::DestroyAccelerators(AcceleratorHandle hAccelerator) {
  m_accelerators.Remove(hAccelerator);
}

bool HeadlessQueue::IsKeyDown(int nKey) {
  return nKey >= 0 && nKey < 256 && m_heldAtLast[static_cast<std::size_t>(nKey)];
}

void HeadlessQueue::Hold(int nKey, bool bDown) {
  if (nKey < 0 || nKey > 255) return;
  m_held[static_cast<std::size_t>(nKey)] = bDown;
  m_heldAtLast = m_held;
}

}  // namespace ald
