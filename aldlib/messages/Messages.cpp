#include "aldlib/messages/Messages.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "aldlib/amounts/Format.h"
#include "aldlib/messages/Catalogue.h"
#include "aldlib/messages/internal/FetchMessage.h"
#include "aldlib/messages/internal/ShowMessage.h"
#include "aldlib/text/DynamicHeapFixedString.h"
#include "aldlib/text/ResourceStrings.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr std::int32_t kBufferSize = 1024;
constexpr std::int32_t kParaBufferSize = 2048;
constexpr std::int32_t kFormattedTextSize = 512;
constexpr std::int32_t kPrintTextSize = 200;
constexpr std::int32_t kPrintBufferSize = 512;

constexpr MessageArgument kNoNumber = 0;

constexpr const char* kUnknownMessage = "<unknown message ###>";
constexpr std::uint32_t kUnknownFlags = kBoxExclamation | kBoxRetryCancel;

// These boxes come when little works any more, and stand above every other window.
constexpr std::uint16_t kSystemModalMessages[] = {20301, 20315, 20336};

bool IsSystemModal(MessageArgument message) {
  return !IsMessageText(message) &&
         std::find(std::begin(kSystemModalMessages), std::end(kSystemModalMessages),
                   MessageNumber(message)) != std::end(kSystemModalMessages);
}

// Logs the text and shows it: an outer message stands below one that its box lets in.
std::uint16_t LogAndShow(std::uint32_t nFlags, MessageArgument logged, CFixedStringParamRef text,
                         std::int32_t nHelpTopic, WindowHandle hParent = {}) {
  SaveTheMessage(logged, text.buffer);
  return ShowComposed(nFlags, text, nHelpTopic, hParent);
}

std::uint16_t LogAndShowMessage(std::uint32_t nFlags, MessageArgument message,
                                CFixedStringParamRef text, WindowHandle hParent = {}) {
  return LogAndShow(nFlags, message, text, MessageNumber(message), hParent);
}

// Fetches a message, lets `change` put values into it, and shows it.
template <typename Change>
std::uint16_t ShowChanged(std::uint32_t nFlags, MessageArgument message, Change change) {
  CDynamicHeapFixedString sText(kBufferSize);
  if (sText.buffer == nullptr) return 0;
  GetTheMessage(&nFlags, message, sText);
  change(sText);
  return LogAndShowMessage(nFlags, message, sText);
}

// The same for a text that has no signs.
template <typename Change>
std::uint16_t ShowChangedText(std::uint32_t nFlags, const char* szText, Change change) {
  CDynamicHeapFixedString sText(kBufferSize);
  if (sText.buffer == nullptr) return 0;
  sText = szText;
  change(sText);
  return LogAndShow(nFlags, kNoNumber, sText, 0);
}

// The same in the library's own box, which comes up empty if there is no memory for the text.
template <typename Change>
std::uint16_t ShowChangedInLibraryBox(std::uint32_t nFlags, MessageArgument message,
                                      Change change) {
  CDynamicHeapFixedString sText(kLibraryBufferSize);
  GetTheMessage(&nFlags, message, sText);
  change(sText);
  SaveTheMessage(message, sText.buffer);
  return ShowLibraryBox(nFlags, sText.view());
}

void Fetch(std::uint32_t* pFlags, MessageArgument message, bool bRaw, CFixedStringParamRef output) {
  if (bRaw) {
    GetTheMessageEx(pFlags, message, output);
  } else {
    GetTheMessage(pFlags, message, output);
  }
}

// Loads the text that a number or an address stands for, with its signs. False for none.
bool LoadMessage(MessageArgument message, CFixedStringParamRef output) {
  if (!IsMessageText(message)) return MyLoadString(MessageNumber(message), output) != 0;
  output = MessageText(message);
  return !output.IsEmpty();
}

