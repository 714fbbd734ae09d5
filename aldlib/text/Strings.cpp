#include "aldlib/text/Strings.h"

#include <algorithm>
#include <bitset>
#include <cstring>
#include <string_view>

#include "aldlib/frame/MemStore.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/text/IntegerText.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {
namespace {

// Positions of Insert are unsigned 16-bit numbers.
constexpr std::int32_t kInsertSizeMax = 65536;

template <typename Fold>
int Compare(const char* szFirst, const char* szSecond, Fold fold) {
  if (szFirst == nullptr) szFirst = "";
  if (szSecond == nullptr) szSecond = "";
  for (;; ++szFirst, ++szSecond) {
    const auto chFirst = static_cast<signed char>(fold(*szFirst));
    const auto chSecond = static_cast<signed char>(fold(*szSecond));
    if (chFirst != chSecond) return chFirst < chSecond ? -1 : 1;
    if (chFirst == 0) return 0;
  }
}

}  // namespace

char* sstrcat(char* szDestination, const char* szSource, std::int32_t nSize) noexcept {
  const std::int32_t nLength = TextLength(szDestination, nSize);
  if (nLength >= nSize || szDestination == nullptr) return szDestination;
  return sstrcpy(szDestination + nLength, szSource, nSize - nLength);
}

std::uint16_t RunningStringCopy(const char* szSource, char** ppWrite,
                                std::uint16_t* pnRoom) noexcept {
  if (ppWrite == nullptr || *ppWrite == nullptr || pnRoom == nullptr) return 0;
  const auto nCount = static_cast<std::uint16_t>(TextLength(szSource, *pnRoom));
  if (nCount != 0) std::memmove(*ppWrite, szSource, nCount);
  *ppWrite += nCount;
  *pnRoom = static_cast<std::uint16_t>(*pnRoom - nCount);
  return nCount;
}

void Concat(const char* szFirst, const char* szSecond, CFixedStringParamRef ref) noexcept {
  sstrcpy(ref.buffer, szFirst, ref.size);
  sstrcat(ref.buffer, szSecond, ref.size);
}

void Insert(const char* szText, CFixedStringParamRef ref, std::int32_t nPosition) noexcept {
  if (!HasRoom(ref)) return;
  ref.size = std::min(ref.size, kInsertSizeMax);
  const std::int32_t nRoom = ref.size - 1;
  std::int32_t nOld = LengthIn(ref);
  // Of a text that cannot fit, one character more than the room is enough to know it.
  std::int32_t nText = TextLength(szText, nRoom + 1);
  const std::int32_t nAt =
      std::min<std::int32_t>(nPosition < 0 ? 0 : static_cast<std::uint16_t>(nPosition), nOld);

  if (nOld + nText > nRoom) {
    if (nAt + nText <= nRoom) {
      nOld = nRoom - nText;
    } else {
      nOld = nAt;
      nText = nRoom - nAt;
    }
  }
  char* const pAt = ref.buffer + nAt;
  if (nText != 0) {
    if (nOld != nAt) std::memmove(pAt + nText, pAt, Bytes(nOld - nAt));
    std::memmove(pAt, szText, Bytes(nText));
  }
  ZeroFrom(ref, nOld + nText);
}

void Delete(CFixedStringParamRef ref, std::int32_t nPosition, std::int32_t nCount) noexcept {
  if (!HasRoom(ref) || nCount < 1 || nPosition < 0) return;
  const std::int32_t nLength = LengthIn(ref);
  if (nPosition > nLength) return;
  const std::int32_t nBehind = nLength - std::min(nCount, nLength - nPosition) - nPosition;
  if (nBehind != 0) {
    char* const pAt = ref.buffer + nPosition;
    std::memmove(pAt, pAt + nCount, Bytes(nBehind));
  }
  ZeroFrom(ref, nPosition + nBehind);
}

std::int32_t PosInString(const char* szSought, const char* szSearched) noexcept {
  return internal::FindText(internal::ViewOrEmpty(szSought), internal::ViewOrEmpty(szSearched));
}

int CompareStr(const char* szFirst, const char* szSecond) noexcept {
  return Compare(szFirst, szSecond, [](char ch) { return ch; });
}

