#include "aldlib/amounts/Allocate.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "tests/amounts/RegionFixture.h"

namespace ald {
namespace {

using namespace literals;

class Allocating : public WithRegion {};

TEST_F(Allocating, GivesTheCentsThatAreLeftToTheLargestRemainders) {
  const struct {
    CDecimal amount;
    std::vector<CDecimal> weights, parts;
  } rows[] = {
      {100_dec, {1_dec, 1_dec, 1_dec}, {33.34_dec, 33.33_dec, 33.33_dec}},
      {100_dec, {0.5_dec, 0.3_dec, 0.2_dec}, {50_dec, 30_dec, 20_dec}},
      {-0.05_dec, {1_dec, 0_dec, 1_dec}, {-0.03_dec, 0_dec, -0.02_dec}},
      {0.02_dec, {1_dec, 3_dec, 3_dec}, {0_dec, 0.01_dec, 0.01_dec}},
      {0.01_dec, {0.000000001_dec, 99999999999999_dec}, {0_dec, 0.01_dec}},
      {99999999999999.99_dec, {99999999999999_dec}, {99999999999999.99_dec}},
      {0_dec, {1_dec, 2_dec}, {0_dec, 0_dec}},
  };
  for (const auto& row : rows) {
    std::vector<CDecimal> parts = row.weights;  // in place
    EXPECT_EQ(Allocate(row.amount, parts, parts), Allocation::Done) << row.amount;
    EXPECT_EQ(parts, row.parts) << row.amount;
  }
}

TEST_F(Allocating, LosesNothingAndKeepsEveryPartWithinACentOfItsShare) {
  std::mt19937_64 random(31);
  for (int nRound = 0; nRound < 3000; ++nRound) {
    UseMoneyDecimals(static_cast<std::uint16_t>(random() % 4));
    const CDecimal cent = CDecimal(1) / g_decCurrencyUnit;
    // Small enough for the shares to be compared in whole numbers here.
    const std::int64_t nCents =
        static_cast<std::int64_t>(random() % (nRound % 2 == 0 ? 1000 : 1'000'000'000)) - 400;
    std::vector<std::int64_t> weights(1 + random() % 20);
    for (auto& nWeight : weights) nWeight = static_cast<std::int64_t>(random() % 1000);
    weights[random() % weights.size()] = 1;
    const std::int64_t nSum = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});
    std::vector<CDecimal> parts(weights.size());
    ASSERT_EQ(Allocate(CDecimal(nCents) * cent, weights, parts), Allocation::Done);
    CDecimal sum;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      sum += parts[i];
      const CDecimal inCents = parts[i] * g_decCurrencyUnit;
      const std::int64_t nPart = inCents.toIntType<long long>(false);
      ASSERT_EQ(inCents, CDecimal(nPart));
      ASSERT_LT(std::abs(nPart * nSum - nCents * weights[i]), nSum) << nCents << ' ' << i;
      ASSERT_TRUE(weights[i] != 0 || nPart == 0);
    }
    ASSERT_EQ(sum, CDecimal(nCents) * cent);
  }
}

TEST_F(Allocating, RefusesWhatCannotBeSplitAndWritesNothing) {
  CDecimal pastTheLimit(CDecimal::ms_nMaxValue);
  pastTheLimit = pastTheLimit + 1;
  const struct {
    CDecimal amount;
    std::vector<CDecimal> weights;
    std::size_t nParts;
    Allocation eResult;
  } rows[] = {
      {1_dec, {}, 0, Allocation::NoWeights},
      {1_dec, {1_dec, 1_dec}, 1, Allocation::SizesDiffer},
      {1_dec, {1_dec, -1_dec, 1_dec}, 3, Allocation::NegativeWeight},
      {1_dec, {0_dec, 0_dec}, 2, Allocation::AllWeightsZero},
      {0.001_dec, {1_dec}, 1, Allocation::NotInCents},
      {pastTheLimit, {1_dec}, 1, Allocation::OutOfRange},
      {1_dec, {pastTheLimit, 1_dec}, 2, Allocation::OutOfRange},
  };
  for (const auto& row : rows) {
    std::vector<CDecimal> parts(row.nParts, 77_dec);
    EXPECT_EQ(Allocate(row.amount, row.weights, parts), row.eResult) << AllocationName(row.eResult);
    EXPECT_EQ(parts, std::vector<CDecimal>(row.nParts, 77_dec)) << AllocationName(row.eResult);
  }
}

}  // namespace
}  // namespace ald