void Substitute(const MsgPara& para, CFixedStringParamRef text) {
  switch (para.nKind) {
    case kMsgParaCard:
      InsertCard(text, static_cast<std::uint16_t>(para.nValue & 0xFFFF));
      break;
    case kMsgParaAmount: {
      const std::intptr_t nAddress = para.nValue;
      if (nAddress == 0) break;
      CFixedString<45> sAmount;
      DollarsToString(*reinterpret_cast<const CDecimal*>(nAddress), sAmount, 0, kMoneyMinus);
      TrimLeft(sAmount);
      FindAndReplace(text, "%$%", sAmount);
      break;
    }
    case kMsgParaText:
      FindAndReplace(text, "%$%", reinterpret_cast<const char*>(para.nValue));
      break;
    default:
      break;
  }
}

}  // namespace

void TakeSigns(std::uint32_t* pFlags, MessageArgument message, CFixedStringParamRef text) {
  const MessageSigns signs = ReadMessageSigns(text.view());
  if (signs.nLength == 0) {
    if (*pFlags == 0) *pFlags = signs.nFlags;
    return;
  }
  *pFlags = signs.nFlags;
  if (text.view().starts_with('@') && IsSystemModal(message)) *pFlags |= kBoxSystemModal;
  Delete(text, 0, signs.nLength);
}

void GetTheMessage(std::uint32_t* pFlags, MessageArgument message, CFixedStringParamRef output) {
  std::uint32_t nUnasked = 0;
  if (pFlags == nullptr) pFlags = &nUnasked;
  if (LoadMessage(message, output)) {
    TakeSigns(pFlags, message, output);
    return;
  }
  output = kUnknownMessage;
  InsertCard(output, MessageNumber(message));
  *pFlags = kUnknownFlags;
}

void GetTheMessageEx(std::uint32_t* pFlags, MessageArgument number, CFixedStringParamRef output) {
  GetTheMessage(pFlags, MessageByNumber(MessageNumber(number)), output);
}

std::uint16_t Message(std::uint32_t nFlags, MessageArgument message, bool bRaw,
                      WindowHandle hParent) {
  CDynamicHeapFixedString sText(kBufferSize);
  if (sText.buffer == nullptr) return 0;
  Fetch(&nFlags, message, bRaw, sText);
  return LogAndShowMessage(nFlags, message, sText, hParent);
}

std::uint16_t VeryLongMessage(std::uint32_t nFlags, MessageArgument first, MessageArgument end) {
  CDynamicHeapFixedString sText(kBufferSize);
  if (sText.buffer == nullptr) return 0;
  constexpr MessageArgument kPastNumbers = std::numeric_limits<std::uint16_t>::max() + 1;
  end = std::min(end, kPastNumbers);
  std::int32_t nUsed = 0;
  for (MessageArgument number = std::max<MessageArgument>(first, 0);
       number < end && nUsed < kBufferSize - 1; ++number) {
    const CFixedStringParamRef rest(sText.buffer + nUsed, kBufferSize - nUsed);
    std::uint32_t nLaterFlags = 0;
    GetTheMessage(number == first ? &nFlags : &nLaterFlags, number, rest);
    nUsed += static_cast<std::int32_t>(rest.view().size());
  }
  return LogAndShowMessage(nFlags, first, sText);
}

std::uint16_t MessageWithCard(std::uint32_t nFlags, MessageArgument message, std::uint16_t nValue) {
  return ShowChanged(nFlags, message,
                     [nValue](CFixedStringParamRef text) { InsertCard(text, nValue); });
}

std::uint16_t MessageWithString(std::uint32_t nFlags, MessageArgument message,
                                const char* szValue) {
  return ShowChanged(nFlags, message,
                     [szValue](CFixedStringParamRef text) { InsertString(text, szValue); });
}

std::uint16_t MessageStr(std::uint32_t nFlags, const char* szText, std::int32_t nHelpTopic) {
  // A text is as long as it is, up to what one block of the store can be asked for.
  constexpr std::size_t kLongest = std::numeric_limits<std::int32_t>::max() - 16;
  const std::size_t nLength = std::min(internal::ViewOrEmpty(szText).size(), kLongest);
  CDynamicHeapFixedString sText(static_cast<std::int32_t>(nLength) + 1);
  if (sText.buffer == nullptr) return 0;
  sText = szText;
  return LogAndShow(nFlags, kNoNumber, sText, nHelpTopic);
}

