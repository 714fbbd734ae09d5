#include "aldlib/frame/Alderlib.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <utility>

#include "aldlib/text/ResourceStrings.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using Calls = std::vector<CString>;

// The fields of a packed record are not aligned, so a comparison gets a copy and no reference.
template <class T>
T CopyOf(T field) {
  return field;
}

CString LoadedText(std::uint32_t nString) {
  CFixedString<64> sText;
  MyLoadString(nString, sText);
  return CString(sText.view());
}

// Takes the record away while it lives.
class NoRecord {
 public:
  NoRecord() : m_pBefore(std::exchange(MyAlderLibDataPtr, nullptr)) {}
  NoRecord(const NoRecord&) = delete;
  NoRecord& operator=(const NoRecord&) = delete;
  ~NoRecord() { MyAlderLibDataPtr = m_pBefore; }

 private:
  AlderLibDataType* m_pBefore;
};

TEST(LoadedLibrary, IsThereBeforeTheHostCallsAnything) {
  EXPECT_NE(AlderLibHandle(), ModuleHandle{});
  EXPECT_EQ(LoadedText(20301), "@Not enough Memory to run.");
}

TEST(LoadedLibrary, HasAFreshRecordWithItselfRegistered) {
  FakePlatform platform;
  MyAlderLibDataPtr->hMainWindow = WindowHandle{5};
  std::memset(MyAlderLibDataPtr->szDataPath, 'x', sizeof MyAlderLibDataPtr->szDataPath);
  const ModuleHandle hLibrary = AlderLibHandle();
  platform.m_resources.m_calls.clear();
  AlderLibEntry(hLibrary, kProcessDetach, nullptr);
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->pInstanceTable), nullptr);
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->nInstances),
            1);  // a count that nobody clears before the next load
  EXPECT_EQ(AlderLibEntry(hLibrary, kProcessAttach, nullptr), 1);
  EXPECT_EQ(platform.m_resources.m_calls,
            (Calls{"release", "delete atom", "delete atom", "attach", "add WINDOW_DATA_PTR",
                   "add SS_NOPREFIX SAVE AREA"}));

  AlderLibDataType expected{};
  expected.pInstanceTable = MyAlderLibDataPtr->pInstanceTable;
  expected.nInstances = 1;
  EXPECT_EQ(std::memcmp(MyAlderLibDataPtr, &expected, sizeof expected), 0);
  const InstanceSearchEntry entry = MyAlderLibDataPtr->pInstanceTable[0];
  EXPECT_EQ(entry.hModule, hLibrary);
  EXPECT_EQ(entry.nSearchOrder, 9);
  EXPECT_EQ(GetLibraryHandle(ModuleId::AlderLib), AlderLibHandle());
  EXPECT_EQ(GetPerInstanceData(ModuleId::AlderLib), MyAlderLibDataPtr);
}

TEST(LoadedLibrary, TakesItsAtomsAlongWhenItIsUnloaded) {
  FakePlatform platform;
  Resources& resources = platform.m_resources;
  AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr);
  AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr);  // a second time is harmless
  for (const char* szName : {"WINDOW_DATA_PTR", "SS_NOPREFIX SAVE AREA"}) {
    const Atom nAtom = resources.AddAtom(szName);
    EXPECT_TRUE(resources.DeleteAtom(nAtom));
    EXPECT_FALSE(resources.DeleteAtom(nAtom)) << szName;  // ours was the only use
  }
}

TEST(LoadedLibrary, DoesNothingForThreads) {
  FakePlatform platform;
  platform.m_resources.m_calls.clear();
  MyAlderLibDataPtr->nReservedWord = 77;
  for (std::uint32_t nReason : {std::uint32_t{kThreadAttach}, std::uint32_t{kThreadDetach}, 4U}) {
    EXPECT_EQ(AlderLibEntry(AlderLibHandle(), nReason, nullptr), 1);
  }
  EXPECT_TRUE(platform.m_resources.m_calls.empty());
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->nReservedWord), 77U);
}

TEST(LoadedLibrary, StaysAsItWasWhenTheFrameworkRefusesIt) {
  FakePlatform platform;
  const ModuleHandle hBefore = AlderLibHandle();
  MyAlderLibDataPtr->nReservedWord = 77;
  platform.m_resources.m_bRefuseAttach = true;
  platform.m_resources.m_calls.clear();
  EXPECT_EQ(AlderLibEntry(ModuleHandle{99}, kProcessAttach, nullptr), 0);
  EXPECT_EQ(platform.m_resources.m_calls, Calls{"attach"});
  EXPECT_EQ(AlderLibHandle(), hBefore);
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->nReservedWord), 77U);
}

