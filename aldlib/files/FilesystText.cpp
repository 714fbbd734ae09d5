// Characters, words and lines.
#include <cstring>
#include <limits>

#include "aldlib/files/internal/FileRecord.h"

namespace ald {
namespace {

constexpr std::uint8_t kCarriageReturn = 13;
constexpr std::uint8_t kLineFeed = 10;
constexpr auto kMostCounted = std::numeric_limits<std::uint16_t>::max();

// True if a record may be used in this direction, and then it is.
bool Turn(File* pFile, std::uint32_t nDirection) {
  if (!IsOpened(pFile)) return false;
  if (pFile->nDirection != kUnused && pFile->nDirection != nDirection) {
    SetStatus(*pFile, FileStatus::WrongUse);
    return false;
  }
  pFile->nDirection = nDirection;
  return true;
}

bool IsUsedUp(const File& file) {
  return file.nBufPos >= BufferFill(file);
}

// Reads the next part of the file. Returns false if nothing came, or if the read failed; bEof is
// set then and nError is what the read left.
bool Refill(File& file) {
  ReadBlock(&file, kFileBufferSize, file.aBuffer);
  file.nBufFill = static_cast<std::uint16_t>(file.nTransferred);
  file.nBufPos = 0;
  file.bEof = file.nTransferred == 0;
  return file.nTransferred != 0;
}

// The next character of a record that reads.
char NextChar(File& file) {
  if (file.bAgain != 0) {
    file.bAgain = 0;
    SetStatus(file, FileStatus::Good);
    return static_cast<char>(file.nLast);
  }
  if (file.bEof != 0) {
    SetStatus(file, FileStatus::WrongUse);
    return 0;
  }
  if (IsUsedUp(file) && !Refill(file)) return 0;
  std::uint8_t nByte = file.aBuffer[file.nBufPos++];
  if (nByte == kCarriageReturn) {
    nByte = kEndOfLine;
    const bool bMore = !IsUsedUp(file) || Refill(file);
    if (bMore && file.aBuffer[file.nBufPos] == kLineFeed) ++file.nBufPos;
    // A lone carriage return at the very end is a line end like any other: the end of the file is
    // left for the next read to meet.
    file.bEof = 0;
  } else if (nByte == kLineFeed) {
    nByte = kEndOfLine;
  } else if (nByte == kEndOfText) {
    nByte = 0;
    file.bEof = 1;
  }
  file.nLast = nByte;
  SetStatus(file, FileStatus::Good);
  return static_cast<char>(nByte);
}

// How many of the bytes come ahead of the first that is below a blank: all those that have a
// meaning of their own in a text are. Eight at a time; a byte that is not below a blank never sets
// its mark, and the lowest mark that is set is right, since a borrow only travels upwards.
std::size_t PlainRun(const std::uint8_t* pBytes, std::size_t nBytes) {
  constexpr std::uint64_t kOnes = 0x0101'0101'0101'0101;
  std::size_t n = 0;
  for (; n + 8 <= nBytes; n += 8) {
    std::uint64_t nWord = 0;
    std::memcpy(&nWord, pBytes + n, 8);
    if (((nWord - kOnes * ' ') & ~nWord & (kOnes * 0x80)) != 0) break;
  }
  while (n < nBytes && pBytes[n] >= ' ') ++n;
  return n;
}

// Takes up to nMost plain characters out of the buffer at once, with what NextChar would leave
// behind after the last of them.
std::size_t TakePlainRun(File& file, char* szText, std::size_t nMost) {
  if (file.bAgain != 0 || file.bEof != 0 || IsUsedUp(file)) return 0;
  const std::size_t nInBuffer = static_cast<std::size_t>(BufferFill(file)) - file.nBufPos;
  const std::uint8_t* const pBytes = file.aBuffer + file.nBufPos;
  const std::size_t nRun = PlainRun(pBytes, std::min(nMost, nInBuffer));
  if (nRun == 0) return 0;
  std::memcpy(szText, pBytes, nRun);
  file.nLast = pBytes[nRun - 1];
  file.nBufPos = static_cast<std::uint16_t>(file.nBufPos + nRun);
  SetStatus(file, FileStatus::Good);
  return nRun;
}

// Puts bytes into the buffer as they are, and writes it out whenever it is full and more is to come
// in. Returns how many went in.
std::size_t PutBytes(File& file, const void* pBytes, std::size_t nBytes) {
  std::size_t nDone = 0;
  while (nDone < nBytes) {
    if (BufferPosition(file) == kFileBufferSize && !FlushBuffer(file)) return nDone;
    const std::uint16_t nAt = BufferPosition(file);
    const std::size_t nRun = std::min(nBytes - nDone, kFileBufferSize - nAt);
    std::memcpy(file.aBuffer + nAt, static_cast<const char*>(pBytes) + nDone, nRun);
    file.nBufPos = static_cast<std::uint16_t>(nAt + nRun);
    nDone += nRun;
  }
  SetStatus(file, FileStatus::Good);
  return nDone;
}

bool PutEndOfLine(File& file) {
  constexpr std::uint8_t kLineEnd[] = {kCarriageReturn, kLineFeed};
  return PutBytes(file, kLineEnd, sizeof kLineEnd) == sizeof kLineEnd;
}

}  // namespace

void ReadChar(File* pFile, char* pCharacter) {
  if (pCharacter == nullptr) return;
  *pCharacter = 0;
  if (Turn(pFile, kReading)) *pCharacter = NextChar(*pFile);
}

void ReadWord(File* pFile, std::uint16_t* pWord) {
  if (pWord == nullptr) return;
  *pWord = 0;
  if (!Turn(pFile, kReading)) return;
  File& file = *pFile;
  // The pushed-back character is none of the word's: it waits for ReadChar.
  if (file.bAgain != 0) return SetStatus(file, FileStatus::Good);
  if (file.bEof != 0) return SetStatus(file, FileStatus::WrongUse);
  SetStatus(file, FileStatus::Good);
  unsigned nWord = 0;
  for (unsigned nShift = 0; nShift < 16; nShift += 8) {
    if (IsUsedUp(file) && !Refill(file)) break;
    nWord |= unsigned{file.aBuffer[file.nBufPos++]} << nShift;
  }
  *pWord = static_cast<std::uint16_t>(nWord);
  file.nLast = *pWord;
}

void Again(File* pFile) {
  if (!Turn(pFile, kReading)) return;
  pFile->bAgain = 1;
  SetStatus(*pFile, FileStatus::Good);
}

void WriteChar(File* pFile, char chCharacter) {
  if (!Turn(pFile, kWriting)) return;
  if (chCharacter == kEndOfLine) {
    PutEndOfLine(*pFile);
  } else {
    PutBytes(*pFile, &chCharacter, 1);
  }
}

void WriteWord(File* pFile, std::uint16_t nWord) {
  if (!Turn(pFile, kWriting)) return;
  const std::uint8_t aBytes[] = {static_cast<std::uint8_t>(nWord),
                                 static_cast<std::uint8_t>(nWord >> 8)};
  PutBytes(*pFile, aBytes, sizeof aBytes);
}

std::uint16_t ReadLn(File* pFile, CFixedStringParamRef line) {
  if (line.buffer == nullptr || line.size < 1) return 0;
  line.buffer[0] = '\0';
  if (line.size == 1 || !Turn(pFile, kReading)) return 0;
  const auto nMost = static_cast<std::size_t>(std::min<std::int32_t>(line.size - 1, kMostCounted));
  std::size_t nLength = 0;
  while (nLength < nMost) {
    nLength += TakePlainRun(*pFile, line.buffer + nLength, nMost - nLength);
    if (nLength == nMost) break;
    const char chNext = NextChar(*pFile);
    if (chNext == kEndOfLine || pFile->nError != 0 || pFile->bEof != 0) break;
    line.buffer[nLength++] = chNext;
  }
  line.buffer[nLength] = '\0';
  return static_cast<std::uint16_t>(nLength);
}

std::uint16_t WriteLn(File* pFile, const char* szText) {
  if (!Turn(pFile, kWriting)) return 0;
  const char* szNext = szText != nullptr ? szText : "";
  std::size_t nWritten = 0;
  for (bool bGood = true; bGood;) {
    const std::size_t nRun = std::strcspn(szNext, "\x1E");
    const std::size_t nPut = PutBytes(*pFile, szNext, nRun);
    nWritten += nPut;
    if (nPut < nRun) break;
    szNext += nRun;
    const bool bEndOfText = *szNext == '\0';
    bGood = PutEndOfLine(*pFile);
    if (bGood) nWritten += bEndOfText ? 2 : 1;
    if (bEndOfText) break;
    ++szNext;
  }
  return static_cast<std::uint16_t>(std::min<std::size_t>(nWritten, kMostCounted));
}

}  // namespace ald
