// Characters, words and lines, by example and against a model over a plain string of bytes.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "aldlib/files/Filesyst.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

class FilesystTextTest : public testing::Test {
 protected:
  void Open(std::string_view sText) {
    m_platform.m_disk.Write("A.TXT", sText);
    Lookup(&m_file, "A.TXT", 0);
    ASSERT_EQ(m_file.nError, 0U);
  }
  std::string Text() {
    MemoryNodePtr pNode;
    m_platform.m_disk.Find("A.TXT", pNode);
    return pNode->sData;
  }
  // The next character with what it leaves behind: "30", "0 eof", "0 error 3".
  std::string Next() {
    char chCharacter = 'x';
    ReadChar(&m_file, &chCharacter);
    std::ostringstream out;
    out << static_cast<int>(chCharacter);
    if (m_file.bEof != 0) out << " eof";
    if (m_file.nError != 0) out << " error " << m_file.nError;
    return out.str();
  }
  std::vector<std::string> All(std::string_view sText) {
    Open(sText);
    std::vector<std::string> all;
    do {
      all.push_back(Next());
    } while (m_file.nError == 0);
    Close(&m_file);
    return all;
  }

  FakePlatform m_platform;
  File m_file;
};

TEST_F(FilesystTextTest, ReadsLineEndsAndTheEndOfATextAsCodes) {
  using Strings = std::vector<std::string>;
  const std::string sTwoBuffers(255, 'x');
  const std::string sLast = "0 eof error 3";
  EXPECT_EQ(All("a\r\nb\x1A"
                "c"),
            (Strings{"97", "30", "98", "0 eof", sLast}));
  EXPECT_EQ(All("\r"), (Strings{"30", "0 eof", sLast}));
  EXPECT_EQ(All("\n\r\r\n\n"), (Strings{"30", "30", "30", "30", "0 eof", sLast}));
  EXPECT_EQ(All(""), (Strings{"0 eof", sLast}));
  EXPECT_EQ(All(std::string("\0\x1E", 2)), (Strings{"0", "30", "0 eof", sLast}));
  // A line end on the border of two buffers is one.
  Strings all = All(sTwoBuffers + "\r\nb");
  EXPECT_EQ(Strings(all.begin() + 255, all.end()), (Strings{"30", "98", "0 eof", sLast}));
  all = All(sTwoBuffers + "\r");
  EXPECT_EQ(Strings(all.begin() + 255, all.end()), (Strings{"30", "0 eof", sLast}));
}

TEST_F(FilesystTextTest, PushesOneCharacterBack) {
  Open("ab");
  EXPECT_EQ(Next(), "97");
  Again(&m_file);
  Again(&m_file);
  EXPECT_EQ(Next(), "97");
  EXPECT_EQ(Next(), "98");
  Again(&m_file);
  std::uint16_t nWord = 77;
  ReadWord(&m_file, &nWord);
  EXPECT_EQ(nWord, 0);
  EXPECT_EQ(m_file.nError, 0U);
  EXPECT_EQ(m_file.bAgain, 1);
  EXPECT_EQ(Next(), "98");
  Close(&m_file);
}

TEST_F(FilesystTextTest, ReadsOrWritesUntilItIsReset) {
  Open("ab");
  Next();
  WriteChar(&m_file, 'x');
  EXPECT_EQ(m_file.nError, 3U);
  WriteWord(&m_file, 1);
  EXPECT_EQ(m_file.nError, 3U);
  EXPECT_EQ(WriteLn(&m_file, "x"), 0);
  FileReset(&m_file);
  EXPECT_EQ(m_file.nError, 0U);
  WriteChar(&m_file, 'x');
  EXPECT_EQ(m_file.nError, 0U);
  EXPECT_EQ(Next(), "0 error 3");
  Again(&m_file);
  EXPECT_EQ(m_file.nError, 3U);
  Close(&m_file);
  EXPECT_EQ(Text(), "xb");
}

TEST_F(FilesystTextTest, ReadsWordsWithTheLowByteFirst) {
  Open(std::string("\x01\x02\r\n\x1A", 5));
  std::uint16_t nWord = 0;
  ReadWord(&m_file, &nWord);
  EXPECT_EQ(nWord, 0x0201);
  EXPECT_EQ(m_file.nLast, 0x0201);
  ReadWord(&m_file, &nWord);
  EXPECT_EQ(nWord, 0x0A0D);
  ReadWord(&m_file, &nWord);  // the second byte is missing
  EXPECT_EQ(nWord, 0x001A);
  EXPECT_EQ(m_file.bEof, 1);
  EXPECT_EQ(m_file.nError, 0U);
  ReadWord(&m_file, &nWord);
  EXPECT_EQ(nWord, 0);
  EXPECT_EQ(m_file.nError, 3U);
  Close(&m_file);
}

