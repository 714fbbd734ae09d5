#include "aldlib/collections/List.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <ranges>
#include <string>

#include "aldlib/frame/MemStore.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

static_assert(std::ranges::bidirectional_range<LIST_STRUCT&>);
static_assert(std::ranges::bidirectional_range<const LIST_STRUCT&>);
static_assert(std::is_convertible_v<std::ranges::iterator_t<LIST_STRUCT&>,
                                    std::ranges::iterator_t<const LIST_STRUCT&>>);

class ListTest : public testing::Test {
 protected:
  ListTest() { EXPECT_EQ(ListInitialize(&m_pList, "names"), 1); }
  ~ListTest() override { ListFree(&m_pList); }

  // Each letter becomes the key of a node; the current node is then the last one.
  void Fill(const char* szKeys) {
    for (; *szKeys != '\0'; ++szKeys) {
      EXPECT_EQ(ListAddEnd(m_pList, std::string(1, *szKeys).c_str(), "item", 4), 1);
    }
  }
  template <class Range>
  static std::string KeysOf(Range&& nodes) {
    std::string sKeys;
    for (const NODE_STRUCT& node : nodes) sKeys += node.Key;
    return sKeys;
  }
  const char* CurrentKey() const { return m_pList->Current->Key; }

  LIST_STRUCT* m_pList = nullptr;
  NODE_STRUCT* m_pNode = nullptr;
};

TEST_F(ListTest, FindsItsFirstAndLastNodeOnlyFromElsewhere) {
  EXPECT_EQ(ListGetFirstNode(m_pList, &m_pNode), 0);
  Fill("A");
  EXPECT_EQ(ListGetFirstNode(m_pList, &m_pNode), 0);
  EXPECT_EQ(ListGetLastNode(m_pList, &m_pNode), 0);
  EXPECT_EQ(m_pNode, nullptr);
  Fill("BC");
  EXPECT_EQ(ListGetFirstNode(m_pList, &m_pNode), 0);  // the current node is the last one
  EXPECT_EQ(ListPrevious(m_pList), 1);
  EXPECT_EQ(ListGetFirstNode(m_pList, &m_pNode), 1);
  EXPECT_STREQ(m_pNode->Key, "A");
  EXPECT_EQ(ListGetLastNode(m_pList, &m_pNode), 0);  // and now the first one
  EXPECT_EQ(ListNext(m_pList), 1);
  EXPECT_EQ(ListGetLastNode(m_pList, &m_pNode), 1);
  EXPECT_STREQ(m_pNode->Key, "C");
}

// A compare routine that gives 0 to nobody and whatever is told of the rest.
int g_nOrder = 0;
int CompareAsTold(const char* szFirst, const char* szSecond) {
  return std::strcmp(szFirst, szSecond) == 0 ? 0 : g_nOrder;
}

TEST_F(ListTest, SearchesASortedListToTheSideThatTheLowSixteenBitsTell) {
  Fill("ABC");
  const struct {
    int nOrder;
    const char* szSought;
    int nResult;
    const char* szCurrent;
  } rows[] = {
      {-1, "A", 1, "A"},      {1, "A", 0, "B"},      {1, "C", 1, "C"},
      {-1, "C", 0, "B"},      {0x8000, "A", 1, "A"}, {-0x8000, "A", 1, "A"},
      {-0x8001, "C", 1, "C"}, {0x7FFF, "C", 1, "C"}, {0x10000, "C", 1, "B"},
  };
  for (const auto& row : rows) {
    m_pList->Current = m_pList->Head->Next->Next;
    g_nOrder = row.nOrder;
    EXPECT_EQ(ListFindSorted(m_pList, row.szSought, &CompareAsTold), row.nResult) << row.nOrder;
    EXPECT_STREQ(CurrentKey(), row.szCurrent) << row.nOrder << ' ' << row.szSought;
  }
}

