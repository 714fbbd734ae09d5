#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "aldlib/collections/List.h"
#include "aldlib/frame/MemStore.h"
#include "tests/support/FakePlatform.h"

// Random scripts, some of whose steps run out of memory, against a list that is a vector and an
// index.
namespace ald {
namespace {

using Text = std::optional<std::string>;

const char* Pointer(const Text& text) {
  return text ? text->c_str() : nullptr;
}

struct Entry {
  Text key;
  Text item;
  std::uint16_t nSize = 0;
  bool operator==(const Entry&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Entry& entry) {
  return stream << entry.key.value_or("(null)") << '=' << entry.item.value_or("(null)") << '/'
                << entry.nSize;
}

// 0 if the first key begins the second: the order of the two arguments can be seen.
int CompareAsPrefix(const char* szFirst, const char* szSecond) {
  return std::strncmp(szFirst, szSecond, std::strlen(szFirst));
}

struct Model {
  std::vector<Entry> entries;
  int nCurrent = -1;  // -1: the sentinel
  int nUntilFailure = 0;

  int Count() const { return static_cast<int>(entries.size()); }
  bool Take(bool bWanted = true) { return !bWanted || --nUntilFailure != 0; }

  int Add(const Entry& entry) {
    if (!Take() || !Take(entry.key.has_value()) || !Take(entry.item.has_value())) return 0;
    entries.insert(entries.begin() + ++nCurrent, entry);
    return 1;
  }
  int AddAt(int nAt, const Entry& entry) {
    nCurrent = nAt - 1;
    return Add(entry);
  }
  int AddSorted(const Entry& entry, ListCompare compare) {
    const auto greater = std::ranges::find_if(entries, [&](const Entry& other) {
      return other.key && compare(Pointer(entry.key), Pointer(other.key)) < 0;
    });
    return AddAt(static_cast<int>(greater - entries.begin()), entry);
  }
  int Find(int nFrom, int nStep, const std::string& sKey, ListCompare compare) {
    for (int i = nFrom; i >= 0 && i < Count(); i += nStep) {
      const Entry& entry = entries[std::size_t(i)];
      if (!entry.key || compare(Pointer(entry.key), sKey.c_str()) != 0) continue;
      nCurrent = i;
      return 1;
    }
    return 0;
  }
  int FindForward(const std::string& sKey, ListCompare compare) {
    return Find(std::max(nCurrent, 0), 1, sKey, compare);
  }
  int FindBackward(const std::string& sKey, ListCompare compare) {
    return Find(nCurrent < 0 ? Count() - 1 : nCurrent, -1, sKey, compare);
  }
  int Move(int nTo) {
    if (entries.empty() || nTo < 0 || nTo >= Count()) return 0;
    nCurrent = nTo;
    return 1;
  }
  int Circle(int nTo) {
    if (!entries.empty()) nCurrent = (nTo + Count()) % Count();
    return 1;
  }
  int SetItem(const Text& item, std::uint16_t nSize) {
    if (nCurrent < 0) return item ? 0 : 1;
    const bool bOk = Take(item.has_value());
    Entry& entry = entries[std::size_t(nCurrent)];
    if (entry.item) entry.nSize = 0;
    entry.item = bOk ? item : std::nullopt;
    if (entry.item) entry.nSize = nSize;
    return bOk ? 1 : 0;
  }
  int DeleteItem() {
    if (nCurrent >= 0) entries[std::size_t(nCurrent)].item.reset();
    return 1;
  }
  int Delete() {
    if (entries.empty()) return 1;
    if (nCurrent < 0) return 0;
    entries.erase(entries.begin() + nCurrent);
    nCurrent = std::min(nCurrent, Count() - 1);
    return 1;
  }
  int Paste(const std::vector<Entry>& source, ListCompare sorted) {
    for (const Entry& entry : source) {
      if ((sorted != nullptr ? AddSorted(entry, sorted) : Add(entry)) == 0) return 0;
    }
    return 1;
  }
};

std::vector<Entry> EntriesOf(const LIST_STRUCT& list) {
  std::vector<Entry> entries;
  for (const NODE_STRUCT& node : list) {
    EXPECT_EQ(node.Next->Previous, &node);
    Entry entry{{}, {}, node.ItemSize};
    if (node.Key != nullptr) entry.key = node.Key;
    if (node.Item != nullptr) entry.item.emplace(static_cast<char*>(node.Item), node.ItemSize);
    entries.push_back(entry);
  }
  return entries;
}

int PositionOf(const LIST_STRUCT& list, const NODE_STRUCT* pNode) {
  if (pNode == list.Head) return -1;
  return static_cast<int>(std::distance(begin(list), ListIterator<const NODE_STRUCT>(pNode)));
}

class Script {
 public:
  explicit Script(std::uint32_t nSeed) : m_random(nSeed) {
    EXPECT_EQ(ListInitialize(&m_pList, "script"), 1);
  }
  ~Script() { EXPECT_EQ(ListFree(&m_pList), 1); }
  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;

