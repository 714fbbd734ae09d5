#include "aldlib/frame/Failures.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

namespace ald {
namespace {

struct TellingException : CUserException {
  bool GetErrorMessage(char* szError, unsigned nMaxError) noexcept override {
    std::memset(szError, '!', nMaxError);
    ++m_nAsked;
    return true;
  }
  int m_nAsked = 0;
};

template <class Caught>
std::uint32_t CodeOf(Caught caught) {
  char szBuffer[] = "untouched";
  std::uint32_t nCode = 0;
  HandleCatch(caught, "text", 17, szBuffer, &nCode);
  EXPECT_STREQ(szBuffer, "untouched");
  HandleCatch(caught, nullptr, 0, nullptr, nullptr);
  return nCode;
}

TEST(HandleCatch, ReducesWhatWasCaughtToANumber) {
  COleException component;
  CUserException user;
  CException plain;
  const std::runtime_error standard("what");
  EXPECT_EQ(CodeOf(&component), 1U);
  EXPECT_EQ(CodeOf(&user), 2U);
  EXPECT_EQ(CodeOf(&plain), 3U);
  EXPECT_EQ(CodeOf(&standard), 4U);
  EXPECT_EQ(CodeOf(std::uint32_t{5}), 99U);
  EXPECT_EQ(CodeOf(static_cast<COleException*>(nullptr)), 1U);
  EXPECT_EQ(CodeOf(static_cast<CException*>(&user)), 3U);  // the type in the catch decides
}

TEST(HandleCatch, AsksTheExceptionForAMessageThatGoesNoFurther) {
  TellingException told;
  EXPECT_EQ(CodeOf(static_cast<CUserException*>(&told)), 2U);
  EXPECT_EQ(told.m_nAsked, 2);
}

}  // namespace
}  // namespace ald
