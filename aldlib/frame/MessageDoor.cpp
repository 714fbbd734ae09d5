#include "aldlib/frame/MessageDoor.h"

#include <cstdio>
#include <cstring>
#include <utility>

#include "aldlib/frame/LibraryStrings.h"
#include "aldlib/platform/internal/NeverDestroyed.h"

namespace ald {
namespace {

// These choose icon, buttons and help of a box; they are not part of what the user reads.
constexpr const char* kLeadingSigns = "@!%*?^~#|";

// Longer texts are cut: a text of the library is a few lines at most.
constexpr std::size_t kLineSize = 1024;

void WriteLine(const char* szText) {
  char szLine[kLineSize];
  std::snprintf(szLine, sizeof szLine, "%s\n", szText + std::strspn(szText, kLeadingSigns));
  // Unbuffered, and the one thing that can be done when nobody reads it is nothing.
  static_cast<void>(std::fputs(szLine, stderr));
}

class PlainMessageDoor : public MessageDoor {
 public:
  int Show(MessageArgument message) override {
    const std::uint16_t nMessage = MessageNumber(message);
    if (IsMessageText(message)) {
      WriteLine(MessageText(message));
    } else if (const char* const szText = FindLibraryString(nMessage)) {
      WriteLine(szText);
    } else {
      char szUnknown[40];
      std::snprintf(szUnknown, sizeof szUnknown, "<unknown message %u>", unsigned{nMessage});
      WriteLine(szUnknown);
    }
    return kAnswerCancel;
  }

  int Ask(MessageArgument message) override { return Show(message); }
};

constinit MessageDoor* g_pDoor = nullptr;

}  // namespace

MessageDoor* ConnectMessageDoor(MessageDoor* pDoor) {
  return std::exchange(g_pDoor, pDoor);
}

MessageDoor& CurrentMessageDoor() {
  static const NeverDestroyed<PlainMessageDoor> s_plain;
  return g_pDoor != nullptr ? *g_pDoor : *s_plain;
}

}  // namespace ald
