#include <algorithm>
#include <cstddef>
#include <cstring>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "aldlib/collections/List.h"
#include "bench/Harness.h"

// The keyed list beside std::list with the same contents: a key and an item of its own for each
// node, of a size known at run time only.
namespace ald::bench {

namespace {

constexpr std::size_t kNodes = 1000;

// An account as a module keeps it at hand.
struct Item {
  std::uint32_t nNumber;
  char aRest[28];
};

struct Input {
  std::vector<std::string> keys;  // "ACCT-0000", ...
  std::vector<Item> items;
};

Input MakeInput() {
  Input input;
  for (std::uint32_t i = 0; i < kNodes; ++i) {
    const std::string sNumber = std::to_string(i);
    input.keys.push_back("ACCT-" + std::string(4 - sNumber.size(), '0') + sNumber);
    input.items.push_back({i, {}});
  }
  return input;
}

class Ours {
 public:
  Ours() { ListInitialize(&m_pList, nullptr); }
  ~Ours() { ListFree(&m_pList); }
  Ours(const Ours&) = delete;
  Ours& operator=(const Ours&) = delete;

  void Add(const std::string& sKey, const Item& item) {
    ListAddEnd(m_pList, sKey.c_str(), &item, sizeof item);
  }
  void DeleteFirst() {
    m_pList->Current = m_pList->Head->Next;
    ListDeleteCurrentNode(m_pList);
  }
  const void* Find(const std::string& sKey) {
    void* pItem = nullptr;
    ListGetItem(m_pList, sKey.c_str(), &ListDefaultCompare, &pItem);
    return pItem;
  }
  template <class Visit>
  void Walk(Visit visit) const {
    for (const NODE_STRUCT& node : *m_pList) visit(node.Item);
  }

 private:
  LIST_STRUCT* m_pList = nullptr;
};

class Peer {
 public:
  void Add(const std::string& sKey, const Item& item) {
    auto pBytes = std::make_unique_for_overwrite<std::byte[]>(sizeof item);
    std::memcpy(pBytes.get(), &item, sizeof item);
    m_list.push_back({sKey, std::move(pBytes), sizeof item});
  }
  void DeleteFirst() { m_list.pop_front(); }
  const void* Find(const std::string& sKey) {
    const auto found = std::ranges::find(m_list, sKey, &Node::sKey);
    return found != m_list.end() ? found->pItem.get() : nullptr;
  }
  template <class Visit>
  void Walk(Visit visit) const {
    for (const Node& node : m_list) visit(node.pItem.get());
  }

 private:
  struct Node {
    std::string sKey;
    std::unique_ptr<std::byte[]> pItem;
    std::uint16_t nSize;
  };
  std::list<Node> m_list;
};

std::uint32_t NumberOf(const void* pItem) {
  std::uint32_t nNumber = 0;
  std::memcpy(&nNumber, pItem, sizeof nNumber);
  return nNumber;
}

template <class List>
void Fill(List& list, const Input& input) {
  for (std::size_t i = 0; i < kNodes; ++i) list.Add(input.keys[i], input.items[i]);
}

template <class List>
std::string FaultOf(const List& list, const char* szPeer) {
  std::size_t nNodes = 0;
  bool bInOrder = true;
  list.Walk([&](const void* pItem) { bInOrder &= NumberOf(pItem) == nNodes++; });
  return bInOrder && nNodes == kNodes ? "" : std::string(szPeer) + " has other nodes";
}

template <class List>
void AddCases(CHarness& harness, const Input& input, const char* szPeer) {
  const auto list = std::make_shared<List>();
  Fill(*list, input);
  const auto fault = [list, szPeer] { return FaultOf(*list, szPeer); };
  harness.Add({"add and free", "1000", szPeer, kNodes,
               [&input] {
                 List fresh;
                 Fill(fresh, input);
                 Keep(fresh);
               },
               [&input, szPeer] {
                 List fresh;
                 Fill(fresh, input);
                 return FaultOf(fresh, szPeer);
               }});
  harness.Add({"walk", "1000", szPeer, kNodes,
               [list] {
                 std::uint32_t nSum = 0;
                 list->Walk([&](const void* pItem) { nSum += NumberOf(pItem); });
                 Keep(nSum);
               },
               fault});
  // Every tenth key, each from the first node on.
  harness.Add({"find", "1000", szPeer, kNodes / 10,
               [list, &input] {
                 for (std::size_t i = 0; i < kNodes; i += 10) Keep(list->Find(input.keys[i]));
               },
               [list, &input, szPeer] {
                 for (std::size_t i = 0; i < kNodes; i += 10) {
                   const void* const pItem = list->Find(input.keys[i]);
                   if (pItem == nullptr || NumberOf(pItem) != i)
                     return std::string(szPeer) + " does not find " + input.keys[i];
                 }
                 return std::string();
               }});
  // Each node is taken from the front and added again at the end.
  const auto turn = [list, &input] {
    for (std::size_t i = 0; i < kNodes; ++i) {
      list->DeleteFirst();
      list->Add(input.keys[i], input.items[i]);
    }
  };
  harness.Add({"delete and add", "1000", szPeer, kNodes, turn, [turn, fault] {
                 turn();
                 return fault();
               }});
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald::bench;
  const Input input = MakeInput();
  CHarness harness("list", "aldlib");
  AddCases<Ours>(harness, input, "aldlib");
  AddCases<Peer>(harness, input, "std::list");
  // Key and item are blocks of their own here, where std::string keeps a short key within the node.
  for (const char* szOperation : {"add and free", "walk", "find", "delete and add"})
    harness.Want(szOperation, "1000", "std::list", 0, 0);
  return harness.Main(argc, argv);
}
