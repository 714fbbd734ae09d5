#include "aldlib/platform/headless/HeadlessDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using testing::ElementsAre;

class HeadlessBench : public testing::Test {
 protected:
  FakeClock m_clock;
  HeadlessDesktop m_bench{m_clock};
  Desktop m_desktop = m_bench.Ports();
};

TEST_F(HeadlessBench, AnswersBoxesByScriptAndThenByTheirDefault) {
  m_bench.Answer({kButtonNo, kButtonRetry});
  Presenter& presenter = m_desktop.presenter;
  EXPECT_EQ(presenter.PlainBox({}, "Save?", "Ledger", kBoxYesNoCancel | kBoxQuestion), kButtonNo);
  EXPECT_EQ(presenter.PlainBox({}, "Disk", "Ledger", kBoxRetryCancel), kButtonRetry);
  EXPECT_EQ(presenter.PlainBox({}, "Sure?", "Ledger", kBoxYesNo | kBoxDefaultSecond), kButtonNo);
  ASSERT_EQ(m_bench.Boxes().size(), 3U);
  EXPECT_EQ(m_bench.Boxes()[0].sText, "Save?");
  EXPECT_EQ(m_bench.Boxes()[1].nAnswer, kButtonRetry);
  EXPECT_EQ(m_bench.Live(), LiveObjects{});
}

}  // namespace
}  // namespace ald
