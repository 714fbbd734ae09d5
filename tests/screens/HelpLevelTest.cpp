#include "aldlib/screens/HelpLevel.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

TEST(HelpLevel, SavedLevelsComeBackInReverseOrderAndTheFirstStays) {
  const FakePlatform platform;
  EXPECT_EQ(PopHelpLevel(), 0);
  EXPECT_EQ(SetHelpLevel(7), 0);
  EXPECT_EQ(PushHelpLevel(20), 7);
  EXPECT_EQ(PushHelpLevel(30), 20);
  EXPECT_EQ(SetHelpLevel(31), 30);  // leaves what is saved alone
  EXPECT_EQ(PopHelpLevel(), 20);
  EXPECT_EQ(PopHelpLevel(), 7);
  EXPECT_EQ(PopHelpLevel(), 7);
  EXPECT_EQ(GetHelpLevel(), 7);
}

TEST(HelpLevel, IsNegativeWhileAMessageIsOnTheScreen) {
  const FakePlatform platform;
  SetHelpLevel(5);
  MyAlderLibDataPtr->bInMessage = 1;
  EXPECT_EQ(GetHelpLevel(), -5);
  EXPECT_EQ(SetHelpLevel(std::numeric_limits<int>::min()), 5);
  EXPECT_EQ(GetHelpLevel(), std::numeric_limits<int>::min());

  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  MyAlderLibDataPtr = nullptr;
  SetHelpLevel(5);
  EXPECT_EQ(GetHelpLevel(), 5);
  MyAlderLibDataPtr = pRecord;
}

TEST(HelpLevel, BeginsAnewWithTheNextLoad) {
  {
    const FakePlatform platform;
    PushHelpLevel(5);
    PushHelpLevel(6);
  }
  const FakePlatform platform;
  EXPECT_EQ(PopHelpLevel(), 0);
}

}  // namespace
}  // namespace ald