TEST_F(FilesystTextTest, ReadsLinesIntoWhatTheyFit) {
  Open("first\r\n\r\nabcdefgh\nlast");
  CFixedString<6> sLine;
  const struct {
    const char* szLine;
    std::uint16_t nLength;
    std::uint8_t bEof;
  } rows[] = {{"first", 5, 0}, {"", 0, 0},     {"", 0, 0}, {"abcde", 5, 0},
              {"fgh", 3, 0},   {"last", 4, 1}, {"", 0, 1}};
  for (const auto& row : rows) {
    EXPECT_EQ(ReadLn(&m_file, sLine), row.nLength);
    EXPECT_EQ(sLine, row.szLine);
    EXPECT_EQ(m_file.bEof, row.bEof);
  }
  EXPECT_EQ(m_file.nError, 3U);
  FileReset(&m_file);
  CFixedString<1> sNothing;
  EXPECT_EQ(ReadLn(&m_file, sNothing), 0);
  EXPECT_EQ(ReadLn(&m_file, {nullptr, 9}), 0);
  EXPECT_EQ(m_file.nDirection, kUnused);
  Close(&m_file);
}

TEST_F(FilesystTextTest, WritesLinesAndCountsThem) {
  Open("");
  EXPECT_EQ(WriteLn(&m_file, ""), 2);
  EXPECT_EQ(WriteLn(&m_file, "abc"), 5);
  EXPECT_EQ(WriteLn(&m_file,
                    "a\x1E"
                    "b"),
            5);  // the code for a line end counts as the one character it is
  EXPECT_EQ(WriteLn(&m_file, nullptr), 2);
  WriteWord(&m_file, 0x1E0D);
  Close(&m_file);
  EXPECT_EQ(Text(), "\r\nabc\r\na\r\nb\r\n\r\n\r\x1E");
  // Up to the first error: the buffer holds 256, and cannot be written.
  Lookup(&m_file, "A.TXT", 0);
  m_platform.m_files.FailCall(1);
  EXPECT_EQ(WriteLn(&m_file, std::string(300, 'x').c_str()), 256);
  EXPECT_EQ(m_file.nError, 1U);
  Close(&m_file);
}

TEST_F(FilesystTextTest, BoundsTheBufferWhateverTheRecordSays) {
  Open(std::string(600, 'x'));
  m_file.nDirection = kReading;
  m_file.nBufPos = 60000;
  m_file.nBufFill = 65535;
  EXPECT_EQ(Next(), "120");
  m_file.nBufPos = 255;
  m_file.nBufFill = 65535;
  CFixedString<100> sLine;
  EXPECT_EQ(ReadLn(&m_file, sLine), 99);
  FileReset(&m_file);
  m_file.nDirection = kWriting;
  m_file.nBufPos = 65535;
  WriteChar(&m_file, 'y');
  std::int32_t nPosition = 0;
  GetPos(&m_file, &nPosition);
  EXPECT_EQ(nPosition, 257);
  Close(&m_file);
}

// The rules told once more, over a whole string and a position, without a buffer. What it knows of
// the buffer is when the end is met: by a read that finds nothing, not by the one before.
struct Model {
  std::string sBytes;
  std::size_t nPosition = 0;
  std::uint32_t nDirection = kUnused;
  std::uint32_t nError = 0;
  bool bEof = false;
  bool bAgain = false;
  std::uint16_t nLast = 0;

  bool Turn(std::uint32_t nWanted) {
    nError = nDirection != kUnused && nDirection != nWanted ? 3 : 0;
    if (nError == 0) nDirection = nWanted;
    return nError == 0;
  }
  bool AtEnd() const { return nPosition >= sBytes.size(); }
  int Read() {
    if (!Turn(kReading)) return 0;
    if (std::exchange(bAgain, false)) return nLast & 0xFF;
    if (bEof) return nError = 3, 0;
    if (AtEnd()) return bEof = true, 0;
    int n = static_cast<unsigned char>(sBytes[nPosition++]);
    if (n == 13 && !AtEnd() && sBytes[nPosition] == 10) ++nPosition;
    if (n == 13 || n == 10) n = 30;
    if (n == 26) n = 0, bEof = true;
    nLast = static_cast<std::uint16_t>(n);
    return n;
  }
  int ReadTwo() {
    if (!Turn(kReading) || bAgain) return 0;
    if (bEof) return nError = 3, 0;
    int n = 0;
    for (int i = 0; i < 2; ++i) {
      if (AtEnd()) {
        bEof = true;
      } else {
        n |= static_cast<unsigned char>(sBytes[nPosition++]) << (8 * i);
      }
    }
    nLast = static_cast<std::uint16_t>(n);
    return n;
  }
  std::string ReadLine(std::size_t nCapacity) {
    std::string sLine;
    while (sLine.size() + 1 < nCapacity) {
      const int n = Read();
      if (n == 30 || nError != 0 || bEof) break;
      sLine += static_cast<char>(n);
    }
    return sLine;
  }
  void PutByte(int n) {
    if (nPosition >= sBytes.size()) sBytes.resize(nPosition + 1);
    sBytes[nPosition++] = static_cast<char>(n);
  }
  std::size_t Write(const std::string& sText) {
    if (!Turn(kWriting)) return 0;
    for (const char c : sText) {
      if (c == 30) PutByte(13);
      PutByte(c == 30 ? 10 : c);
    }
    return sText.size();
  }
};

