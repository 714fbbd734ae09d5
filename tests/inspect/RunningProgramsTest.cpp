#include "aldlib/inspect/RunningPrograms.h"

#include <gtest/gtest.h>

#include <vector>

#include "aldlib/inspect/ResourceMeter.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

class RunningProgramsTest : public testing::Test {
 protected:
  RunningProgramsTest() {
    m_platform.m_desktop.AddForeignWindow(501, 7, "Frame", "Trial Balance");
    m_platform.m_desktop.AddForeignWindow(501, 8, "Frame", "Balance");
    m_platform.m_desktop.AddForeignWindow(502, 8, "Frame", "Engine");
    m_processes.m_modules = {{7, {"led\\led.exe", "C:\\lib\\C.SO"}},
                             {8, {"C:\\bin\\w3dbsmgr.exe"}}};
  }

  FakePlatform m_platform;
  FakeProcesses& m_processes = m_platform.m_processes;
  CString m_sProgram = "before";
};

TEST_F(RunningProgramsTest, TakesAnyModuleWhosePathDoesNotBeginWithTheTag) {
  EXPECT_EQ(CheckForPervasive(501, m_sProgram), 1);
  EXPECT_EQ(m_sProgram, "LED\\LED.EXE");
  EXPECT_EQ(CheckForLedgEzy(501, m_sProgram), 1);
  EXPECT_EQ(m_sProgram, "C:\\LIB\\C.SO");  // the module before it begins with the tag
  EXPECT_EQ(CheckForHourtally(501), 1);
  m_processes.m_modules[7] = {"led"};
  EXPECT_EQ(CheckForLedgEzy(501, m_sProgram), 0);
  EXPECT_EQ(m_sProgram, "");
  m_processes.m_modules[7].clear();  // may not be looked at
  EXPECT_EQ(CheckForHourtally(501), 0);
}

TEST_F(RunningProgramsTest, TakesAProgramWithTheTagInItsNameWhereThereAreSnapshots) {
  m_processes.m_nPlatformId = kPlatformSnapshots;
  EXPECT_EQ(CheckForPervasive(502, m_sProgram), 1);
  EXPECT_EQ(m_sProgram, "C:\\bin\\w3dbsmgr.exe");
  EXPECT_EQ(CheckForPervasive(501, m_sProgram), 0);  // of its windows only the first counts
  EXPECT_EQ(m_sProgram, "");
  EXPECT_EQ(CheckForLedgEzy(501, m_sProgram), 1);
  m_processes.m_sMissingFunction = "Module32Next";
  EXPECT_EQ(CheckForLedgEzy(501, m_sProgram), 0);
}

TEST_F(RunningProgramsTest, AnswersNoWhenThereIsNothingToGoBy) {
  EXPECT_EQ(CheckForPervasive(503, m_sProgram), 0);  // a task without windows
  EXPECT_EQ(m_sProgram, "");
  m_processes.m_nPlatformId = 9;
  EXPECT_EQ(CheckForPervasive(502, m_sProgram), 0);
}

TEST(CWindowFinder, FindsTheFrontmostWindowWithTheTextInItsTitle) {
  FakePlatform platform;
  Windows& windows = CurrentPlatform().desktop.windows;
  const auto create = [&windows](const char* szTitle) {
    return windows.Create({.sClass = "STATIC", .sText = szTitle});
  };
  const WindowHandle hEngine = create("Engine");
  const WindowHandle hBalance = create("Balance");
  const WindowHandle hTrial = create("Trial Balance - Alder & Sons");
  ASSERT_EQ(windows.TopLevel(), (std::vector<WindowHandle>{hTrial, hBalance, hEngine}));

  const auto find = [](const char* szText) {
    const CWnd* const pWindow = CWindowFinder().FindWindowUsingSubstring(szText);
    return pWindow != nullptr ? pWindow->GetSafeHwnd() : WindowHandle{};
  };
  EXPECT_EQ(find("Balance"), hTrial);
  EXPECT_EQ(find("ngin"), hEngine);
  EXPECT_EQ(find("balance"), WindowHandle{});  // case counts
  EXPECT_EQ(find(""), hTrial);
  EXPECT_EQ(find(nullptr), WindowHandle{});
}

class ResourceMeterTest : public testing::Test {
 protected:
  ~ResourceMeterTest() override { CResourceMeter::FreeResourceMeter(); }

  static std::vector<int> Readings() {
    const CResourceMeter& meter = *CResourceMeter::GetResourceMeter();
    return {meter.GetSystemFree(), meter.GetGDIFree(), meter.GetUserFree()};
  }

  FakePlatform m_platform;
};

TEST_F(ResourceMeterTest, ReadsThroughTheLibraryByItsSelectors) {
  m_platform.m_processes.m_hMeter = ModuleHandle{5};
  m_platform.m_processes.m_pMeter = [](int nSelector) { return 70 + nSelector; };
  EXPECT_TRUE(CResourceMeter::GetResourceMeter()->IsMeterInstalled());
  EXPECT_EQ(Readings(), (std::vector<int>{70, 71, 72}));
  EXPECT_EQ(CResourceMeter::GetResourceMeter(), CResourceMeter::GetResourceMeter());
  CResourceMeter::FreeResourceMeter();
  CResourceMeter::FreeResourceMeter();
  EXPECT_EQ(m_platform.m_processes.m_nMetersFreed, 1);
}

TEST_F(ResourceMeterTest, Answers90WithoutTheLibraryOrItsFunction) {
  EXPECT_FALSE(CResourceMeter::GetResourceMeter()->IsMeterInstalled());
  EXPECT_EQ(Readings(), (std::vector<int>{90, 90, 90}));
  CResourceMeter::FreeResourceMeter();
  m_platform.m_processes.m_hMeter = ModuleHandle{5};
  EXPECT_TRUE(CResourceMeter::GetResourceMeter()->IsMeterInstalled());
  EXPECT_EQ(Readings(), (std::vector<int>{90, 90, 90}));
}

}  // namespace
}  // namespace ald
