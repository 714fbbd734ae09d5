#include <boost/multiprecision/cpp_int.hpp>

#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// Boost's integer of 160 bits on the stack, times 10^9: room for the product of two numbers of 23
// digits.
namespace ald::bench {

namespace {

namespace mp = boost::multiprecision;

struct CppInt : PeerBase {
  static constexpr const char* kName = "cpp_int";
  using Value = mp::number<mp::cpp_int_backend<160, 160, mp::signed_magnitude, mp::unchecked, void>,
                           mp::et_off>;
  static constexpr unsigned kUnit = 1'000'000'000;

  static void Set(Value& value, Int128 n) { value = n; }
  static Int128 Get(const Value& value) { return value.convert_to<Int128>(); }
  static void Add(Value& result, const Value& a, const Value& b) { mp::add(result, a, b); }
  static void Subtract(Value& result, const Value& a, const Value& b) {
    mp::subtract(result, a, b);
  }
  static void Multiply(Value& result, const Value& a, const Value& b) {
    mp::multiply(result, a, b);
    if (result.sign() < 0) {
      result -= kUnit / 2;
    } else {
      result += kUnit / 2;
    }
    result /= kUnit;
  }
  static void Divide(Value& result, const Value& a, const Value& b) {
    Value scaled = a;
    scaled *= kUnit;
    Value half = b;
    half >>= 1;
    if (a.sign() == b.sign()) {
      scaled += half;
    } else {
      scaled -= half;
    }
    mp::default_ops::eval_divide(result.backend(), scaled.backend(), b.backend());
  }
  static bool Less(const Value& a, const Value& b) { return a < b; }
};

}  // namespace

void AddCppInt(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<CppInt>(harness, sets);
}

}  // namespace ald::bench
