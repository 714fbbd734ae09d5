#include <boost/multiprecision/cpp_dec_float.hpp>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// Boost's floating decimal of 34 digits, as it is: products and quotients keep all their digits.
namespace ald::bench {

namespace {

namespace mp = boost::multiprecision;

struct CppDecFloat : PeerBase {
  static constexpr const char* kName = "cpp_dec_float";
  static constexpr bool kIsFloating = true;
  using Value = mp::number<mp::cpp_dec_float<34>, mp::et_off>;

  static void Set(Value& value, Int128 n) { value.assign(ExactText(n, 9)); }
  static Int128 Get(const Value& value) {
    const Value scaled = mp::round(value * 1'000'000'000);
    Int128 n = 0;
    for (const char c : scaled.str(0, std::ios_base::fixed)) {
      if (c == '.') break;
      if (c != '-') n = n * 10 + (c - '0');
    }
    return scaled < 0 ? -n : n;
  }
  static void Add(Value& result, const Value& a, const Value& b) { mp::add(result, a, b); }
  static void Subtract(Value& result, const Value& a, const Value& b) {
    mp::subtract(result, a, b);
  }
  static void Multiply(Value& result, const Value& a, const Value& b) {
    mp::multiply(result, a, b);
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    mp::default_ops::eval_divide(result.backend(), a.backend(), b.backend());
  }
  static bool Less(const Value& a, const Value& b) { return a < b; }
  static void Read(Value& value, const char* szText) { value.assign(szText); }
  static std::string Write(const Value& value, int nDecimals) {
    return value.str(nDecimals, std::ios_base::fixed);
  }
};

}  // namespace

void AddCppDecFloat(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<CppDecFloat>(harness, sets);
}

}  // namespace ald::bench