std::uint16_t MessageStrWithCard(std::uint32_t nFlags, const char* szText, std::uint16_t nValue) {
  return ShowChangedText(nFlags, szText,
                         [nValue](CFixedStringParamRef text) { InsertCard(text, nValue); });
}

std::uint16_t MessageStrWithString(std::uint32_t nFlags, const char* szText, const char* szValue) {
  return ShowChangedText(nFlags, szText,
                         [szValue](CFixedStringParamRef text) { InsertString(text, szValue); });
}

std::uint16_t MessageWithPara(std::uint32_t nFlags, MessageArgument message, std::int16_t nCount,
                              const MsgPara* aParas) {
  CDynamicHeapFixedString sText(kParaBufferSize);
  if (sText.buffer == nullptr) return 0;
  LoadMessage(message, sText);
  for (std::int16_t i = 0; aParas != nullptr && i < nCount; ++i) Substitute(aParas[i], sText);
  return LogAndShowMessage(nFlags, message, sText);
}

std::uint16_t PrintOrPreviewMessage(MessageArgument message, bool bPreview, std::uint32_t) {
  CDynamicHeapFixedString sLoaded(kPrintTextSize);
  CDynamicHeapFixedString sText(kPrintBufferSize);
  if (sLoaded.buffer == nullptr || sText.buffer == nullptr) return 0;
  MyLoadString(MessageNumber(message), sLoaded);
  if (bPreview) {
    FindAndReplace(sLoaded, "Print", "Preview");
    FindAndReplace(sLoaded, "print", "preview");
  }
  // Not the number, as the header tells.
  FindAndReplace(sLoaded, "%d", "&d");
  std::uint32_t nFlags = 0;
  GetTheMessage(&nFlags, MessageByText(sLoaded), sText);
  return LogAndShowMessage(nFlags, message, sText);
}

std::uint16_t Lib_Message(std::uint32_t nFlags, MessageArgument message) {
  return ShowChangedInLibraryBox(nFlags, message, [](CFixedStringParamRef) {});
}

std::uint16_t Lib_MessageWithCard(std::uint32_t nFlags, MessageArgument message,
                                  std::uint16_t nValue) {
  return ShowChangedInLibraryBox(nFlags, message,
                                 [nValue](CFixedStringParamRef text) { InsertCard(text, nValue); });
}

std::uint16_t Lib_MessageWithString(std::uint32_t nFlags, MessageArgument message,
                                    const CConstFixedStringParamRef& value) {
  return ShowChangedInLibraryBox(nFlags, message, [&value](CFixedStringParamRef text) {
    CFixedString<kLibraryBufferSize> sValue;  // the given one may lack its terminator
    sValue = value;
    InsertString(text, sValue);
  });
}

std::uint16_t ShowFormatted(std::uint32_t nFlags, MessageArgument message, bool bRaw,
                            std::span<const MessageValue> values) {
  CDynamicHeapFixedString sFormat(kBufferSize);
  CDynamicHeapFixedString sText(kBufferSize);
  if (sFormat.buffer == nullptr || sText.buffer == nullptr) return 0;
  Fetch(&nFlags, message, bRaw, sFormat);
  FormatMessageText(sText, sFormat, values);
  return LogAndShowMessage(nFlags, message, sText);
}

std::uint16_t ShowFormattedText(std::uint32_t nFlags, std::int32_t nHelpTopic, const char* szFormat,
                                std::span<const MessageValue> values) {
  CDynamicHeapFixedString sText(kFormattedTextSize);
  if (sText.buffer == nullptr) return 0;
  FormatMessageText(sText, szFormat, values);
  return LogAndShow(nFlags, kNoNumber, sText, nHelpTopic);
}

}  // namespace ald
