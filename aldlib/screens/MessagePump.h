#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// The road of a message to its window, messages to all open screens, and waiting with the screens
// alive. All of it runs on the user-interface thread.

// Hands a message on. The first that makes it its own ends its way: the current accelerator for the
// main window, the system keys of the multiple-document client, then each window of the dialog
// table in order. What is left goes to its window. Without a library record it goes there at once.
ALDLIB_EXPORT void Dispatch(const WindowMessage* pMessage);

// Waits for the next message and hands it on. Returns 0 when the quit message came, else 1.
ALDLIB_EXPORT int MyGetMessage();

// Sends a message to every window of the dialog table and then of the data entry table, despite the
// name. Windows that the handlers add meanwhile are not served; those that they remove still are.
// The first argument is not read.
ALDLIB_EXPORT void SendMessageToDataEntryScreens(WindowHandle hUnused, std::uint32_t nMessage,
                                                 std::uint32_t nWord, std::intptr_t nLong);

// The same without one window, in the way that callers have come to rely on: an entry of the data
// entry table is left out when the entry of the dialog table at the same place is that window. So a
// window of the data entry table is still sent to, and a neighbour may be left out.
ALDLIB_EXPORT void SendMessageToDataEntryScreensExceptFor(WindowHandle hExcept,
                                                          std::uint32_t nMessage,
                                                          std::uint32_t nWord, std::intptr_t nLong);
ALDLIB_EXPORT void BroadcastMessage(std::uint32_t nMessage, std::uint32_t nWord,
                                    std::intptr_t nLong);
ALDLIB_EXPORT void BroadcastMessageWithExclusion(WindowHandle hExcept, std::uint32_t nMessage,
                                                 std::uint32_t nWord, std::intptr_t nLong);

// Posts to the main window; nothing happens while there is none.
ALDLIB_EXPORT void PostMessageToMainWindow(std::uint32_t nMessage, std::uint32_t nWord,
                                           std::intptr_t nLong);

// Sleeps, with no message handled.
ALDLIB_EXPORT void WaitFor(std::uint16_t nMilliseconds);

// Handles messages and runs the application's idle step until the time has passed: one pass for 0.
// The time is not looked at while messages wait. With bHoldCloseMessages a close message is put
// back to the end of the queue, neither handled nor lost.
ALDLIB_EXPORT void YieldFor(std::uint16_t nMilliseconds, bool bHoldCloseMessages);

// Gives the focus to the modeless window that takes it back. Returns 1 if there is one to be seen.
ALDLIB_EXPORT int RedirectFocusToTop();

// Brings the application's main window to the front, whatever other program holds it.
ALDLIB_EXPORT void MakeUsActive();

}  // namespace ald
