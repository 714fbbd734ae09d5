#include "bench/ArithmeticCases.h"
#include "bench/Peers.h"

// GCC's built-in floating decimal of 34 digits, as it is: products and quotients keep all their
// digits. It has no texts.
namespace ald::bench {

namespace {

typedef float Decimal128Type __attribute__((mode(TD)));

struct Decimal128 : PeerBase {
  static constexpr const char* kName = "_Decimal128";
  static constexpr bool kIsFloating = true;
  using Value = Decimal128Type;
  static constexpr long long kHalf = 1'000'000'000'000'000'000;  // 18 digits of a number

  static void Set(Value& value, Int128 n) {
    value = (static_cast<Value>(static_cast<long long>(n / kHalf)) * static_cast<Value>(kHalf) +
             static_cast<Value>(static_cast<long long>(n % kHalf))) /
            static_cast<Value>(1'000'000'000);
  }
  static Int128 Get(const Value& value) {
    Value scaled = value * static_cast<Value>(1'000'000'000);
    const Value half = static_cast<Value>(1) / static_cast<Value>(2);
    scaled = scaled < static_cast<Value>(0) ? scaled - half : scaled + half;
    const auto nHigh = static_cast<long long>(scaled / static_cast<Value>(kHalf));
    scaled -= static_cast<Value>(nHigh) * static_cast<Value>(kHalf);
    return Int128{nHigh} * kHalf + static_cast<long long>(scaled);
  }
  static void Add(Value& result, const Value& a, const Value& b) { result = a + b; }
  static void Subtract(Value& result, const Value& a, const Value& b) { result = a - b; }
  static void Multiply(Value& result, const Value& a, const Value& b) { result = a * b; }
  static void Divide(Value& result, const Value& a, const Value& b) { result = a / b; }
  static bool Less(const Value& a, const Value& b) { return a < b; }
};

}  // namespace

void AddDecimal128(CHarness& harness, const ArithmeticSets& sets) {
  AddAll<Decimal128>(harness, sets);
}

}  // namespace ald::bench
