#include "aldlib/messages/internal/MessageEngine.h"

#include "aldlib/frame/LibraryStrings.h"
#include "aldlib/frame/MessageDoor.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/messages/internal/FetchMessage.h"
#include "aldlib/messages/internal/ShowMessage.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

class EngineDoor : public MessageDoor {
 public:
  // As Lib_Message, but the text lies on the stack: there may be no memory left.
  int Show(MessageArgument message) override {
    CFixedString<kLibraryBufferSize> sText;
    std::uint32_t nFlags = 0;
    // A memory failure can come before the modules' texts can be searched.
    const char* const szOwn =
        IsMessageText(message) ? nullptr : FindLibraryString(MessageNumber(message));
    if (szOwn != nullptr && MyLoadString(MessageNumber(message), sText) == 0) {
      sText = szOwn;
      TakeSigns(&nFlags, message, sText);
    } else {
      GetTheMessage(&nFlags, message, sText);
    }
    SaveTheMessage(message, sText);
    return ShowLibraryBox(nFlags, sText.view());
  }

  int Ask(MessageArgument message) override { return Message(0, message); }
};

EngineDoor& TheDoor() {
  static const NeverDestroyed<EngineDoor> s_door;
  return *s_door;
}

}  // namespace

void OpenMessageDoor() noexcept {
  ReserveLibraryBox();
  MessageDoor* const pBefore = ConnectMessageDoor(&TheDoor());
  if (pBefore != nullptr) ConnectMessageDoor(pBefore);
}

void CloseMessageDoor() noexcept {
  MessageDoor* const pBefore = ConnectMessageDoor(nullptr);
  if (pBefore != &TheDoor()) ConnectMessageDoor(pBefore);
}

}  // namespace ald
