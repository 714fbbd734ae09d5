#pragma once

#include <cstdint>
#include <span>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// One key of an accelerator table: the key, with the held keys that it wants, becomes the command.
struct Accelerator {
  std::uint16_t nKey;      // a virtual key number
  std::uint16_t nCommand;  // what the frame window is sent
  bool bControl = false;
  bool bShift = false;
  bool bAlt = false;
};

// Keys that are held together with others, as virtual key numbers.
constexpr int kKeyShift = 0x10;
constexpr int kKeyControl = 0x11;
constexpr int kKeyAlt = 0x12;

// The message queue of the user-interface thread, and what looks at a message before its window
// does. Handles that name no window are harmless: nothing is sent, and the answer is 0 or false.
class ALDLIB_EXPORT Queue {
 public:
  virtual ~Queue() = default;

  // Waits for the next message and takes it. False when that is the quit message. A desktop without
  // a user, on which nothing can come any more (no message, no timer), answers as if it had come.
  virtual bool Get(WindowMessage& message) = 0;

  // Looks at the next message without waiting, and takes it if `bRemove` says so. False if none
  // waits. A quit message shows as kMessageQuit.
  virtual bool Peek(WindowMessage& message, bool bRemove) = 0;

  // Puts a message at the end of the queue. False if the window is none.
  virtual bool Post(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                    std::intptr_t nLong) = 0;
  virtual void PostQuit(int nExitCode) = 0;

  // Calls the window's procedure at once, ahead of all that waits, and returns its answer.
  virtual std::intptr_t Send(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t nLong) = 0;

  // The three offers. Each returns true if it made the message its own, which ends its way.
  virtual bool TranslateAccelerator(WindowHandle hFrame, AcceleratorHandle hAccelerator,
                                    const WindowMessage& message) = 0;
  virtual bool TranslateMdiAccelerator(WindowHandle hClient, const WindowMessage& message) = 0;
  virtual bool IsDialogMessage(WindowHandle hDialog, const WindowMessage& message) = 0;

  // Turns the key messages into characters, which are put ahead of the queue.
  virtual void Translate(const WindowMessage& message) = 0;

  // Hands the message to its window.
  virtual void Dispatch(const WindowMessage& message) = 0;

  // Takes one message by the framework's own road, with all that it does to a message. False when
  // that was the quit message.
  virtual bool PumpOne() = 0;

  // The framework's idle step. True if it wants another one, with the next count.
  virtual bool Idle(int nCount) = 0;

  // Whether the caller runs on the thread that the application's windows belong to.
  virtual bool IsApplicationThread() = 0;

  // Between the two the framework keeps the objects that it made for windows on the way. They nest.
  virtual void LockTemporaryMaps() = 0;
  virtual void UnlockTemporaryMaps(bool bDelete) = 0;

  // Has kMessageTimer posted to the window each time that the period has passed, until it is
  // killed. The same number again sets the period anew. False if the window is none.
  virtual bool SetTimer(WindowHandle hWindow, std::uint32_t nTimer,
                        std::uint32_t nMilliseconds) = 0;
  virtual bool KillTimer(WindowHandle hWindow, std::uint32_t nTimer) = 0;

  virtual AcceleratorHandle CreateAccelerators(std::span<const Accelerator> keys) = 0;
  virtual void DestroyAccelerators(AcceleratorHandle hAccelerator) = 0;

  // Whether the key was held when the last message was taken.
  virtual bool IsKeyDown(int nKey) = 0;
};

}  // namespace ald