TEST(LoadedLibrary, LinksItselfIntoTheFrameworkWhenAsked) {
  FakePlatform platform;
  EXPECT_EQ(platform.m_resources.m_hLinked, ModuleHandle{});
  InitAlderLibDLL();
  EXPECT_EQ(platform.m_resources.m_hLinked, AlderLibHandle());
}

TEST(ModuleRegistry, HoldsTheLastEntryOfEachNumberInRange) {
  int aData[2] = {};
  EXPECT_EQ(GetPerInstanceData(ModuleId{14}), nullptr);
  EXPECT_EQ(GetLibraryHandle(ModuleId{14}), ModuleHandle{});
  EXPECT_EQ(RequirePerInstanceData(ModuleHandle{40}, ModuleId{14}, &aData[0]), 1);
  EXPECT_EQ(RequirePerInstanceData(ModuleHandle{41}, ModuleId{14}, &aData[1]), 1);
  EXPECT_EQ(GetPerInstanceData(ModuleId{14}), &aData[1]);
  EXPECT_EQ(GetLibraryHandle(ModuleId{14}), ModuleHandle{41});
  RequirePerInstanceData(ModuleHandle{}, ModuleId{14}, nullptr);

  for (std::int32_t nModule : {-1, 15, std::numeric_limits<std::int32_t>::min(),
                               std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(RequirePerInstanceData(ModuleHandle{40}, ModuleId{nModule}, aData), 1);
    EXPECT_EQ(GetPerInstanceData(ModuleId{nModule}), nullptr) << nModule;
    EXPECT_EQ(GetLibraryHandle(ModuleId{nModule}), ModuleHandle{}) << nModule;
  }
}

TEST(TextSearch, PrefersTheModuleThatAnsweredLast) {
  FakePlatform platform;
  platform.AddModule({{100, "order nine"}, {200, "only there"}}, 10);
  platform.AddModule({{100, "order one"}, {300, "only here"}}, 1);
  EXPECT_EQ(LoadedText(100), "order one");
  EXPECT_EQ(LoadedText(200), "only there");
  EXPECT_EQ(LoadedText(100), "order nine");
  const ModuleHandle hLast = MyAlderLibDataPtr->hLastStringModule;
  EXPECT_EQ(LoadedText(999), "");
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->hLastStringModule), hLast);
  EXPECT_EQ(LoadedText(300), "only here");
  EXPECT_EQ(LoadedText(100), "order one");
}

TEST(TextSearch, GoesByOrderAsASignedNumber) {
  FakePlatform platform;
  const struct {
    std::int16_t nOrder;
    const char* szText;
  } rows[] = {{0, "zero"}, {-5, "below"}, {32767, "last"}, {-32768, "first"}, {8, "eight"}};
  for (const auto& row : rows) platform.AddModule({{100, row.szText}}, row.nOrder);
  std::vector<int> orders;
  for (int i = 0; i < MyAlderLibDataPtr->nInstances; ++i) {
    const InstanceSearchEntry entry = MyAlderLibDataPtr->pInstanceTable[i];
    orders.push_back(entry.nSearchOrder);
  }
  EXPECT_EQ(orders, (std::vector<int>{-32768, -5, 0, 8, 9, 32767}));
  EXPECT_EQ(LoadedText(100), "first");
}

TEST(TextSearch, FindsEveryModuleOfEqualOrder) {
  FakePlatform platform;
  for (std::uint16_t i = 0; i < 40; ++i) platform.AddModule({{i, "text"}}, 9);
  for (std::uint16_t i = 0; i < 40; ++i) EXPECT_EQ(LoadedText(i), "text") << i;
  EXPECT_EQ(LoadedText(20300), "@Call Alderfell Technical Support.");
}

TEST(TextSearch, FillsTheBufferAndCutsAtItsEnd) {
  FakePlatform platform;
  platform.AddModule({{100, "ledger"}}, 1);
  const struct {
    std::uint32_t nString;
    int nSize;
    int nLength;
    const char* pBuffer;
  } rows[] = {
      {100, 9, 6, "ledger\0\0\0#"}, {100, 7, 6, "ledger\0###"},         {100, 4, 3, "led\0######"},
      {100, 1, 0, "\0#########"},   {101, 9, 0, "\0\0\0\0\0\0\0\0\0#"}, {100, 0, 0, "##########"},
  };
  for (const auto& row : rows) {
    char buffer[] = "##########";
    EXPECT_EQ(MyLoadString(row.nString, {buffer, row.nSize}), row.nLength);
    EXPECT_EQ(CString(buffer, 10), CString(row.pBuffer, 10)) << row.nString << ", " << row.nSize;
  }
  EXPECT_EQ(MyLoadString(100, {nullptr, 9}), 0);
}

