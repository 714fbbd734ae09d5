#pragma once

#include <bitset>
#include <deque>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "aldlib/platform/Queue.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/headless/internal/HandleTable.h"

namespace ald {

struct HeadlessParts;

// The keys that are held at a moment, by virtual key number.
using HeldKeys = std::bitset<256>;

inline HeldKeys KeysOf(const HeadlessDesktop::HeldWith& with) {
  HeldKeys held;
  held[kKeyControl] = with.bControl;
  held[kKeyShift] = with.bShift;
  held[kKeyAlt] = with.bAlt;
  return held;
}

class HeadlessQueue : public Queue {
 public:
  explicit HeadlessQueue(HeadlessParts& parts) : m_parts(parts) {}

  bool Get(WindowMessage& message) override;
  bool Peek(WindowMessage& message, bool bRemove) override;
  bool Post(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
            std::intptr_t nLong) override;
  void PostQuit(int nExitCode) override;
  std::intptr_t Send(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                     std::intptr_t nLong) override;
  bool TranslateAccelerator(WindowHandle hFrame, AcceleratorHandle hAccelerator,
                            const WindowMessage& message) override;
  bool TranslateMdiAccelerator(WindowHandle hClient, const WindowMessage& message) override;
  bool IsDialogMessage(WindowHandle hDialog, const WindowMessage& message) override;
  void Translate(const WindowMessage& message) override;
  void Dispatch(const WindowMessage& message) override;
  bool PumpOne() override;
  bool Idle(int nCount) override;
  bool IsApplicationThread() override;
  void LockTemporaryMaps() override { ++m_nMapLocks; }
  void UnlockTemporaryMaps(bool bDelete) override;
  bool SetTimer(WindowHandle hWindow, std::uint32_t nTimer, std::uint32_t nMilliseconds) override;
  bool KillTimer(WindowHandle hWindow, std::uint32_t nTimer) override;
  AcceleratorHandle CreateAccelerators(std::span<const Accelerator> keys) override;
  void DestroyAccelerators(AcceleratorHandle hAccelerator) override;
  bool IsKeyDown(int nKey) override;

  // Drops what waits for a window that goes.
  void Forget(WindowHandle hWindow);
  void PostKey(WindowHandle hWindow, std::uint32_t nKey, const HeldKeys& held);
  // A key press on the screen, for the window that has the focus when it is taken.
  void PostViewKey(std::uint32_t nKey, const HeldKeys& held, std::intptr_t nKeyPress);
  void Hold(int nKey, bool bDown);
  // Sleeps until the next timer is due and takes its message. False if there is no timer.
  bool WaitForTimer(WindowMessage& message);
  // With a view: waits for the user, and for the next timer if there is one. False if nothing can
  // come any more.
  bool WaitForUser();
  std::size_t Timers() const { return m_timers.size(); }
  std::size_t AcceleratorTables() const { return m_accelerators.Count(); }
  int MapLocks() const { return m_nMapLocks; }

  std::function<bool(int)> m_idle;

 private:
  struct Waiting {
    WindowMessage message;
    HeldKeys held;
    bool bForFocus = false;  // its window is found when it is taken
  };
  struct Timer {
    WindowHandle hWindow;
    std::uint32_t nTimer;
    std::uint32_t nPeriod;
    std::uint32_t nDue;  // ticks
  };

  void AimAtFocus();
  Timer* NextTimer();
  WindowMessage Ring(Timer& timer);

  HeadlessParts& m_parts;
  std::thread::id m_thread = std::this_thread::get_id();
  std::deque<Waiting> m_waiting;
  std::optional<int> m_quit;
  std::vector<Timer> m_timers;
  HandleTable<AcceleratorHandle, std::vector<Accelerator>> m_accelerators;
  HeldKeys m_held;        // as the user holds them
  HeldKeys m_heldAtLast;  // as they were when the last message was taken
  int m_nMapLocks = 0;
};

}  // namespace ald
