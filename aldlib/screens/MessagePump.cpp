#include "aldlib/screens/MessagePump.h"

#include <algorithm>
#include <limits>
#include <span>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/WindowTable.h"
#include "aldlib/screens/internal/EntriesInUse.h"

namespace ald {
namespace {

const Desktop& CurrentDesktop() {
  return CurrentPlatform().desktop;
}

// Whether a window or a translation on the way to one made the message its own.
bool OfferOnTheWay(const WindowMessage& message) {
  Queue& queue = CurrentDesktop().queue;
  const AcceleratorHandle hAccelerator = DataEntryManagerData.hAccelerator;
  const WindowHandle hMain = MyAlderLibDataPtr->hMainWindow;
  if (hAccelerator != AcceleratorHandle{} && hMain != WindowHandle{} &&
      queue.TranslateAccelerator(hMain, hAccelerator, message)) {
    return true;
  }
  // What an accelerator set off may have changed the table, and the record or even its being there.
  const WindowHandle hClient =
      MyAlderLibDataPtr != nullptr ? MyAlderLibDataPtr->hMDIClient : WindowHandle{};
  if (hClient != WindowHandle{} && queue.TranslateMdiAccelerator(hClient, message)) return true;
  for (std::size_t i = 0; i < EntriesInUse(true).size(); ++i) {
    const WindowHandle hDialog = DataEntryManagerData.dialogTable[i].hWindow;
    if (hDialog != WindowHandle{} && queue.IsDialogMessage(hDialog, message)) return true;
  }
  return false;
}

// The windows to send to, taken down before the first is sent to, so that a handler may add and
// remove windows.
class Recipients {
 public:
  void Add(WindowHandle hWindow) { m_windows[m_nCount++] = hWindow; }

  void Send(std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) const {
    for (const WindowHandle hWindow : std::span(m_windows, m_nCount)) {
      CurrentDesktop().queue.Send(hWindow, nMessage, nWord, nLong);
    }
  }

 private:
  WindowHandle m_windows[2 * kWindowTableSize]{};
  std::size_t m_nCount = 0;
};

}  // namespace

void Dispatch(const WindowMessage* pMessage) {
  if (pMessage == nullptr) return;
  // A copy, since a handler on the way may run the caller's loop again over the same record.
  const WindowMessage message = *pMessage;
  if (MyAlderLibDataPtr != nullptr && OfferOnTheWay(message)) return;
  CurrentDesktop().queue.Translate(message);
  CurrentDesktop().queue.Dispatch(message);
}

int MyGetMessage() {
  WindowMessage message{};
  if (!CurrentDesktop().queue.Get(message)) return 0;
  Dispatch(&message);
  return 1;
}

void SendMessageToDataEntryScreens(WindowHandle, std::uint32_t nMessage, std::uint32_t nWord,
                                   std::intptr_t nLong) {
  Recipients recipients;
  for (const bool bDialogTable : {true, false}) {
    for (const WindowTableEntry& entry : EntriesInUse(bDialogTable)) recipients.Add(entry.hWindow);
  }
  recipients.Send(nMessage, nWord, nLong);
}

void SendMessageToDataEntryScreensExceptFor(WindowHandle hExcept, std::uint32_t nMessage,
                                            std::uint32_t nWord, std::intptr_t nLong) {
  Recipients recipients;
  for (const WindowTableEntry& entry : EntriesInUse(true)) {
    if (entry.hWindow != hExcept) recipients.Add(entry.hWindow);
  }
  const std::span<WindowTableEntry> dataEntries = EntriesInUse(false);
  for (std::size_t i = 0; i < dataEntries.size(); ++i) {
    // The dialog table decides here as well, in use at that place or not.
    if (DataEntryManagerData.dialogTable[i].hWindow != hExcept) {
      recipients.Add(dataEntries[i].hWindow);
    }
  }
  recipients.Send(nMessage, nWord, nLong);
}

void BroadcastMessage(std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) {
  SendMessageToDataEntryScreens(WindowHandle{}, nMessage, nWord, nLong);
}

void BroadcastMessageWithExclusion(WindowHandle hExcept, std::uint32_t nMessage,
                                   std::uint32_t nWord, std::intptr_t nLong) {
  SendMessageToDataEntryScreensExceptFor(hExcept, nMessage, nWord, nLong);
}

void PostMessageToMainWindow(std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) {
  if (MyAlderLibDataPtr == nullptr || MyAlderLibDataPtr->hMainWindow == WindowHandle{}) return;
  CurrentDesktop().queue.Post(MyAlderLibDataPtr->hMainWindow, nMessage, nWord, nLong);
}

void WaitFor(std::uint16_t nMilliseconds) {
  CurrentPlatform().clock.Sleep(nMilliseconds);
}

void YieldFor(std::uint16_t nMilliseconds, bool bHoldCloseMessages) {
  Clock& clock = CurrentPlatform().clock;
  Queue& queue = CurrentDesktop().queue;
  const std::uint32_t nStart = clock.Ticks();
  const bool bWraps = nStart > std::numeric_limits<std::uint32_t>::max() - nMilliseconds;
  const std::uint32_t nDeadline = bWraps ? 0 : nStart + nMilliseconds;
  queue.LockTemporaryMaps();
  bool bInTime = false;
  do {
    WindowMessage message{};
    bool bWaits = queue.Peek(message, false);
    while (bWaits && !(bHoldCloseMessages && message.nMessage == kMessageClose)) {
      queue.PumpOne();
      bWaits = queue.Peek(message, false);
    }
    if (bWaits && queue.Peek(message, true)) {
      queue.Post(message.hWindow, message.nMessage, message.nWord, message.nLong);
    }
    if (queue.IsApplicationThread()) queue.Idle(0);
    if (nMilliseconds != 0) clock.Sleep(1);
    // Ticks that have started again at 0 end it as well.
    const std::uint32_t nNow = clock.Ticks();
    bInTime = nNow >= nStart && nNow < nDeadline;
  } while (bInTime);
  queue.UnlockTemporaryMaps(false);
}

int RedirectFocusToTop() {
  if (MyAlderLibDataPtr == nullptr) return 0;
  Windows& windows = CurrentDesktop().windows;
  const WindowHandle hTop = MyAlderLibDataPtr->hTopWindow;
  if (hTop == WindowHandle{} || !windows.IsWindow(hTop) || !windows.IsVisible(hTop)) return 0;
  windows.SetFocus(hTop);
  return 1;
}

void MakeUsActive() {
  Windows& windows = CurrentDesktop().windows;
  const std::uint32_t nSaved = windows.ForegroundLockTimeout();
  windows.SetForegroundLockTimeout(0);
  windows.SetForeground(windows.MainWindow());
  windows.SetForegroundLockTimeout(nSaved);
}

}  // namespace ald
