#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "aldlib/platform/Export.h"

namespace ald {

// A doubly linked list of items with keys. It keeps its own copies of both.
//
//   LIST_STRUCT* pList = nullptr;
//   if (ListInitialize(&pList, "Vendors") == 0) return;
//   ListAddSorted(pList, "Quill", &quill, sizeof quill, &ListDefaultCompare);
//   if (ListFind(pList, "Quill", &ListDefaultCompare) == 1) ListDeleteCurrentNode(pList);
//   for (const NODE_STRUCT& node : *pList) Show(node.Key);
//   ListFree(&pList);
//
// Everything happens at the current node: an insertion goes behind it, a search that finds leaves
// it on what was found, and one that misses leaves it where it was. In front of the first node and
// behind the last one lies the sentinel, which has neither key nor item; it is current in a new
// list, and again when the last real node has gone.
//
// Every call returns 1 for success and 0 for failure, unless told otherwise. Lack of memory is the
// only failure of a call that was made rightly, and the store has told the user by then. A null
// list, or null where an output or a compare routine is wanted, returns 0 and changes nothing.
//
// A list belongs to one thread at a time, and so do calls that only read: searching moves the
// current node. Walking with the iterators at the end of this file does not.

// Key and item are blocks of the memory store, or null. The item need not be aligned, and the
// pointer to it is not either: copy it before you use it.
#pragma pack(push, 1)
struct NODE_STRUCT {
  char* Key;
  NODE_STRUCT* Next;  // the nodes form a ring through the sentinel
  NODE_STRUCT* Previous;
  std::uint16_t ItemSize;  // in bytes, as the caller gave it, also where there is no item
  void* Item;
};
#pragma pack(pop)
static_assert(offsetof(NODE_STRUCT, Next) == sizeof(void*));
static_assert(offsetof(NODE_STRUCT, Previous) == 2 * sizeof(void*));
static_assert(offsetof(NODE_STRUCT, ItemSize) == 3 * sizeof(void*));
static_assert(offsetof(NODE_STRUCT, Item) == 3 * sizeof(void*) + 2);
static_assert(sizeof(NODE_STRUCT) == 4 * sizeof(void*) + 2);

struct LIST_STRUCT {
  char* ListName;        // or null
  NODE_STRUCT* Head;     // the sentinel
  NODE_STRUCT* Current;  // a node of this list, or the sentinel
  std::uint32_t Count;   // of nodes, without the sentinel
};

// Orders two keys: below 0, 0 or above 0 as the first comes before, with or behind the second. Of
// the keys of nodes it sees those that are not null.
using ListCompare = int (*)(const char* szFirst, const char* szSecond);

// -1, 0 or 1 by the bytes of the keys, taken as unsigned. Null counts as an empty key.
ALDLIB_EXPORT int ListDefaultCompare(const char* szFirst, const char* szSecond);

// ---- The list as a whole

// Makes an empty list; the name may be null. On failure stores null and returns 0.
ALDLIB_EXPORT int ListInitialize(LIST_STRUCT** ppList, const char* szName);
// Frees the list with all that it owns and stores null.
ALDLIB_EXPORT int ListFree(LIST_STRUCT** ppList);

ALDLIB_EXPORT int ListGetListLength(const LIST_STRUCT* pList, std::uint32_t* pnLength);
// Stores the list's own name, which lasts until the next ListSetListName; null if there is none.
ALDLIB_EXPORT int ListGetListName(const LIST_STRUCT* pList, char** pszName);
// The name must not be null. If there is no memory the list has no name afterwards.
ALDLIB_EXPORT int ListSetListName(LIST_STRUCT* pList, const char* szName);

// Copy all nodes of the source behind the destination's current node, in their order, or each to
// its place as ListAddSorted does. A flag other than 0 then frees the source: the caller's pointer
// to it is stale from there on. An empty source is never freed. Without memory for all, the nodes
// copied so far stay and the source is not freed. A list pasted into itself returns 0.
ALDLIB_EXPORT int ListPaste(LIST_STRUCT* pSource, LIST_STRUCT* pDestination, int bFreeSource);
ALDLIB_EXPORT int ListPasteSorted(LIST_STRUCT* pSource, LIST_STRUCT* pDestination, int bFreeSource,
                                  ListCompare compare);

// ---- Adding
//
// The new node becomes the current one. Key and item may be null, and then are null in the node;
// the size in bytes is stored either way. An item of no bytes is a block without content, not null.
// Without memory nothing is added.

// Behind the current node.
ALDLIB_EXPORT int ListAdd(LIST_STRUCT* pList, const char* szKey, const void* pItem,
                          std::uint16_t nSize);
// As the first node. Without memory the sentinel is current afterwards.
ALDLIB_EXPORT int ListAddStart(LIST_STRUCT* pList, const char* szKey, const void* pItem,
                               std::uint16_t nSize);
// As the last node. Without memory the last node is current afterwards.
ALDLIB_EXPORT int ListAddEnd(LIST_STRUCT* pList, const char* szKey, const void* pItem,
                             std::uint16_t nSize);
// Before the first node whose key is greater: compare(szKey, key of the node) is below 0. Equal
// keys stay in the order of their insertion, and nodes without a key are passed over.
ALDLIB_EXPORT int ListAddSorted(LIST_STRUCT* pList, const char* szKey, const void* pItem,
                                std::uint16_t nSize, ListCompare compare);

// ---- Searching
//
// A node is found if it has a key and compare(key of the node, szKey) is 0: the other way round
// than in ListAddSorted, which a compare routine that treats its two keys differently can see.

// From the first node on.
ALDLIB_EXPORT int ListFind(LIST_STRUCT* pList, const char* szKey, ListCompare compare);
// From the current node on to the end or to the start; from the sentinel, through the whole list.
ALDLIB_EXPORT int ListFindForward(LIST_STRUCT* pList, const char* szKey, ListCompare compare);
ALDLIB_EXPORT int ListFindBackward(LIST_STRUCT* pList, const char* szKey, ListCompare compare);
// In a sorted list, from the current node to the side on which the key must lie. That side is the
// sign of the low 16 bits of compare(szKey, key of the current node), which gets that key even if
// it is null. Returns 0 if the sentinel is current.
ALDLIB_EXPORT int ListFindSorted(LIST_STRUCT* pList, const char* szKey, ListCompare compare);

// ---- Moving

// To the next or previous node. Return 0, without moving, where that is the sentinel.
ALDLIB_EXPORT int ListNext(LIST_STRUCT* pList);
ALDLIB_EXPORT int ListPrevious(LIST_STRUCT* pList);
// The same in a circle, past the sentinel. Return 1 also in an empty list.
ALDLIB_EXPORT int ListCircleNext(LIST_STRUCT* pList);
ALDLIB_EXPORT int ListCirclePrevious(LIST_STRUCT* pList);

// Moves to the first node and stores it; but if the list is empty or its last node is current,
// stores null and returns 0 without moving. So the call fails after ListAddEnd, and always in a
// list of one node that is current. Callers that walk a list and stop on this 0 rely on it.
ALDLIB_EXPORT int ListGetFirstNode(LIST_STRUCT* pList, NODE_STRUCT** ppNode);
// The mirror of it: moves to the last node, but fails if the list is empty or its first node is
// current.
ALDLIB_EXPORT int ListGetLastNode(LIST_STRUCT* pList, NODE_STRUCT** ppNode);

// ---- Items and nodes
//
// With a key, these look for it with ListFind first, and return 0 if it is absent, with nothing
// changed. With a null key they act on the current node, and need no compare routine.

// Store the current node's item (not a copy), or the node. In an empty list that is the null item,
// or the sentinel.
ALDLIB_EXPORT int ListGetItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare,
                              void** ppItem);