  void Step() {
    m_model.nUntilFailure = Number(3) == 0 ? Number(5) : 0;
    FailAllocation(static_cast<std::uint32_t>(m_model.nUntilFailure));
    const int nOperation = Number(20);
    const auto [nGot, nWanted] = Run(nOperation);
    FailAllocation(0);
    ASSERT_EQ(nGot, nWanted) << "operation " << nOperation;
    ASSERT_EQ(EntriesOf(*m_pList), m_model.entries) << "operation " << nOperation;
    ASSERT_EQ(m_pList->Count, m_model.entries.size()) << "operation " << nOperation;
    ASSERT_EQ(PositionOf(*m_pList, m_pList->Current), m_model.nCurrent)
        << "operation " << nOperation;
  }

 private:
  struct Results {
    int nGot;
    int nWanted;
  };

  int Number(int nBelow) { return static_cast<int>(m_random() % unsigned(nBelow)); }
  std::string Key() {
    return std::vector<std::string>{"", "A", "AB", "B", "BA", "b", "\xE9"}[std::size_t(Number(7))];
  }
  Entry MakeEntry() {
    Entry entry{Key(), {}, static_cast<std::uint16_t>(Number(4))};
    if (Number(4) != 0) entry.item = std::string("\0xyz", 4).substr(0, entry.nSize);
    return entry;
  }

  Results Run(int nOperation);
  Results Paste(ListCompare sorted);