int CompareStrNoCase(const char* szFirst, const char* szSecond) noexcept {
  return Compare(szFirst, szSecond, [](char ch) { return ToUpperAscii(ch); });
}

void UpperCase(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  ref.buffer[ref.size - 1] = '\0';
  for (char* p = ref.buffer; *p != '\0'; ++p) *p = CharUpper(*p);
}

void LowerCase(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  ref.buffer[ref.size - 1] = '\0';
  for (char* p = ref.buffer; *p != '\0'; ++p) *p = CharLower(*p);
}

void Reverse(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  ref.buffer[ref.size - 1] = '\0';
  std::reverse(ref.buffer, ref.buffer + LengthIn(ref));
}

void Replace(CFixedStringParamRef ref, std::int32_t nPosition, const char* szText,
             std::int32_t nWidth) noexcept {
  if (nPosition < 0) return;
  CFixedString<81> sField(szText);
  JustifyRight(sField, nWidth);
  Delete(ref, nPosition, nWidth);
  Insert(sField, ref, nPosition);
}

void ExcludeCharsFromString(CFixedStringParamRef ref, const char* szSet, bool bExclude) noexcept {
  if (!HasRoom(ref)) return;
  std::bitset<256> abInSet;
  for (const char ch : internal::ViewOrEmpty(szSet)) abInSet.set(static_cast<unsigned char>(ch));
  const std::int32_t nLength = LengthIn(ref);
  char* const pEnd = ref.buffer + nLength;
  char* const pKept = std::remove_if(ref.buffer, pEnd, [&](char ch) {
    return abInSet[static_cast<unsigned char>(ch)] == bExclude;
  });
  if (pKept != pEnd) ZeroFrom(ref, static_cast<std::int32_t>(pKept - ref.buffer));
}

void FindAndReplace(CFixedStringParamRef ref, const char* szOld, const char* szNew) noexcept {
  const std::int32_t nPosition = DeleteFirst(szOld, ref);
  if (nPosition >= 0) Insert(szNew, ref, nPosition);
}

void InsertCard(CFixedStringParamRef ref, std::uint16_t nValue) noexcept {
  CFixedString<7> sDigits;
  std::uint16_t nPosition = 0;
  unsigned char bOk = 0;
  CardToString(nValue, 0, sDigits, &nPosition, &bOk);
  FindAndReplace(ref, "###", sDigits);
}

void InsertString(CFixedStringParamRef ref, const char* szText) noexcept {
  FindAndReplace(ref, "$$$", szText);
}

void FixPrefix(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  const std::int32_t nLength = LengthIn(ref);
  const auto nMarks = static_cast<std::int32_t>(std::count(ref.buffer, ref.buffer + nLength, '&'));
  if (nMarks == 0) return;
  // From the end, so that each character moves once; what falls past the room is dropped.
  const std::int32_t nRoom = ref.size - 1;
  const auto put = [&](std::int64_t nAt, char ch) {
    if (nAt < nRoom) ref.buffer[nAt] = ch;
  };
  std::int64_t nTo = std::int64_t{nLength} + nMarks;
  ZeroFrom(ref, static_cast<std::int32_t>(std::min<std::int64_t>(nTo, nRoom)));
  for (std::int32_t nFrom = nLength; nFrom-- > 0;) {
    const char ch = ref.buffer[nFrom];
    put(--nTo, ch);
    if (ch == '&') put(--nTo, ch);
  }
}

bool IsInteger(const char* szText) noexcept {
  const std::string_view sText = internal::ViewOrEmpty(szText);
  return !sText.empty() && std::all_of(sText.begin(), sText.end(), IsDigitAscii<char>);
}

bool IsPseudoNumber(const char* szText) noexcept {
  return szText != nullptr && *szText != '\0';
}

char* ALW_strdup(const char* szText) {
  const std::string_view sText = internal::ViewOrEmpty(szText);
  if (sText.size() >= UINT32_MAX) return nullptr;
  void* pBlock = nullptr;
  const auto nSize = static_cast<std::uint32_t>(sText.size() + 1);
  if (_CppAllocate(&pBlock, nSize, "Strings.cpp", __LINE__) == 0) return nullptr;
  if (!sText.empty()) std::memcpy(pBlock, sText.data(), sText.size());  // the block is zeroed
  return static_cast<char*>(pBlock);
}

}  // namespace ald
