#include <gtest/gtest.h>

#include <cstring>
#include <new>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/FixedDecimal.h"

// Values past the limits: what shows, what is kept, who is told, and when.
namespace ald::test {

namespace {

struct Call {
  CDecimal* pValue;
  DEC_STATUS eStatus;
};
std::vector<Call> g_calls;

bool Accept(CDecimal* pValue, DEC_STATUS eStatus) {
  g_calls.push_back({pValue, eStatus});
  return CDecimal::DefaultErrorHandler(pValue, eStatus);
}

bool Refuse(CDecimal* pValue, DEC_STATUS eStatus) {
  g_calls.push_back({pValue, eStatus});
  return false;
}

class DecimalOverflow : public testing::Test {
 protected:
  DecimalOverflow() {
    CDecimal::SetErrorHandler(&Accept);
    g_calls.clear();
  }
  ~DecimalOverflow() override {
    CDecimal::SetErrorHandler(&CDecimal::DefaultErrorHandler);
    EXPECT_EQ(CDecimal::m_pTlsData->m_pOverflowItems, nullptr) << "an item outlived its object";
  }

  const CDecimal m_max = CDecimal::ms_nMaxValue;
  const CDecimal m_least = CDecimal::ms_Smallest;
};

bool HasItem(const CDecimal& value) {
  return CDecimal::GetOverflowItem(&value) != nullptr;
}

}  // namespace

TEST_F(DecimalOverflow, KeepsTheExactValueBehindTheLimit) {
  CDecimal x = m_max;
  x.op_Add(m_least);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
  EXPECT_EQ(x.GetBytes(), m_max.GetBytes());
  EXPECT_GT(x, m_max) << "two values that show the limit differ by what they are";
  EXPECT_STREQ(x.toRawString(9), "100000000000000.000000000");
  x.op_Subtract(m_least);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
  EXPECT_EQ(x, m_max);
  EXPECT_FALSE(HasItem(x));
  EXPECT_EQ(g_calls.size(), 1U);
}

TEST_F(DecimalOverflow, IsSilentWhereAnExpressionComesBack) {
  const CDecimal x = (m_max + m_max) - m_max;
  EXPECT_EQ(x, m_max);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
  const CDecimal y = m_max * 7 * 1000 / 7 / 1000;
  EXPECT_EQ(y, m_max);
  EXPECT_TRUE(g_calls.empty());
}

TEST_F(DecimalOverflow, IsReportedOnceWhenItLandsInAVariable) {
  CDecimal x;
  x = m_max + m_least;
  ASSERT_EQ(g_calls.size(), 1U);
  EXPECT_EQ(g_calls[0].pValue, &x);
  EXPECT_EQ(g_calls[0].eStatus, DEC_OVERFLOW);
  EXPECT_TRUE(CDecimal::GetOverflowItem(&x)->m_bHandled);

  CDecimal y;
  y = x;
  EXPECT_EQ(g_calls.size(), 1U) << "dealt with already";
  EXPECT_FALSE(CDecimal::GetOverflowItem(&y)->m_bHandled) << "yet the copy may be reported";
  CDecimal z;
  z = y;
  EXPECT_EQ(g_calls.size(), 2U);
  const CDecimal copy(y);
  EXPECT_TRUE(HasItem(copy));
  EXPECT_EQ(g_calls.size(), 2U) << "a copy says nothing";
}

TEST_F(DecimalOverflow, IsOfferedAgainToAHandlerThatRefuses) {
  CDecimal::SetErrorHandler(&Refuse);
  CDecimal x = m_max;
  x.op_Add(m_least);  // by the assignment of the sum, and by the end of the operation
  EXPECT_EQ(g_calls.size(), 2U);
  EXPECT_FALSE(CDecimal::GetOverflowItem(&x)->m_bHandled);
  EXPECT_EQ(x.GetBytes(), m_max.GetBytes());
  x.ShiftByPower10(1);
  EXPECT_EQ(g_calls.size(), 3U);
  CDecimal y = m_max;
  y.ShiftByPower10(1);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
  EXPECT_EQ(g_calls.size(), 3U) << "without an exact value nobody is told";
}

TEST_F(DecimalOverflow, FreezesTheRegistryWhileAHandlerRuns) {
  CDecimal::SetErrorHandler([](CDecimal* pValue, DEC_STATUS eStatus) {
    g_calls.push_back({pValue, eStatus});
    const CBigInt<160> exact = pValue->toMathType();
    const CDecimal copy(*pValue);
    EXPECT_FALSE(HasItem(copy));
    CDecimal other;
    EXPECT_FALSE(CDecimal::InsertOrUpdateOverflowItem(DEC_OVERFLOW, &other, exact));
    EXPECT_FALSE(CDecimal::UpdateOverflowItemOnCopy(&other, *pValue));
    EXPECT_FALSE(CDecimal::UpdateOverflowItemOnAssignment(&other, *pValue));
    EXPECT_FALSE(CDecimal::RemovePossibleOverflowItem(pValue));
    EXPECT_EQ(*pValue + 0, CDecimal::ms_nMaxValue) << "a result of its own has no exact value";
    pValue->SetToZero();
    EXPECT_EQ(pValue->toMathType(), exact);
    return true;
  });
  CDecimal x;
  x = m_max + m_max;
  EXPECT_EQ(g_calls.size(), 1U);
  EXPECT_EQ(x.GetBytes(), CDecimal().GetBytes()) << "the handler's doing";
  EXPECT_STREQ(x.toRawString(0), "200000000000000");
  EXPECT_EQ(CDecimal::m_pTlsData->m_nHandlerDepth, 0);
}

TEST_F(DecimalOverflow, CalculatesExactlyInsideAHandlerToo) {
  CDecimal x;
  CDecimal::SetErrorHandler([](CDecimal* pValue, DEC_STATUS) {
    const CBigInt<160> exact = pValue->toMathType();
    pValue->op_Multiply(0.1_dec);
    EXPECT_STREQ(CDecimal::FromBytes(pValue->GetBytes()).toRawString(0), "30000000000000");
    EXPECT_EQ(pValue->toMathType(), exact);
    pValue->op_Divide(100);
    EXPECT_STREQ(CDecimal::FromBytes(pValue->GetBytes()).toRawString(0), "3000000000000");
    return true;
  });
  x = CDecimal(100'000'000'000) * 3000;
}

TEST_F(DecimalOverflow, LeavesTheExactValueBehindWhenBytesAreCopied) {
  CDecimal x;
  x = m_max + m_max;
  packed::Bytes record;
  std::memcpy(record.data(), &x, sizeof x);
  const CDecimal y = CDecimal::FromBytes(record);
  EXPECT_FALSE(HasItem(y));
  EXPECT_EQ(y, m_max);
}

TEST_F(DecimalOverflow, ForgetsWhenTheAddressGetsAnotherValue) {
  alignas(CDecimal) std::byte place[sizeof(CDecimal)];
  const auto forgets = [&](const char* szName, auto&& action) {
    auto* pValue = new (place) CDecimal(m_max + m_max);
    EXPECT_TRUE(HasItem(*pValue));
    action(pValue);
    EXPECT_EQ(CDecimal::m_pTlsData->m_pOverflowItems, nullptr) << szName;
  };
  forgets("end of life", [](CDecimal* p) { p->~CFixedDecimal(); });
  forgets("new life", [](CDecimal* p) { new (p) CDecimal; });
  forgets("copy into the address", [&](CDecimal* p) { new (p) CDecimal(m_max); });
  forgets("assignment", [&](CDecimal* p) { *p = m_max; });
  forgets("zero", [](CDecimal* p) { p->SetToZero(); });
  forgets("text", [](CDecimal* p) { *p = "x"; });
  forgets("double", [](CDecimal* p) { *p = 1.5; });
  forgets("rounding away", [](CDecimal* p) { p->Round(-14); });
  forgets("times zero", [](CDecimal* p) { *p *= 0; });
}

TEST_F(DecimalOverflow, GivesTheLimitsForFailures) {
  const struct {
    DEC_STATUS eStatus;
    const CDecimal& before;
    bool bDone;
    const CDecimal& after;
  } rows[] = {
      {DEC_OVERFLOW, CDecimal::ms_One, true, CDecimal::ms_nMaxValue},
      {DEC_TEXT_OVERFLOW, CDecimal::ms_MinusOne, true, CDecimal::ms_nMinValue},
      {DEC_UNDERFLOW, CDecimal::ms_One, true, CDecimal::ms_Zero},
      {DEC_TEXT_UNDERFLOW, CDecimal::ms_MinusOne, true, CDecimal::ms_Zero},
      {DEC_BAD_FORMAT, CDecimal::ms_One, false, CDecimal::ms_One},
      {DEC_DIVIDE_BY_ZERO, CDecimal::ms_One, false, CDecimal::ms_One},
      {DEC_OK, CDecimal::ms_One, false, CDecimal::ms_One},
      {DEC_TRUNCATED, CDecimal::ms_One, false, CDecimal::ms_One},
  };
  for (const auto& row : rows) {
    CDecimal value(row.before);
    EXPECT_EQ(CDecimal::DefaultErrorHandler(&value, row.eStatus), row.bDone) << row.eStatus;
    EXPECT_EQ(value, row.after) << row.eStatus;
    EXPECT_FALSE(CDecimal::DefaultErrorHandler(nullptr, row.eStatus));
    EXPECT_EQ(IsSuccess(row.eStatus), row.eStatus >= 0);
    EXPECT_EQ(IsOverflow(row.eStatus), row.eStatus == -2 || row.eStatus == -4);
    EXPECT_EQ(IsUnderflow(row.eStatus), row.eStatus == -3 || row.eStatus == -5);
  }
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(MATH_OK), DEC_OK);
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(MATH_OVERFLOW), DEC_OVERFLOW);
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(MATH_DIVIDE_BY_ZERO), DEC_DIVIDE_BY_ZERO);
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(17), DEC_DIVIDE_BY_ZERO);
  EXPECT_EQ(CDecimal::SetErrorHandler(nullptr), &Accept);
  EXPECT_EQ(CDecimal::SetErrorHandler(&Refuse), nullptr);
}

}  // namespace ald::test