ALDLIB_EXPORT int ListGetNode(LIST_STRUCT* pList, const char* szKey, ListCompare compare,
                              NODE_STRUCT** ppNode);

// Puts a copy of the item in the place of the old one; null takes the item away. The size becomes
// 0 with an old item that goes, and nSize with a new one that comes: a node that had no item and
// gets none keeps its size. Without memory the old item is gone and there is none. The sentinel
// takes no item.
ALDLIB_EXPORT int ListSetItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare,
                              const void* pItem, std::uint16_t nSize);
ALDLIB_EXPORT int ListSetItemCurrentNode(LIST_STRUCT* pList, const void* pItem,
                                         std::uint16_t nSize);

// Take the item away. The node keeps its old ItemSize.
ALDLIB_EXPORT int ListDeleteItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare);
ALDLIB_EXPORT int ListDeleteItemCurrentNode(LIST_STRUCT* pList);

// Remove the node with its key and item. The next node becomes the current one; after the last
// node, the one before it, which may be the sentinel. In an empty list there is nothing to do, and
// without a key the result is 1. The sentinel of a list with nodes is never removed: 0.
ALDLIB_EXPORT int ListDelete(LIST_STRUCT* pList, const char* szKey, ListCompare compare);
ALDLIB_EXPORT int ListDeleteCurrentNode(LIST_STRUCT* pList);

// ---- Walking
//
// A list is a bidirectional range of its nodes, in order:
//
//   for (const NODE_STRUCT& node : *pList) ...
//   std::ranges::count_if(*pList, [](const NODE_STRUCT& node) { return node.Item != nullptr; })
//
// Walking neither reads nor moves the current node. An iterator stands until its node is removed;
// the one behind the last node stands as long as the list. Make a node current by assigning its
// address to Current.
template <class Node>
class ListIterator {
 public:
  using iterator_category = std::bidirectional_iterator_tag;
  using value_type = NODE_STRUCT;
  using difference_type = std::ptrdiff_t;
  using pointer = Node*;
  using reference = Node&;

  ListIterator() = default;
  explicit ListIterator(Node* pNode) : m_pNode(pNode) {}
  operator ListIterator<const NODE_STRUCT>() const {
    return ListIterator<const NODE_STRUCT>(m_pNode);
  }

  reference operator*() const { return *m_pNode; }
  pointer operator->() const { return m_pNode; }
  ListIterator& operator++() {
    m_pNode = m_pNode->Next;
    return *this;
  }
  ListIterator& operator--() {
    m_pNode = m_pNode->Previous;
    return *this;
  }
  ListIterator operator++(int) {
    ListIterator old = *this;
    ++*this;
    return old;
  }
  ListIterator operator--(int) {
    ListIterator old = *this;
    --*this;
    return old;
  }
  bool operator==(const ListIterator&) const = default;

 private:
  Node* m_pNode = nullptr;
};

// What range-based loops and std::ranges look for.
inline ListIterator<NODE_STRUCT> begin(LIST_STRUCT& list) {
  return ListIterator<NODE_STRUCT>(list.Head->Next);
}
inline ListIterator<NODE_STRUCT> end(LIST_STRUCT& list) {
  return ListIterator<NODE_STRUCT>(list.Head);
}
inline ListIterator<const NODE_STRUCT> begin(const LIST_STRUCT& list) {
  return ListIterator<const NODE_STRUCT>(list.Head->Next);
}
inline ListIterator<const NODE_STRUCT> end(const LIST_STRUCT& list) {
  return ListIterator<const NODE_STRUCT>(list.Head);
}

}  // namespace ald
