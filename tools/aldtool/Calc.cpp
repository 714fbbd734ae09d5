#include <iostream>
#include <string>
#include <string_view>

#include "aldlib/arith/FixedDecimal.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

using ald::CDecimal;

// Evaluates while it reads: sums of products of signed operands. The binary operators carry a value
// past the limits along exactly, so only the end result has to fit.
class Evaluator {
 public:
  explicit Evaluator(std::string_view sText) : m_sText(sText) {}

  // Returns whether the whole text is an expression; Trouble() says why not.
  bool Evaluate(CDecimal& result) {
    result = Sum();
    if (!Failed() && !AtEnd()) Fail("an operator is wanted here");
    return !Failed();
  }
  const std::string& Trouble() const { return m_sTrouble; }
  std::size_t Position() const { return m_nPosition; }

 private:
  static constexpr int kDeepest = 200;

  CDecimal Sum() {
    CDecimal value = Product();
    while (!Failed()) {
      if (Take('+')) {
        value = value + Product();
      } else if (Take('-')) {
        value = value - Product();
      } else {
        break;
      }
    }
    return value;
  }

  CDecimal Product() {
    CDecimal value = Operand();
    while (!Failed()) {
      if (Take('*')) {
        value = value * Operand();
      } else if (Take('/')) {
        value = value / Operand();
      } else {
        break;
      }
    }
    return value;
  }

  CDecimal Operand() {
    if (++m_nDepth > kDeepest) Fail("nested too deep");
    CDecimal value;
    if (Failed()) return value;
    if (Take('-')) {
      value = -Operand();
    } else if (Take('+')) {
      value = Operand();
    } else if (Take('(')) {
      value = Sum();
      if (!Failed() && !Take(')')) Fail("a closing parenthesis is wanted here");
    } else {
      value = Number();
    }
    --m_nDepth;
    return value;
  }

  CDecimal Number() {
    AtEnd();
    const std::size_t nStart = m_nPosition;
    while (m_nPosition < m_sText.size() &&
           std::string_view("0123456789.").find(m_sText[m_nPosition]) != std::string_view::npos) {
      ++m_nPosition;
    }
    const std::string sNumber(m_sText.substr(nStart, m_nPosition - nStart));
    CDecimal value;
    if (sNumber.empty()) {
      Fail("a number is wanted here");
      return value;
    }
    value.fromRawString(sNumber.c_str());
    const ald::DEC_STATUS eStatus = CDecimal::GetLastStatus();
    if (eStatus != ald::DEC_OK) {
      m_nPosition = nStart;
      Fail("'" + sNumber + "' cannot be read: " + ald::StatusName(eStatus));
    }
    return value;
  }

  bool AtEnd() {
    while (m_nPosition < m_sText.size() && m_sText[m_nPosition] == ' ') ++m_nPosition;
    return m_nPosition == m_sText.size();
  }
  bool Take(char c) {
    if (AtEnd() || m_sText[m_nPosition] != c) return false;
    ++m_nPosition;
    return true;
  }
  bool Failed() const { return !m_sTrouble.empty(); }
  void Fail(std::string sTrouble) {
    if (!Failed()) m_sTrouble = std::move(sTrouble);
  }

  std::string_view m_sText;
  std::size_t m_nPosition = 0;
  int m_nDepth = 0;
  std::string m_sTrouble;
};

}  // namespace

int RunCalc(const std::string& sExpression) {
  Evaluator evaluator(sExpression);
  CDecimal result;
  if (!evaluator.Evaluate(result)) {
    std::cerr << "aldtool: " << evaluator.Trouble() << ":\n  " << sExpression << "\n  "
              << std::string(evaluator.Position(), ' ') << "^\n";
    return kUnusable;
  }
  const ald::DEC_STATUS eStatus = CDecimal::GetLastStatus();
  std::cout << result << "  " << ald::StatusName(eStatus) << '\n';
  return ald::IsSuccess(eStatus) ? kGood : kBadLines;
}

}  // namespace aldtool