TEST(TextSearch, SurvivesAnExhaustedStore) {
  // Fails registration 1, 2, 3 (the library's own among them), and then none.
  for (std::uint32_t nFail = 1; nFail <= 4; ++nFail) {
    FakePlatform platform;
    RecordingDoor door;
    AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr);
    FailAllocation(nFail);
    AlderLibEntry(AlderLibHandle(), kProcessAttach, nullptr);
    platform.AddModule({{100, "one"}}, 1);
    platform.AddModule({{200, "two"}}, 2);
    EXPECT_EQ(CopyOf(MyAlderLibDataPtr->nInstances), 3);
    EXPECT_EQ(CopyOf(MyAlderLibDataPtr->pInstanceTable) == nullptr, nFail == 3);
    EXPECT_EQ(door.m_shown.size(), nFail <= 3 ? 1U : 0U);
    // A failure loses what was registered up to then.
    EXPECT_EQ(LoadedText(20301), nFail == 4 ? "@Not enough Memory to run." : "") << nFail;
    EXPECT_EQ(LoadedText(100), nFail == 1 || nFail == 4 ? "one" : "") << nFail;
    EXPECT_EQ(LoadedText(200), nFail != 3 ? "two" : "") << nFail;
  }
}

TEST(TextSearch, StaysInsideTheTableWhateverCountTheHostWrites) {
  FakePlatform platform;
  platform.AddModule({{100, "one"}}, 1);
  MyAlderLibDataPtr->nInstances = 65535;
  EXPECT_EQ(LoadedText(999), "");
  EXPECT_EQ(LoadedText(100), "one");
  RegisterInstanceForStringSearch(ModuleHandle{1}, 1);  // the count would wrap
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->nInstances), 65535);
  MyAlderLibDataPtr->nInstances = 0;
  MyAlderLibDataPtr->hLastStringModule = ModuleHandle{};
  EXPECT_EQ(LoadedText(100), "");
}

TEST(FindStrInResource, CountsFromTheStartOfTheRun) {
  FakePlatform platform;
  const CString sLong(300, 'x');
  platform.AddModule({{300, "Ohio"},
                      {301, "utah"},
                      {302, sLong.c_str()},
                      {304, "Iowa"},
                      {65534, "Last"},
                      {65535, "Very last"}},
                     1);
  const CString sCut(255, 'X');
  const struct {
    const char* szText;
    std::uint16_t nFirst;
    std::uint16_t nExpected;
  } rows[] = {
      {"Ohio", 300, 1},       {"UTAH", 300, 2},        {"Utah", 301, 1},        {"Ohio", 301, 0},
      {sCut.c_str(), 300, 3}, {sLong.c_str(), 300, 0}, {"Iowa", 300, 0},  // 303 ends the run
      {"Iowa", 303, 0},       {"Iowa", 304, 1},        {"very LAST", 65534, 2}, {"none", 65534, 0},
      {"", 300, 0},           {nullptr, 300, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(FindStrInResource(row.szText, row.nFirst), row.nExpected)
        << (row.szText != nullptr ? row.szText : "null") << " from " << row.nFirst;
  }
}

TEST(ActiveFlag, FollowsTheApplication) {
  FakePlatform platform;
  WeBecomeActive();
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->bWeAreActive), 1);
  WeBecomeInactive();
  EXPECT_EQ(CopyOf(MyAlderLibDataPtr->bWeAreActive), 0);
}

TEST(LibraryWithoutARecord, DoesNothingHarmful) {
  FakePlatform platform;
  const NoRecord scope;
  WeBecomeActive();
  WeBecomeInactive();
  RegisterInstanceForStringSearch(AlderLibHandle(), 1);
  CFixedString<8> sText("before");
  EXPECT_EQ(MyLoadString(20301, sText), 0);
  EXPECT_TRUE(sText.IsEmpty());
  EXPECT_EQ(FindStrInResource("text", 20300), 0);
  EXPECT_EQ(AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr), 1);
  EXPECT_EQ(AlderLibEntry(AlderLibHandle(), kProcessAttach, nullptr), 1);
  FailAllocation(1);
  EXPECT_EQ(_RealAllocate(1), nullptr);
  ASSERT_EQ(platform.m_desktop.Boxes().size(), 1U);
  EXPECT_EQ(platform.m_desktop.Boxes()[0].sText, "Not enough Memory to run.");
}

}  // namespace
}  // namespace ald
