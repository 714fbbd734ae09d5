#include "tests/arith/Twins.h"

#include <algorithm>
#include <cstdlib>

namespace ald::test {

namespace {

std::vector<reference::Call> g_calls;
Handler g_eHandler = Handler::kNone;

bool RecordingHandler(CDecimal* pValue, DEC_STATUS eStatus) {
  g_calls.push_back({pValue, eStatus, pValue->GetBytes()});
  if (g_eHandler == Handler::kDefault) return CDecimal::DefaultErrorHandler(pValue, eStatus);
  return g_eHandler == Handler::kAccept;
}

std::string Hex(const reference::Bytes& bytes) {
  std::string sText;
  for (const unsigned nByte : bytes) {
    sText += "0123456789ABCDEF"[nByte >> 4];
    sText += "0123456789ABCDEF"[nByte & 15U];
  }
  return sText;
}

}  // namespace

void SetHandlers(Handler eHandler) {
  g_eHandler = eHandler;
  CDecimal::SetErrorHandler(eHandler == Handler::kNone ? nullptr : &RecordingHandler);
  g_calls.clear();
  reference::g_state = reference::State();
  reference::g_state.eHandler = eHandler;
  reference::g_state.eLast = CDecimal::GetLastStatus();
}

testing::AssertionResult Agree(std::initializer_list<const Twin*> twins) {
  const CDecimal::CALWThreadData& data = *CDecimal::m_pTlsData;
  testing::AssertionResult failure = testing::AssertionFailure();
  bool bAgree = true;
  const auto differ = [&](const std::string& sWhat) {
    bAgree = false;
    failure << sWhat << "; ";
  };
  bool bItems = false;
  for (const Twin* pTwin : twins) {
    const reference::Decimal& plain = pTwin->plain;
    if (pTwin->real.GetBytes() != plain.GetBytes()) {
      differ("bytes " + Hex(pTwin->real.GetBytes()) + " instead of " + Hex(plain.GetBytes()));
    }
    const CDecimal::COverflowItem* pItem = CDecimal::GetOverflowItem(&pTwin->real);
    bItems = bItems || plain.m_item;
    if ((pItem != nullptr) != plain.m_item.has_value()) {
      differ(pItem != nullptr ? "an item too many" : "no item");
    } else if (pItem != nullptr) {
      if (pItem->m_pOwner != &pTwin->real) differ("a wrong owner");
      if (pItem->m_eStatus != plain.m_item->eStatus) differ("a wrong status in the item");
      if (pItem->m_bHandled != plain.m_item->bHandled) differ("a wrong mark in the item");
      if (ToReference(pItem->m_MathValue) != plain.m_item->value) {
        differ("exact value " + pItem->m_MathValue.toDecimalString() + " instead of " +
               plain.m_item->value.ToDecimal());
      }
    }
  }
  if (bItems != (data.m_pOverflowItems != nullptr)) differ("a wrong registry");
  if (data.m_eLastStatus != reference::g_state.eLast) {
    differ(std::string("status ") + StatusName(data.m_eLastStatus) + " instead of " +
           StatusName(reference::g_state.eLast));
  }
  if (data.m_nHandlerDepth != 0 || data.m_nExpressionDepth != 0) differ("a depth left over");

  const auto& calls = reference::g_state.calls;
  const auto isSame = [&twins](const reference::Call& real, const reference::Call& plain) {
    const auto isTarget = [&](const Twin* pTwin) {
      return (real.pObject == &pTwin->real) != (plain.pObject == &pTwin->plain);
    };
    return real.eStatus == plain.eStatus && real.bytes == plain.bytes &&
           std::none_of(twins.begin(), twins.end(), isTarget);
  };
  if (!std::equal(g_calls.begin(), g_calls.end(), calls.begin(), calls.end(), isSame)) {
    differ(std::to_string(g_calls.size()) + " handler calls, not the " +
           std::to_string(calls.size()) + " due");
  }
  g_calls.clear();
  reference::g_state.calls.clear();
  return bAgree ? testing::AssertionSuccess() : failure;
}

void Load(Twin& twin, const reference::Decimal& value) {
  twin.real = CDecimal::FromBytes(value.GetBytes());
  twin.plain = value;
}

void Load(Twin& twin, const reference::Integer& math) {
  twin.real.fromMathType(ToBigInt<160>(math));
  twin.plain.fromMathType(math);
}

int Rounds(int nRounds) {
  static const char* const kTimes = std::getenv("ALDLIB_ARITH_ROUNDS");
  return kTimes == nullptr ? nRounds : nRounds * std::atoi(kTimes);
}

int Below(Random& random, int nEnd) {
  return static_cast<int>(random() % static_cast<unsigned>(nEnd));
}

reference::Integer RandomInteger(Random& random, int nWords) {
  constexpr std::uint32_t kEdges[] = {0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
  reference::Integer result(nWords);
  const int nKind = Below(random, 4);
  const int nUsed = 1 + Below(random, nWords);
  for (int i = 0; i < nUsed; ++i) {
    const bool bEdge = nKind == 0 || (nKind == 1 && Below(random, 2) == 0);
    result.m_words[static_cast<std::size_t>(i)] =
        bEdge ? kEdges[Below(random, 5)] : static_cast<std::uint32_t>(random());
  }
  if (Below(random, 2) == 0) result.Negate();
  return result;
}

reference::Decimal RandomDecimal(Random& random) {
  reference::Decimal value;
  const int nKind = Below(random, 16);
  const int nFirst = Below(random, 23);
  const int nEnd = nFirst + 1 + Below(random, 23 - nFirst);
  for (int i = nFirst; i < nEnd; ++i) {
    value.m_digits[static_cast<std::size_t>(i)] = nKind == 0 ? 9 : Below(random, 10);
  }
  if (nKind == 1) value = reference::Decimal::OneDigit(nFirst, 1);
  if (nKind == 2) value = reference::Decimal::OneDigit(nFirst, 5);
  if (nKind == 3) value = reference::Decimal::OneDigit(0, Below(random, 10));
  if (nKind == 4) value = reference::Decimal::Limit(false);
  if (nKind == 5) value = reference::Decimal();
  if (nKind >= 12) std::fill_n(value.m_digits.begin(), 7, 0);  // an amount of money
  if (Below(random, 2) == 0 && (nKind != 5 || Below(random, 4) == 0)) value.m_nSign = 0xD;
  return value;
}

std::string Show(const reference::Decimal& value) {
  return (value.IsNegative() ? "-" : "") + Hex(value.GetBytes()).substr(0, 23) +
         (value.m_item ? " exactly " + value.m_item->value.ToDecimal() : "");
}

}  // namespace ald::test