TEST_F(ListTest, HandsOutTheItemItHoldsAndNotACopy) {
  Fill("AB");
  void* pItem = nullptr;
  EXPECT_EQ(ListGetItem(m_pList, "A", &ListDefaultCompare, &pItem), 1);
  EXPECT_EQ(std::memcmp(pItem, "item", 4), 0);
  EXPECT_STREQ(CurrentKey(), "A");
  EXPECT_EQ(ListGetItem(m_pList, "X", &ListDefaultCompare, &pItem), 0);
  EXPECT_STREQ(CurrentKey(), "A");
  // A part of the old item may be the new one.
  EXPECT_EQ(ListSetItemCurrentNode(m_pList, static_cast<char*>(pItem) + 1, 2), 1);
  EXPECT_EQ(ListGetItem(m_pList, nullptr, nullptr, &pItem), 1);
  EXPECT_EQ(std::memcmp(pItem, "te", 2), 0);
}

TEST_F(ListTest, HasANameOfItsOwn) {
  char* szName = nullptr;
  EXPECT_EQ(ListGetListName(m_pList, &szName), 1);
  EXPECT_STREQ(szName, "names");
  EXPECT_EQ(ListSetListName(m_pList, szName + 2), 1);
  EXPECT_STREQ(m_pList->ListName, "mes");
  EXPECT_EQ(ListSetListName(m_pList, nullptr), 0);
  EXPECT_STREQ(m_pList->ListName, "mes");
  RecordingDoor door;
  FailAllocation(1);
  EXPECT_EQ(ListSetListName(m_pList, "none"), 0);
  EXPECT_EQ(m_pList->ListName, nullptr);
}

TEST(ListInitialize, GivesBackWhatItGotWhenMemoryRunsOut) {
  RecordingDoor door;
  for (std::uint32_t nFail = 1; nFail <= 4; ++nFail) {
    LIST_STRUCT none{};
    LIST_STRUCT* pList = &none;
    FailAllocation(nFail);
    EXPECT_EQ(ListInitialize(&pList, "names"), nFail > 3 ? 1 : 0);
    EXPECT_EQ(pList == nullptr, nFail <= 3);
    FailAllocation(0);
    ListFree(&pList);
  }
}

TEST_F(ListTest, IsWalkedBothWaysWithoutMovingTheCurrentNode) {
  EXPECT_TRUE(std::ranges::empty(*m_pList));
  Fill("ABC");
  ListPrevious(m_pList);
  EXPECT_EQ(KeysOf(*m_pList), "ABC");
  std::string sBackwards;
  for (auto it = std::make_reverse_iterator(end(*m_pList));
       it != std::make_reverse_iterator(begin(*m_pList)); ++it) {
    sBackwards += it->Key;
  }
  EXPECT_EQ(sBackwards, "CBA");
  EXPECT_STREQ(CurrentKey(), "B");
}

TEST_F(ListTest, RefusesWhatIsNotThere) {
  Fill("A");
  LIST_STRUCT zeros{};
  for (LIST_STRUCT* p : {static_cast<LIST_STRUCT*>(nullptr), &zeros}) {
    void* pItem = nullptr;
    EXPECT_EQ(ListAdd(p, "A", "x", 1) + ListAddStart(p, "A", "x", 1) + ListAddEnd(p, "A", "x", 1) +
                  ListAddSorted(p, "A", "x", 1, &ListDefaultCompare) + ListNext(p) +
                  ListCirclePrevious(p) + ListGetFirstNode(p, &m_pNode) + ListDeleteCurrentNode(p) +
                  ListFind(p, "A", &ListDefaultCompare) + ListSetItemCurrentNode(p, "x", 1) +
                  ListFindSorted(p, "A", &ListDefaultCompare) + ListPaste(p, m_pList, 1) +
                  ListPaste(m_pList, p, 1) + ListGetItem(p, nullptr, nullptr, &pItem),
              0);
  }
  EXPECT_EQ(ListFind(m_pList, "A", nullptr) + ListAddSorted(m_pList, "A", "x", 1, nullptr) +
                ListGetFirstNode(m_pList, nullptr) + ListPaste(m_pList, m_pList, 1),
            0);
  m_pList->Current = m_pList->Head;
  EXPECT_EQ(ListDeleteCurrentNode(m_pList), 0);
  EXPECT_EQ(ListFindSorted(m_pList, "A", &ListDefaultCompare), 0);
  EXPECT_EQ(KeysOf(*m_pList), "A");
  EXPECT_EQ(ListDefaultCompare(nullptr, "A"), -1);
}

}  // namespace
}  // namespace ald