  std::mt19937 m_random;
  LIST_STRUCT* m_pList = nullptr;
  Model m_model;
};

Script::Results Script::Run(int nOperation) {
  LIST_STRUCT* const p = m_pList;
  Model& model = m_model;
  Entry entry = MakeEntry();
  const std::string sKey = Key();
  const ListCompare compare = Number(2) == 0 ? &ListDefaultCompare : &CompareAsPrefix;
  const auto with = [&](auto operation, auto... last) {
    return operation(p, Pointer(entry.key), Pointer(entry.item), entry.nSize, last...);
  };
  switch (nOperation) {
    case 0:
    case 1:
      if (Number(5) == 0) entry.key.reset();
      return {with(&ListAdd), model.Add(entry)};
    case 2:
      return {with(&ListAddStart), model.AddAt(0, entry)};
    case 3:
      return {with(&ListAddEnd), model.AddAt(model.Count(), entry)};
    case 4:
      return {with(&ListAddSorted, compare), model.AddSorted(entry, compare)};
    case 5:
      return {ListFind(p, sKey.c_str(), compare), model.Find(0, 1, sKey, compare)};
    case 6:
      return {ListFindForward(p, sKey.c_str(), compare), model.FindForward(sKey, compare)};
    case 7:
      return {ListFindBackward(p, sKey.c_str(), compare), model.FindBackward(sKey, compare)};
    case 8:
      return {ListNext(p), model.Move(model.nCurrent + 1)};
    case 9:
      return {ListPrevious(p),
              model.Move(model.nCurrent < 0 ? model.Count() - 1 : model.nCurrent - 1)};
    case 10:
      return {ListCircleNext(p), model.Circle(model.nCurrent + 1)};
    case 11:
      return {ListCirclePrevious(p), model.Circle(std::max(model.nCurrent, 0) - 1)};
    case 12: {
      NODE_STRUCT* pNode = p->Head;
      const bool bMoves = model.nCurrent + 1 < model.Count();
      const Results results{ListGetFirstNode(p, &pNode), bMoves ? model.Move(0) : 0};
      EXPECT_EQ(pNode, bMoves ? p->Current : nullptr);
      return results;
    }
    case 13: {
      NODE_STRUCT* pNode = p->Head;
      const bool bMoves = model.nCurrent != 0 && model.Count() > 0;
      const Results results{ListGetLastNode(p, &pNode), bMoves ? model.Move(model.Count() - 1) : 0};
      EXPECT_EQ(pNode, bMoves ? p->Current : nullptr);
      return results;
    }
    case 14:
      return {ListDelete(p, nullptr, nullptr), model.Delete()};
    case 15: {
      const int nWanted = model.Find(0, 1, sKey, compare) != 0 ? model.Delete() : 0;
      return {ListDelete(p, sKey.c_str(), compare), nWanted};
    }
    case 16:
      return {ListDeleteItem(p, nullptr, nullptr), model.DeleteItem()};
    case 17:
      return {ListSetItem(p, nullptr, nullptr, Pointer(entry.item), entry.nSize),
              model.SetItem(entry.item, entry.nSize)};
    case 18: {
      const int nWanted =
          model.Find(0, 1, sKey, compare) != 0 ? model.SetItem(entry.item, entry.nSize) : 0;
      return {ListSetItem(p, sKey.c_str(), compare, Pointer(entry.item), entry.nSize), nWanted};
    }
    default:
      return Paste(Number(2) == 0 ? compare : nullptr);
  }
}

Script::Results Script::Paste(ListCompare sorted) {
  FailAllocation(0);
  LIST_STRUCT* pSource = nullptr;
  EXPECT_EQ(ListInitialize(&pSource, nullptr), 1);
  std::vector<Entry> source;
  for (int n = Number(4); n > 0; --n) {
    source.push_back(MakeEntry());
    const Entry& entry = source.back();
    EXPECT_EQ(ListAddEnd(pSource, Pointer(entry.key), Pointer(entry.item), entry.nSize), 1);
  }
  FailAllocation(static_cast<std::uint32_t>(m_model.nUntilFailure));
  const int bFree = Number(2);
  const Results results{sorted != nullptr ? ListPasteSorted(pSource, m_pList, bFree, sorted)
                                          : ListPaste(pSource, m_pList, bFree),
                        m_model.Paste(source, sorted)};
  // The sanitizer sees a source that was freed and should not have been, or the other way round.
  if (bFree == 0 || source.empty() || results.nGot == 0) {
    EXPECT_EQ(EntriesOf(*pSource), source);
    ListFree(&pSource);
  }
  return results;
}

TEST(List, DoesWhatAVectorWithAnIndexDoesAlsoWhenMemoryRunsOut) {
  RecordingDoor door;  // keeps the messages off the screen
  for (std::uint32_t nSeed = 1; nSeed <= 300; ++nSeed) {
    SCOPED_TRACE(testing::Message() << "seed " << nSeed);
    Script script(nSeed);
    for (int nStep = 0; nStep < 150; ++nStep) {
      script.Step();
      if (testing::Test::HasFailure()) FAIL() << "step " << nStep;
    }
  }
  EXPECT_GT(door.m_shown.size(), 100U);  // memory did run out
}

}  // namespace
}  // namespace ald
