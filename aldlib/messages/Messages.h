#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/frame/MessageArgument.h"
#include "aldlib/messages/MessageFormat.h"
#include "aldlib/messages/MessageLog.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Presenter.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/text/FixedString.h"

// Messages to the user. Each is a numbered text, or a text of the caller's, that chooses its own
// icon and buttons by its first signs (Catalogue.h); it is written into the log (MessageLog.h) and
// shown in a box.
//
//   Message(0, MessageByNumber(20303));                         // "?Have you backed up ..."
//   if (MessageWithCard(0, MessageByText("!!Delete ### records?"), 12) == kButtonYes) { ... }
//   MessageWithArgs(0, MessageByText("*%d of %s."), 3, sTotal);
//
// All that show a box return the button pressed (kButtonOk ... of Presenter.h), or 0 if there was
// no memory for the text: then there was no box. `nFlags` are those of a box; a text with first
// signs overrides them altogether, and one without them gets 0x35 (exclamation, Retry and Cancel)
// if they are 0. A text is cut at the operation's buffer. The help topic, and the number in the
// log, is the message's number; for a message given as a text the topic is the low 16 bits of its
// address, and the log has no number.
//
// While the application is not the active one, the box waits and the main window flashes, unless
// the box is system-modal (0x1000). Boxes dispatch messages, so they can nest: `bInMessage` and the
// help level are as before once a box is gone, and the focus is back where it was.
namespace ald {

// Fetches a message text without its first signs, and the flags of its box. *pFlags holds the
// caller's flags before; null is allowed. Without such a text, and for an empty one, the output is
// "<unknown message ###>" with the low 16 bits as the number, and the flags are 0x35.
ALDLIB_EXPORT void GetTheMessage(std::uint32_t* pFlags, MessageArgument message,
                                 CFixedStringParamRef output);
// The same, but the low 16 bits are a number whatever stands above them.
ALDLIB_EXPORT void GetTheMessageEx(std::uint32_t* pFlags, MessageArgument number,
                                   CFixedStringParamRef output);

// Shows a message of up to 1,023 characters; `bRaw` fetches it by GetTheMessageEx. The parent owns
// the box if the text has a help topic ("|"); in all other cases the framework finds an owner.
ALDLIB_EXPORT std::uint16_t Message(std::uint32_t nFlags, MessageArgument message,
                                    bool bRaw = false, WindowHandle hParent = {});

// Shows the texts of the numbers from the first up to, not including, the end, one behind the other
// and 1,023 characters at most. The first one chooses the box.
ALDLIB_EXPORT std::uint16_t VeryLongMessage(std::uint32_t nFlags, MessageArgument first,
                                            MessageArgument end);

// Show a message with the number in the place of its first "###", or the text in that of its first
// "$$$".
ALDLIB_EXPORT std::uint16_t MessageWithCard(std::uint32_t nFlags, MessageArgument message,
                                            std::uint16_t nValue);
ALDLIB_EXPORT std::uint16_t MessageWithString(std::uint32_t nFlags, MessageArgument message,
                                              const char* szValue);

// Show a text as it is, signs and all, in the box that the flags choose. The log has no number.
ALDLIB_EXPORT std::uint16_t MessageStr(std::uint32_t nFlags, const char* szText,
                                       std::int32_t nHelpTopic);
ALDLIB_EXPORT std::uint16_t MessageStrWithCard(std::uint32_t nFlags, const char* szText,
                                               std::uint16_t nValue);
ALDLIB_EXPORT std::uint16_t MessageStrWithString(std::uint32_t nFlags, const char* szText,
                                                 const char* szValue);

#pragma pack(push, 1)

// One substitution of MessageWithPara.
struct MsgPara {
  std::int32_t nKind;    // kMsgParaCard ..., anything else is passed over
  std::intptr_t nValue;  // a number, or an address that stays the caller's
};

#pragma pack(pop)

static_assert(offsetof(MsgPara, nKind) == 0 && offsetof(MsgPara, nValue) == 4);
static_assert(sizeof(MsgPara) == 4 + sizeof(void*));

constexpr std::int32_t kMsgParaCard = 0;    // the low 16 bits, for the next "###"
constexpr std::int32_t kMsgParaAmount = 1;  // a CDecimal, for the next "%$%"
constexpr std::int32_t kMsgParaText = 2;    // a text, for the next "%$%"

inline MsgPara ParaCard(std::uint16_t nValue) {
  return {kMsgParaCard, nValue};
}
inline MsgPara ParaAmount(const CDecimal* pValue) {
  return {kMsgParaAmount, reinterpret_cast<std::intptr_t>(pValue)};
}
inline MsgPara ParaText(const char* szText) {
  return {kMsgParaText, reinterpret_cast<std::intptr_t>(szText)};
}

// Shows a message of up to 2,047 characters after the substitutions, in their order. Signs mean
// nothing here: the flags are the caller's, and a "*" at the start would be shown. A number without
// a text shows an empty box.
ALDLIB_EXPORT std::uint16_t MessageWithPara(std::uint32_t nFlags, MessageArgument message,
                                            std::int16_t nCount, const MsgPara* aParas);

// Shows the message of a print command. For a preview its first "Print" and its first "print"
// become "Preview" and "preview". A "%d" in it is replaced by "&d" and not by the number: the texts
// of hosts are written for what that shows.
ALDLIB_EXPORT std::uint16_t PrintOrPreviewMessage(MessageArgument message, bool bPreview,
                                                  std::uint32_t nValue);

// The boxes of the library itself, for where there may be no application window: the system's plain
// box, captioned "Alderfell Library", and 2 (Cancel) if the desktop cannot make the window that
// owns it. They know no help, so a "|" is shown.
ALDLIB_EXPORT std::uint16_t Lib_Message(std::uint32_t nFlags, MessageArgument message);
ALDLIB_EXPORT std::uint16_t Lib_MessageWithCard(std::uint32_t nFlags, MessageArgument message,
                                                std::uint16_t nValue);
ALDLIB_EXPORT std::uint16_t Lib_MessageWithString(std::uint32_t nFlags, MessageArgument message,
                                                  const CConstFixedStringParamRef& value);

// Show a message with values in the place of its conversions, as FormatMessageText puts them in;
// one whose conversions do not fit the values is shown as it stands. MessageWithArgs and
// MessageWithArgsEx fetch it by GetTheMessage and GetTheMessageEx and show up to 1,023 characters;
// MessageStrArg is for a format of the caller's, without signs, and up to 511.
ALDLIB_EXPORT std::uint16_t ShowFormatted(std::uint32_t nFlags, MessageArgument message, bool bRaw,
                                          std::span<const MessageValue> values);
ALDLIB_EXPORT std::uint16_t ShowFormattedText(std::uint32_t nFlags, std::int32_t nHelpTopic,
                                              const char* szFormat,
                                              std::span<const MessageValue> values);

template <typename... Values>
std::uint16_t MessageWithArgs(std::uint32_t nFlags, MessageArgument message,
                              const Values&... values) {
  const std::array<MessageValue, sizeof...(Values)> all = {MessageValue(values)...};
  return ShowFormatted(nFlags, message, false, all);
}
template <typename... Values>
std::uint16_t MessageWithArgsEx(std::uint32_t nFlags, MessageArgument message,
                                const Values&... values) {
  const std::array<MessageValue, sizeof...(Values)> all = {MessageValue(values)...};
  return ShowFormatted(nFlags, message, true, all);
}
template <typename... Values>
std::uint16_t MessageStrArg(std::uint32_t nFlags, std::int32_t nHelpTopic, const char* szFormat,
                            const Values&... values) {
  const std::array<MessageValue, sizeof...(Values)> all = {MessageValue(values)...};
  return ShowFormattedText(nFlags, nHelpTopic, szFormat, all);
}

}  // namespace ald
