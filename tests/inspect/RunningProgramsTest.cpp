#include "aldlib/inspect/RunningPrograms.h"

#include <gtest/gtest.h>

#include "aldlib/inspect/ResourceMeter.h"
#include "tests/inspect/FewWindows.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

class RunningProgramsTest : public testing::Test {
 protected:
  RunningProgramsTest() {
    m_windows.m_windows = {{WindowHandle{11}, "Trial Balance - Alder & Sons", 501, 7},
                           {WindowHandle{12}, "Balance", 501, 8},
                           {WindowHandle{13}, "Engine", 502, 8}};
    m_processes.m_modules = {{7, {"led\\led.exe", "C:\\lib\\C.SO"}},
                             {8, {"C:\\bin\\w3dbsmgr.exe"}}};
    m_platform.SetWindows(&m_windows);
  }

  FakePlatform m_platform;
  FakeProcesses& m_processes = m_platform.m_processes;
  FewWindows m_windows;
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
  m_processes.m_nPlatformId = kPlatformLists;
  m_platform.SetWindows(nullptr);
  EXPECT_EQ(CheckForPervasive(502, m_sProgram), 0);
}

TEST_F(RunningProgramsTest, FindsTheFrontmostWindowWithTheTextInItsTitle) {
  const auto find = [](const char* szText) {
    const CWnd* const pWindow = CWindowFinder().FindWindowUsingSubstring(szText);
    return pWindow != nullptr ? pWindow->GetSafeHwnd() : WindowHandle{};
  };
  EXPECT_EQ(find("Balance"), WindowHandle{11});
  EXPECT_EQ(find("ngin"), WindowHandle{13});
  EXPECT_EQ(find("balance"), WindowHandle{});  // case counts
  EXPECT_EQ(find(""), WindowHandle{11});
  EXPECT_EQ(find(nullptr), WindowHandle{});
  m_platform.SetWindows(nullptr);
  EXPECT_EQ(find("Balance"), WindowHandle{});
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
