#pragma once

#include "aldlib/platform/Platform.h"

namespace ald {

// A queue that hands everything on to another one: a test overrides what it wants to see.
class QueueDecorator : public Queue {
 public:
  explicit QueueDecorator(Queue& queue) : m_queue(queue) {}

  bool Get(WindowMessage& message) override { return m_queue.Get(message); }
  bool Peek(WindowMessage& message, bool bRemove) override {
    return m_queue.Peek(message, bRemove);
  }
  bool Post(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
            std::intptr_t nLong) override {
    return m_queue.Post(hWindow, nMessage, nWord, nLong);
  }
  void PostQuit(int nExitCode) override { m_queue.PostQuit(nExitCode); }
  std::intptr_t Send(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                     std::intptr_t nLong) override {
    return m_queue.Send(hWindow, nMessage, nWord, nLong);
  }
  bool TranslateAccelerator(WindowHandle hFrame, AcceleratorHandle hAccelerator,
                            const WindowMessage& message) override {
    return m_queue.TranslateAccelerator(hFrame, hAccelerator, message);
  }
  bool TranslateMdiAccelerator(WindowHandle hClient, const WindowMessage& message) override {
    return m_queue.TranslateMdiAccelerator(hClient, message);
  }
  bool IsDialogMessage(WindowHandle hDialog, const WindowMessage& message) override {
    return m_queue.IsDialogMessage(hDialog, message);
  }
  void Translate(const WindowMessage& message) override { m_queue.Translate(message); }
  void Dispatch(const WindowMessage& message) override { m_queue.Dispatch(message); }
  bool PumpOne() override { return m_queue.PumpOne(); }
  bool Idle(int nCount) override { return m_queue.Idle(nCount); }
  bool IsApplicationThread() override { return m_queue.IsApplicationThread(); }
  void LockTemporaryMaps() override { m_queue.LockTemporaryMaps(); }
  void UnlockTemporaryMaps(bool bDelete) override { m_queue.UnlockTemporaryMaps(bDelete); }
  bool SetTimer(WindowHandle hWindow, std::uint32_t nTimer, std::uint32_t nMilliseconds) override {
    return m_queue.SetTimer(hWindow, nTimer, nMilliseconds);
  }
  bool KillTimer(WindowHandle hWindow, std::uint32_t nTimer) override {
    return m_queue.KillTimer(hWindow, nTimer);
  }
  AcceleratorHandle CreateAccelerators(std::span<const Accelerator> keys) override {
    return m_queue.CreateAccelerators(keys);
  }
  void DestroyAccelerators(AcceleratorHandle hAccelerator) override {
    m_queue.DestroyAccelerators(hAccelerator);
  }
  bool IsKeyDown(int nKey) override { return m_queue.IsKeyDown(nKey); }

 private:
  Queue& m_queue;
};

// While it lives, the platform in use has another queue; its handles stay good.
class PlatformWithQueue {
 public:
  explicit PlatformWithQueue(Queue& queue)
      : m_pBefore(&CurrentPlatform()), m_platform(With(*m_pBefore, queue)) {
    InstallPlatform(&m_platform);
  }
  PlatformWithQueue(const PlatformWithQueue&) = delete;
  PlatformWithQueue& operator=(const PlatformWithQueue&) = delete;
  ~PlatformWithQueue() { InstallPlatform(m_pBefore); }

 private:
  static Platform With(const Platform& platform, Queue& queue) {
    const Desktop& d = platform.desktop;
    return platform.WithDesktop(
        {queue, d.windows, d.controls, d.canvas, d.menus, d.presenter, d.help});
  }

  const Platform* m_pBefore;
  Platform m_platform;
};

}  // namespace ald
