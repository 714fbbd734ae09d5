#pragma once

#include <cstdint>

#include "aldlib/frame/MessageArgument.h"
#include "aldlib/platform/Export.h"

namespace ald {

// The user's answers, as the message boxes number their buttons.
constexpr int kAnswerOk = 1;
constexpr int kAnswerCancel = 2;
constexpr int kAnswerRetry = 4;

// The one way up to the user for what stands below the message engine: the memory store when memory
// has run out or was misused, and a lock that waits. An implementation must not throw.
class ALDLIB_EXPORT MessageDoor {
 public:
  virtual ~MessageDoor() = default;

  // Shows a text of the library, by number or as it is, in a box of the library's own and returns
  // the user's answer. It may be called when there is no memory left, so message 20301 has to do
  // without any.
  virtual int Show(MessageArgument message) = 0;

  // Shows a message, by number or by text, whose leading character decides about its buttons, and
  // returns the user's answer. A message without such a character offers Retry and Cancel.
  virtual int Ask(MessageArgument message) = 0;
};

// Connects the door, and returns the one that was connected before. Null stands for the plain door,
// both ways: it writes the text to standard error, without the leading characters that are not
// meant to be read and without allocating memory, and answers Cancel. It knows the library's own
// texts only. Loading the library connects the message engine, unless another door is there. The
// caller keeps the door alive while it is connected.
ALDLIB_EXPORT MessageDoor* ConnectMessageDoor(MessageDoor* pDoor);

// Returns the door in use.
ALDLIB_EXPORT MessageDoor& CurrentMessageDoor();

}  // namespace ald
