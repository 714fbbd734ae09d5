#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "aldlib/files/Filesyst.h"
#include "bench/Harness.h"

// A large text read and written by lines and by characters, and a file copied, against what the C
// library and the C++ library do. Those move 4096 bytes and more at a time; the record of a File
// has a buffer of 256, which callers rely on. So the C library is timed with a buffer of that size
// too.
namespace ald::bench {

namespace {

constexpr std::size_t kLines = 20'000;

struct Sample {
  std::filesystem::path folder;
  std::vector<std::string> lines;
  std::string sBytes;
  std::string sFrom;
  std::string sTo;

  Sample() {
    std::string sFolder = (std::filesystem::temp_directory_path() / "aldlib-XXXXXX").string();
    if (::mkdtemp(sFolder.data()) == nullptr) std::abort();
    folder = sFolder;
    sFrom = sFolder + "/FROM.TXT";
    sTo = sFolder + "/TO.TXT";
    for (std::size_t i = 0; i < kLines; ++i) {
      char szLine[128];
      std::snprintf(szLine, sizeof szLine, "%06zu;Office supplies%.*s;%zu.%02zu", i,
                    static_cast<int>(i % 37), " and other things for the workshop      ",
                    i * 7 % 991, i % 100);
      lines.emplace_back(szLine);
      sBytes += lines.back() + "\r\n";
    }
    std::ofstream(sFrom, std::ios::binary) << sBytes;
  }
  Sample(const Sample&) = delete;
  Sample& operator=(const Sample&) = delete;
  ~Sample() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  std::string Written() const {
    std::ifstream in(sTo, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::string FaultOfWritten() const {
    return Written() == sBytes ? "" : "the file has other bytes in it";
  }
};

std::uint32_t Sum(std::uint32_t nSum, const char* szText, std::size_t nLength) {
  return nLength == 0 ? nSum + 1 : nSum * 31 + static_cast<unsigned char>(szText[nLength - 1]);
}

std::uint32_t ReadLines(const Sample& sample) {
  File file;
  MultiLookup(&file, sample.sFrom.c_str(), 0, 1, 0);
  std::uint32_t nSum = 0;
  CFixedString<256> sLine;
  while (true) {
    const std::uint16_t nLength = ReadLn(&file, sLine);
    if (file.bEof != 0 || file.nError != 0) break;
    nSum = Sum(nSum, sLine, nLength);
  }
  Close(&file);
  return nSum;
}

struct CloseFile {
  void operator()(std::FILE* pFile) const { std::fclose(pFile); }
};
using CFile = std::unique_ptr<std::FILE, CloseFile>;

CFile OpenC(const std::string& sPath, const char* szMode, std::size_t nBuffer) {
  static char s_aBuffer[kFileBufferSize];  // one file is open at a time
  CFile file(std::fopen(sPath.c_str(), szMode));
  if (nBuffer != 0) std::setvbuf(file.get(), s_aBuffer, _IOFBF, nBuffer);
  return file;
}

std::uint32_t ReadLinesC(const Sample& sample, std::size_t nBuffer) {
  const CFile file = OpenC(sample.sFrom, "rb", nBuffer);
  std::uint32_t nSum = 0;
  char szLine[256];
  while (std::fgets(szLine, sizeof szLine, file.get()) != nullptr) {
    nSum = Sum(nSum, szLine, std::strcspn(szLine, "\r\n"));
  }
  return nSum;
}

std::uint32_t ReadChars(const Sample& sample) {
  File file;
  MultiLookup(&file, sample.sFrom.c_str(), 0, 1, 0);
  std::uint32_t nSum = 0;
  char chCharacter = 0;
  for (ReadChar(&file, &chCharacter); file.bEof == 0 && file.nError == 0;
       ReadChar(&file, &chCharacter)) {
    if (chCharacter != kEndOfLine) nSum = nSum * 31 + static_cast<unsigned char>(chCharacter);
  }
  Close(&file);
  return nSum;
}

std::uint32_t ReadCharsC(const Sample& sample, std::size_t nBuffer) {
  const CFile file = OpenC(sample.sFrom, "rb", nBuffer);
  std::uint32_t nSum = 0;
  for (int c = std::getc(file.get()); c != EOF; c = std::getc(file.get())) {
    if (c != '\r' && c != '\n') nSum = nSum * 31 + static_cast<unsigned>(c);
  }
  return nSum;
}

void WriteLines(const Sample& sample) {
  File file;
  Create(&file, sample.sTo.c_str());
  for (const std::string& sLine : sample.lines) WriteLn(&file, sLine.c_str());
  Close(&file);
}

void WriteLinesC(const Sample& sample, std::size_t nBuffer) {
  const CFile file = OpenC(sample.sTo, "wb", nBuffer);
  for (const std::string& sLine : sample.lines) {
    std::fputs(sLine.c_str(), file.get());
    std::fputs("\r\n", file.get());
  }
}

// Readings of one operation, which all have to give the first one's sum.
template <class TRead>
void AddReader(CHarness& harness, const char* szOperation, const char* szPeer, std::size_t nCount,
               std::uint32_t nExpected, TRead read) {
  harness.Add({szOperation, "M", szPeer, nCount, [read] { Keep(read()); },
               [read, nExpected] {
                 return read() == nExpected ? std::string() : "another sum of the characters";
               }});
}

template <class TWrite>
void AddWriter(CHarness& harness, const Sample& sample, const char* szOperation, const char* szPeer,
               std::size_t nCount, TWrite write) {
  harness.Add({szOperation, "M", szPeer, nCount, write, [&sample, write] {
                 std::filesystem::remove(sample.sTo);
                 write();
                 return sample.FaultOfWritten();
               }});
}

void AddCases(CHarness& harness, const Sample& sample) {
  constexpr std::size_t kOwnBuffer = 0;
  const auto add = [&](const char* szPeer, auto lines, auto chars, auto write) {
    std::uint32_t nLines = 0;
    std::uint32_t nChars = 0;
    for (const std::string& sLine : sample.lines) {
      nLines = Sum(nLines, sLine.data(), sLine.size());
      for (const char c : sLine) nChars = nChars * 31 + static_cast<unsigned char>(c);
    }
    AddReader(harness, "read line", szPeer, kLines, nLines, lines);
    AddReader(harness, "read char", szPeer, sample.sBytes.size(), nChars, chars);
    AddWriter(harness, sample, "write line", szPeer, kLines, write);
  };
  add(
      "aldlib", [&sample] { return ReadLines(sample); }, [&sample] { return ReadChars(sample); },
      [&sample] { WriteLines(sample); });
  const auto addC = [&](const char* szPeer, std::size_t nBuffer) {
    add(
        szPeer, [&sample, nBuffer] { return ReadLinesC(sample, nBuffer); },
        [&sample, nBuffer] { return ReadCharsC(sample, nBuffer); },
        [&sample, nBuffer] { WriteLinesC(sample, nBuffer); });
  };
  addC("stdio", kOwnBuffer);
  addC("stdio, 256", kFileBufferSize);

  AddWriter(harness, sample, "copy", "aldlib", 1,
            [&sample] { CopyFile2(sample.sTo.c_str(), sample.sFrom.c_str(), 1); });
  AddWriter(harness, sample, "copy", "filesystem", 1, [&sample] {
    std::filesystem::copy_file(sample.sFrom, sample.sTo,
                               std::filesystem::copy_options::overwrite_existing);
  });
  for (const char* szOperation : {"read line", "read char", "write line"}) {
    harness.Want(szOperation, "M", "stdio", 0.5, 1);
    harness.Want(szOperation, "M", "stdio, 256", 1, 0);
  }
  harness.Want("copy", "M", "filesystem", 0.5, 1);
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  const ald::bench::Sample sample;
  ald::bench::CHarness harness("files", "aldlib");
  ald::bench::AddCases(harness, sample);
  return harness.Main(argc, argv);
}
