#include "tests/arith/Twins.h"

#include <cstdlib>

namespace ald::test {

namespace {

using reference::g_state;

std::vector<reference::Call> g_calls;
Handler g_eHandler = Handler::kNone;

bool RecordingHandler(CDecimal* pValue, DEC_STATUS eStatus) {
  g_calls.push_back({pValue, eStatus, pValue->GetBytes()});
  if (g_eHandler == Handler::kDefault) return CDecimal::DefaultErrorHandler(pValue, eStatus);
  return g_eHandler == Handler::kAccept;
}

bool IsSame(const Twin& twin) {
  if (twin.real.GetBytes() != twin.plain.GetBytes()) return false;
  const CDecimal::COverflowItem* pItem = CDecimal::GetOverflowItem(&twin.real);
  const auto& item = twin.plain.m_item;
  if (pItem == nullptr || !item) return pItem == nullptr && !item;
  return pItem->m_pOwner == &twin.real && pItem->m_eStatus == item->eStatus &&
         pItem->m_bHandled == item->bHandled && ToReference(pItem->m_MathValue) == item->value;
}

std::string ShowDigits(const reference::Bytes& bytes) {
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
  g_state = reference::State();
  g_state.eHandler = eHandler;
  g_state.eLast = CDecimal::GetLastStatus();
}

testing::AssertionResult Agree(std::initializer_list<const Twin*> twins) {
  const CDecimal::CALWThreadData& data = *CDecimal::m_pTlsData;
  std::string sWrong;
  bool bItems = false;
  for (const Twin* pTwin : twins) {
    bItems = bItems || pTwin->plain.m_item;
    if (IsSame(*pTwin)) continue;
    sWrong += Show(pTwin->real) + " instead of " + Show(pTwin->plain) + "; ";
  }
  if (bItems != (data.m_pOverflowItems != nullptr)) sWrong += "the registry; ";
  if (data.m_nHandlerDepth != 0 || data.m_nExpressionDepth != 0) sWrong += "a depth left over; ";
  if (data.m_eLastStatus != g_state.eLast) {
    sWrong += StatusName(data.m_eLastStatus) + std::string(" instead of ") +
              StatusName(g_state.eLast) + "; ";
  }
  const auto isSameCall = [&twins](const reference::Call& real, const reference::Call& plain) {
    return real.eStatus == plain.eStatus && real.bytes == plain.bytes &&
           std::all_of(twins.begin(), twins.end(), [&](const Twin* pTwin) {
             return (real.pObject == &pTwin->real) == (plain.pObject == &pTwin->plain);
           });
  };
  if (!std::equal(g_calls.begin(), g_calls.end(), g_state.calls.begin(), g_state.calls.end(),
                  isSameCall)) {
    sWrong += std::to_string(g_calls.size()) + " calls of the handler, not the " +
              std::to_string(g_state.calls.size()) + " due; ";
  }
  g_calls.clear();
  g_state.calls.clear();
  return sWrong.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << sWrong;
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
  using reference::Decimal;
  const int nKind = Below(random, 16);
  const int nFirst = Below(random, 23);
  const int nEnd = nFirst + 1 + Below(random, 23 - nFirst);
  Decimal value;
  for (int i = nFirst; i < nEnd; ++i) {
    value.m_digits[static_cast<std::size_t>(i)] = nKind == 0 ? 9 : Below(random, 10);
  }
  if (nKind == 1) value = Decimal::OneDigit(nFirst, 1);
  if (nKind == 2) value = Decimal::OneDigit(nFirst, 5);
  if (nKind == 3) value = Decimal::OneDigit(0, Below(random, 10));
  if (nKind == 4) value = Decimal::Limit(false);
  if (nKind == 5) value = Decimal();
  if (nKind == 6) {
    // What just fits a word of the machine, or just does not, scaled by some power of ten.
    const mpz_class edge =
        (mpz_class(1) << (26U + random() % 102U)) / reference::Power(Below(random, 20));
    mpz_class math = (edge + Below(random, 3)) * reference::Power(Below(random, 2) * 7);
    for (int& nDigit : value.m_digits) {
      nDigit = static_cast<int>(mpz_class(math % 10).get_si());
      math /= 10;
    }
  }
  if (nKind >= 10) std::fill_n(value.m_digits.begin(), 7, 0);
  if (Below(random, 2) == 0) value.m_nSign = 0xD;
  return value;
}

std::string Show(const reference::Decimal& value) {
  return ShowDigits(value.GetBytes()) +
         (value.m_item ? " (exactly " + value.m_item->value.Value().get_str() + ")" : "");
}

std::string Show(const CDecimal& value) {
  const CDecimal::COverflowItem* pItem = CDecimal::GetOverflowItem(&value);
  return ShowDigits(value.GetBytes()) +
         (pItem != nullptr ? " (exactly " + pItem->m_MathValue.toDecimalString() + ")" : "");
}

}  // namespace ald::test
