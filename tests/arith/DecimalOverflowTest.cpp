#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/FixedDecimal.h"

// Values past the limits: what shows, what is kept, who is told, and when.
namespace ald::test {

namespace {

using namespace literals;

std::vector<const CDecimal*> g_told;
bool g_bAccept = true;

bool Handle(CDecimal* pValue, DEC_STATUS eStatus) {
  g_told.push_back(pValue);
  return g_bAccept && CDecimal::DefaultErrorHandler(pValue, eStatus);
}

bool HasItem(const CDecimal& value) {
  return CDecimal::GetOverflowItem(&value) != nullptr;
}

class DecimalOverflow : public testing::Test {
 protected:
  DecimalOverflow() {
    CDecimal::SetErrorHandler(&Handle);
    g_told.clear();
    g_bAccept = true;
  }
  ~DecimalOverflow() override {
    CDecimal::SetErrorHandler(&CDecimal::DefaultErrorHandler);
    EXPECT_EQ(CDecimal::m_pTlsData->m_pOverflowItems, nullptr) << "an item outlived its object";
  }

  const CDecimal m_max = CDecimal::ms_nMaxValue;
};

}  // namespace

TEST_F(DecimalOverflow, KeepsTheExactValueBehindTheLimit) {
  CDecimal x = m_max;
  x += 0.000000001_dec;
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
  EXPECT_EQ(x.GetBytes(), m_max.GetBytes());
  EXPECT_GT(x, m_max) << "two values that show the limit differ by what they are";
  EXPECT_STREQ(x.toRawString(9), "100000000000000.000000000");
  EXPECT_EQ(CDecimal::FromBytes(x.GetBytes()), m_max) << "a copy of the bytes is just the limit";
  x -= 0.000000001_dec;
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
  EXPECT_EQ(x, m_max);
  EXPECT_FALSE(HasItem(x));
  EXPECT_EQ(g_told.size(), 1U);
}

TEST_F(DecimalOverflow, IsSilentWhereAnExpressionComesBack) {
  const CDecimal x = (m_max + m_max) - m_max;
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
  EXPECT_EQ(x, m_max);
  EXPECT_EQ(m_max * 7 * 1000 / 7 / 1000, m_max);
  EXPECT_TRUE(g_told.empty());
}

TEST_F(DecimalOverflow, IsReportedOnceWhenItLandsInAVariable) {
  CDecimal x;
  x = m_max + m_max;
  EXPECT_EQ(g_told, std::vector<const CDecimal*>{&x});
  EXPECT_TRUE(CDecimal::GetOverflowItem(&x)->m_bHandled);

  CDecimal y;
  y = x;
  EXPECT_EQ(g_told.size(), 1U) << "dealt with already";
  EXPECT_FALSE(CDecimal::GetOverflowItem(&y)->m_bHandled) << "yet a copy may be reported";
  const CDecimal copy(y);
  EXPECT_TRUE(HasItem(copy));
  EXPECT_EQ(g_told.size(), 1U) << "a copy says nothing";
  x = y;
  EXPECT_EQ(g_told.size(), 2U);
}

TEST_F(DecimalOverflow, IsOfferedAgainToAHandlerThatRefuses) {
  g_bAccept = false;
  CDecimal x = m_max;
  x += m_max;
  EXPECT_EQ(g_told.size(), 2U) << "by the assignment of the sum, and by the end of the operation";
  x.ShiftByPower10(1);
  EXPECT_EQ(g_told.size(), 3U);
  CDecimal y = m_max;
  y.ShiftByPower10(1);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
  EXPECT_EQ(g_told.size(), 3U) << "without an exact value nobody is told";
}

TEST_F(DecimalOverflow, FreezesTheRegistryWhileAHandlerRuns) {
  CDecimal::SetErrorHandler([](CDecimal* pValue, DEC_STATUS) {
    const CBigInt<160> exact = pValue->toMathType();
    CDecimal other(*pValue);
    EXPECT_FALSE(HasItem(other));
    EXPECT_FALSE(CDecimal::InsertOrUpdateOverflowItem(DEC_OVERFLOW, &other, exact));
    EXPECT_FALSE(CDecimal::UpdateOverflowItemOnCopy(&other, *pValue));
    EXPECT_FALSE(CDecimal::UpdateOverflowItemOnAssignment(&other, *pValue));
    EXPECT_FALSE(CDecimal::RemovePossibleOverflowItem(pValue));
    EXPECT_FALSE(HasItem(other));
    other += 1;
    EXPECT_EQ(other, CDecimal::ms_nMaxValue) << "a new value past the limits is just the limit";
    pValue->SetToZero();
    EXPECT_EQ(pValue->toMathType(), exact);
    return true;
  });
  CDecimal x;
  x = m_max + 1_dec;
  EXPECT_EQ(x.GetBytes(), CDecimal().GetBytes()) << "the handler's doing";
  EXPECT_STREQ(x.toRawString(0), "100000000000001");
}

// The registry takes no new items then, but the item of the operand still tells its value.
TEST_F(DecimalOverflow, CalculatesWithTheExactValueInsideAHandlerToo) {
  CDecimal::SetErrorHandler([](CDecimal* pValue, DEC_STATUS) {
    *pValue *= 0.1_dec;
    EXPECT_EQ(CDecimal::FromBytes(pValue->GetBytes()), 30'000'000'000'000_dec);
    *pValue /= 100_dec;  // of the exact value, which stands as it was
    EXPECT_EQ(CDecimal::FromBytes(pValue->GetBytes()), 3'000'000'000'000_dec);
    return true;
  });
  CDecimal x;
  x = 100'000'000'000_dec * 3000_dec;
}

TEST_F(DecimalOverflow, TellsWhetherTheRegistryChanged) {
  const CDecimal x(5);
  CDecimal y(6);
  EXPECT_FALSE(CDecimal::RemovePossibleOverflowItem(&x));
  EXPECT_TRUE(CDecimal::InsertOrUpdateOverflowItem(DEC_TEXT_OVERFLOW, &x, 77));
  EXPECT_EQ(x.toMathType(), 77);
  EXPECT_EQ(CDecimal::GetOverflowItem(&x)->m_eStatus, DEC_TEXT_OVERFLOW);
  EXPECT_TRUE(CDecimal::UpdateOverflowItemOnCopy(&y, x));
  EXPECT_TRUE(CDecimal::UpdateOverflowItemOnAssignment(&y, x));
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_TEXT_OVERFLOW);
  EXPECT_EQ(g_told, std::vector<const CDecimal*>{&y});
  EXPECT_TRUE(CDecimal::RemovePossibleOverflowItem(&x));
  CDecimal::UpdateOverflowItemOnCopy(&y, x);
  EXPECT_FALSE(HasItem(y));
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

TEST_F(DecimalOverflow, IsHandledByTheLimitsUnlessToldOtherwise) {
  const CDecimal& one = CDecimal::ms_One;
  const struct {
    DEC_STATUS eStatus;
    const CDecimal& before;
    bool bDone;
    const CDecimal& after;
  } rows[] = {
      {DEC_OVERFLOW, one, true, CDecimal::ms_nMaxValue},
      {DEC_TEXT_OVERFLOW, CDecimal::ms_MinusOne, true, CDecimal::ms_nMinValue},
      {DEC_UNDERFLOW, one, true, CDecimal::ms_Zero},
      {DEC_TEXT_UNDERFLOW, CDecimal::ms_MinusOne, true, CDecimal::ms_Zero},
      {DEC_BAD_FORMAT, one, false, one},
      {DEC_DIVIDE_BY_ZERO, one, false, one},
      {DEC_OK, one, false, one},
      {DEC_TRUNCATED, one, false, one},
  };
  for (const auto& row : rows) {
    CDecimal value(row.before);
    EXPECT_EQ(CDecimal::DefaultErrorHandler(&value, row.eStatus), row.bDone) << row.eStatus;
    EXPECT_EQ(value, row.after) << row.eStatus;
    EXPECT_FALSE(CDecimal::DefaultErrorHandler(nullptr, row.eStatus));
  }
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(MATH_OK), DEC_OK);
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(MATH_OVERFLOW), DEC_OVERFLOW);
  EXPECT_EQ(CDecimal::ConvertMathErrorToDecStatus(17), DEC_DIVIDE_BY_ZERO);
  EXPECT_EQ(CDecimal::SetErrorHandler(nullptr), &Handle);
}

}  // namespace ald::test