std::string RandomText(std::mt19937& random, std::size_t nLength) {
  constexpr char kFavourites[] = {13, 10, 10, 30, 0, 'a', 'z', '\xE9', ' ', 31};
  std::string sText;
  while (sText.size() < nLength) {
    const auto n = static_cast<unsigned>(random() % 40);
    sText += n < 10 ? kFavourites[n] : static_cast<char>('b' + n % 20);
    if (n == 39 && random() % 20 == 0) sText += 26;
  }
  return sText;
}

TEST_F(FilesystTextTest, DoesAsTheModelThroughRandomScripts) {
  for (unsigned nSeed = 0; nSeed < 300; ++nSeed) {
    std::mt19937 random(nSeed);
    Model model{RandomText(random, random() % 1500)};
    Open(model.sBytes);
    for (int nStep = 0; nStep < 200; ++nStep) {
      const auto nOperation = static_cast<unsigned>(random() % 10);
      std::string sGiven, sExpected;
      char chCharacter = 0;
      std::uint16_t nWord = 0;
      switch (nOperation) {
        case 0:
        case 1:
          ReadChar(&m_file, &chCharacter);
          sGiven = std::to_string(static_cast<unsigned char>(chCharacter));
          sExpected = std::to_string(model.Read());
          break;
        case 2:
          ReadWord(&m_file, &nWord);
          sGiven = std::to_string(nWord);
          sExpected = std::to_string(model.ReadTwo());
          break;
        case 3:
        case 4: {
          std::string sLine(2 + random() % 300, 'x');
          const std::uint16_t nLength =
              ReadLn(&m_file, {sLine.data(), static_cast<std::int32_t>(sLine.size())});
          sGiven = sLine.substr(0, nLength);
          sExpected = model.ReadLine(sLine.size());
          EXPECT_EQ(sLine[nLength], '\0');
          break;
        }
        case 5:
          Again(&m_file);
          if (model.Turn(kReading)) model.bAgain = true;
          break;
        case 6: {
          const auto c = static_cast<char>(random());
          WriteChar(&m_file, c);
          model.Write(std::string(1, c));
          break;
        }
        case 7: {
          std::string sText = RandomText(random, random() % 400);
          sText.resize(std::min(sText.size(), sText.find('\0')));
          sGiven = std::to_string(WriteLn(&m_file, sText.c_str()));
          const bool bGood = model.Write(sText + '\x1E') != 0;
          sExpected = std::to_string(bGood ? sText.size() + 2 : 0);
          break;
        }
        case 8: {
          const auto nPosition = random() % (model.sBytes.size() + 20);
          SetPos(&m_file, static_cast<std::int32_t>(nPosition));
          model.nPosition = nPosition;
          m_file.nError = model.nError = 0;
          break;
        }
        default:
          if (random() % 4 != 0) continue;
          FileReset(&m_file);
          model = {.sBytes = model.sBytes, .nLast = model.nLast};
          break;
      }
      std::int32_t nPosition = 0;
      GetPos(&m_file, &nPosition);
      ASSERT_EQ(sGiven, sExpected) << "seed " << nSeed << ", step " << nStep << ": " << nOperation;
      ASSERT_EQ(m_file.nError, model.nError) << "seed " << nSeed << ", step " << nStep;
      ASSERT_EQ(m_file.bEof != 0, model.bEof) << "seed " << nSeed << ", step " << nStep;
      ASSERT_EQ(nPosition, model.nPosition) << "seed " << nSeed << ", step " << nStep;
      ASSERT_EQ(m_file.nLast, model.nLast) << "seed " << nSeed << ", step " << nStep;
    }
    Close(&m_file);
    ASSERT_EQ(Text(), model.sBytes) << "seed " << nSeed;
    m_file = {};
  }
}

}  // namespace
}  // namespace ald
