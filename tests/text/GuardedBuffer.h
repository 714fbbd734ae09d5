#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(pStart, nSize) \
  (static_cast<void>(pStart), static_cast<void>(nSize))
#define ASAN_UNPOISON_MEMORY_REGION(pStart, nSize) \
  (static_cast<void>(pStart), static_cast<void>(nSize))
#endif

#include "aldlib/text/FixedString.h"

namespace ald {

// A text buffer between two guards. The sanitizer sees a read of a guard, the end of the test a
// write.
class GuardedBuffer {
 public:
  GuardedBuffer(std::int32_t nSize, std::string_view sText)
      : m_nSize(static_cast<std::size_t>(nSize)), m_bytes(m_nSize + 2 * kGuard, kMark) {
    std::fill_n(Start(), m_nSize, '\0');
    sText.copy(Start(), m_nSize);
    ASAN_POISON_MEMORY_REGION(m_bytes.data(), kGuard);
    ASAN_POISON_MEMORY_REGION(Start() + m_nSize, kGuard);
  }
  ~GuardedBuffer() {
    ASAN_UNPOISON_MEMORY_REGION(m_bytes.data(), kGuard);
    ASAN_UNPOISON_MEMORY_REGION(Start() + m_nSize, kGuard);
    const auto isMark = [](char ch) { return ch == kMark; };
    EXPECT_TRUE(std::all_of(m_bytes.data(), Start(), isMark)) << "written below the buffer";
    EXPECT_TRUE(std::all_of(Start() + m_nSize, m_bytes.data() + m_bytes.size(), isMark))
        << "written behind the buffer";
  }
  GuardedBuffer(const GuardedBuffer&) = delete;
  GuardedBuffer& operator=(const GuardedBuffer&) = delete;

  CFixedStringParamRef Ref() { return {Start(), static_cast<std::int32_t>(m_nSize)}; }
  std::string Text() { return std::string(Ref().view()); }
  std::string Bytes() { return std::string(Start(), m_nSize); }
  // Leaves old bytes behind the terminator, as a cut without cleaning does.
  void Soil() {
    for (std::size_t i = Text().size() + 1; i + 1 < m_nSize; ++i) Start()[i] = '#';
  }
  // The text, for a routine that must have zeroed everything behind it; a mark in it if not.
  std::string CleanText() {
    const std::string sText = Text();
    const bool bClean =
        std::all_of(Start() + sText.size(), Start() + m_nSize, [](char ch) { return ch == '\0'; });
    return bClean ? sText : sText + "<old bytes behind the text>";
  }

 private:
  static constexpr std::size_t kGuard = 16;
  static constexpr char kMark = '\x5A';
  char* Start() { return m_bytes.data() + kGuard; }

  std::size_t m_nSize;
  std::vector<char> m_bytes;
};

// Repeatable random input: short texts of few characters, so that patterns are found in them.
class RandomText {
 public:
  int Number(int nLow, int nHigh) {
    return std::uniform_int_distribution<int>(nLow, nHigh)(m_engine);
  }
  std::string Text(int nLongest, std::string_view sAlphabet) {
    std::string sText(static_cast<std::size_t>(Number(0, nLongest)), ' ');
    for (char& ch : sText) {
      ch = sAlphabet[static_cast<std::size_t>(Number(0, static_cast<int>(sAlphabet.size()) - 1))];
    }
    return sText;
  }

 private:
  std::mt19937 m_engine{20240229};
};

}  // namespace ald
