#include "aldlib/collections/List.h"

#include <cstring>
#include <limits>

#include "aldlib/frame/MemStore.h"

namespace ald {

namespace {

// The name under which the memory store knows this file.
constexpr const char* kSourceFile = "List.c";

// Whether there is a list to work on. One that a host has filled with zeros itself has no ring.
bool IsList(const LIST_STRUCT* pList) {
  return pList != nullptr && pList->Head != nullptr;
}

bool IsEmpty(const LIST_STRUCT* pList) {
  return pList->Head->Next == pList->Head;
}

bool HasCurrent(const LIST_STRUCT* pList) {
  return IsList(pList) && pList->Current != nullptr;
}

template <class T>
bool Allocate(T*& pBlock, std::uint32_t nSize, int nSourceLine) {
  void* pNew = nullptr;
  const int nOk = _CppAllocate(&pNew, nSize, kSourceFile, nSourceLine);
  pBlock = static_cast<T*>(pNew);
  return nOk != 0;
}

template <class T>
bool Copy(T*& pCopy, const void* pBytes, std::uint32_t nSize, int nSourceLine) {
  if (!Allocate(pCopy, nSize, nSourceLine)) return false;
  if (nSize != 0) std::memcpy(pCopy, pBytes, nSize);
  return true;
}

bool CopyText(char*& szCopy, const char* szText, int nSourceLine) {
  szCopy = nullptr;
  const std::size_t nSize = std::strlen(szText) + 1;
  return nSize <= std::numeric_limits<std::uint32_t>::max() &&
         Copy(szCopy, szText, static_cast<std::uint32_t>(nSize), nSourceLine);
}

void FreeNode(NODE_STRUCT* pNode) {
  _RealDeAllocate(pNode->Key);
  _RealDeAllocate(pNode->Item);
  _RealDeAllocate(pNode);
}

// A node with copies of key and item, linked to nothing yet; null without memory.
NODE_STRUCT* MakeNode(const char* szKey, const void* pItem, std::uint16_t nSize) {
  NODE_STRUCT* pNode = nullptr;
  if (!Allocate(pNode, sizeof *pNode, __LINE__)) return nullptr;
  char* szOwnKey = nullptr;
  void* pOwnItem = nullptr;
  const bool bOk = (szKey == nullptr || CopyText(szOwnKey, szKey, __LINE__)) &&
                   (pItem == nullptr || Copy(pOwnItem, pItem, nSize, __LINE__));
  pNode->Key = szOwnKey;
  pNode->Item = pOwnItem;
  pNode->ItemSize = nSize;
  if (bOk) return pNode;
  FreeNode(pNode);
  return nullptr;
}

using Step = NODE_STRUCT* NODE_STRUCT::*;

template <class Has>
int FindFrom(LIST_STRUCT* pList, NODE_STRUCT* pNode, Step step, Has hasKey) {
  for (; pNode != pList->Head; pNode = pNode->*step) {
    if (pNode->Key != nullptr && hasKey(pNode->Key)) {
      pList->Current = pNode;
      return 1;
    }
  }
  return 0;
}

// Makes current the first node from pNode on that has the key; until then the current node stays
// where it was. For the supplied compare routine, which nearly every caller passes, the keys are
// compared in place: a call for each node would cost more than the comparison.
int FindFrom(LIST_STRUCT* pList, NODE_STRUCT* pNode, Step step, const char* szKey,
             ListCompare compare) {
  if (compare == &ListDefaultCompare && szKey != nullptr) {
    return FindFrom(pList, pNode, step, [szKey](const char* szNodeKey) {
      return *szNodeKey == *szKey && std::strcmp(szNodeKey, szKey) == 0;
    });
  }
  return FindFrom(pList, pNode, step, [szKey, compare](const char* szNodeKey) {
    return compare(szNodeKey, szKey) == 0;
  });
}

int FindFromCurrent(LIST_STRUCT* pList, Step step, const char* szKey, ListCompare compare) {
  if (!HasCurrent(pList) || compare == nullptr) return 0;
  NODE_STRUCT* const pNode = pList->Current;
  return FindFrom(pList, pNode == pList->Head ? pNode->*step : pNode, step, szKey, compare);
}

// Whether the current node is the one to act on: with a key, after it has been found.
bool GoTo(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  if (szKey != nullptr && ListFind(pList, szKey, compare) == 0) return false;
  return HasCurrent(pList);
}

int Move(LIST_STRUCT* pList, Step step) {
  if (!HasCurrent(pList) || pList->Current->*step == pList->Head) return 0;
  pList->Current = pList->Current->*step;
  return 1;
}

int MoveInCircle(LIST_STRUCT* pList, Step step) {
  if (!HasCurrent(pList)) return 0;
  pList->Current = pList->Current->*step;
  if (pList->Current == pList->Head) pList->Current = pList->Current->*step;
  return 1;
}

// Moves to the end that lies one step behind the sentinel, unless the current node is already the
// end on the other side.
int MoveToEnd(LIST_STRUCT* pList, Step step, NODE_STRUCT** ppNode) {
  if (ppNode == nullptr) return 0;
  *ppNode = nullptr;
  if (!HasCurrent(pList) || IsEmpty(pList) || pList->Current->*step == pList->Head) return 0;
  pList->Current = pList->Head->*step;
  *ppNode = pList->Current;
  return 1;
}

template <class Add>
int PasteWith(LIST_STRUCT* pSource, const LIST_STRUCT* pDestination, int bFreeSource, Add add) {
  if (!IsList(pSource) || !HasCurrent(pDestination) || pSource == pDestination) return 0;
  if (IsEmpty(pSource)) return 1;
  for (NODE_STRUCT& node : *pSource) {
    pSource->Current = &node;
    if (add(node) == 0) return 0;
  }
  if (bFreeSource != 0) ListFree(&pSource);
  return 1;
}

}  // namespace

int ListDefaultCompare(const char* szFirst, const char* szSecond) {
  const int nOrder =
      std::strcmp(szFirst != nullptr ? szFirst : "", szSecond != nullptr ? szSecond : "");
  return (nOrder > 0) - (nOrder < 0);
}

int ListInitialize(LIST_STRUCT** ppList, const char* szName) {
  if (ppList == nullptr) return 0;
  *ppList = nullptr;
  LIST_STRUCT* pList = nullptr;
  if (!Allocate(pList, sizeof *pList, __LINE__)) return 0;
  if ((szName != nullptr && !CopyText(pList->ListName, szName, __LINE__)) ||
      !Allocate(pList->Head, sizeof *pList->Head, __LINE__)) {
    _RealDeAllocate(pList->ListName);
    _RealDeAllocate(pList);
    return 0;
  }
  pList->Head->Next = pList->Head->Previous = pList->Head;
  pList->Current = pList->Head;
  *ppList = pList;
  return 1;
}

int ListFree(LIST_STRUCT** ppList) {
  if (ppList == nullptr || *ppList == nullptr) return 0;
  LIST_STRUCT* const pList = *ppList;
  if (IsList(pList)) {
    for (NODE_STRUCT* pNode = pList->Head->Next; pNode != pList->Head;) {
      NODE_STRUCT* const pNext = pNode->Next;
      FreeNode(pNode);
      pNode = pNext;
    }
    FreeNode(pList->Head);
  }
  _RealDeAllocate(pList->ListName);
  _RealDeAllocate(pList);
  *ppList = nullptr;
  return 1;
}

int ListGetListLength(const LIST_STRUCT* pList, std::uint32_t* pnLength) {
  if (pList == nullptr || pnLength == nullptr) return 0;
  *pnLength = pList->Count;
  return 1;
}

int ListGetListName(const LIST_STRUCT* pList, char** pszName) {
  if (pList == nullptr || pszName == nullptr) return 0;
  *pszName = pList->ListName;
  return 1;
}

int ListSetListName(LIST_STRUCT* pList, const char* szName) {
  if (pList == nullptr || szName == nullptr) return 0;
  // Copied before the old name goes, since the new one may be a part of it.
  char* szOwnName = nullptr;
  const bool bOk = CopyText(szOwnName, szName, __LINE__);
  _RealDeAllocate(pList->ListName);
  pList->ListName = szOwnName;
  return bOk ? 1 : 0;
}

int ListPaste(LIST_STRUCT* pSource, LIST_STRUCT* pDestination, int bFreeSource) {
  return PasteWith(pSource, pDestination, bFreeSource, [pDestination](const NODE_STRUCT& node) {
    return ListAdd(pDestination, node.Key, node.Item, node.ItemSize);
  });
}

int ListPasteSorted(LIST_STRUCT* pSource, LIST_STRUCT* pDestination, int bFreeSource,
                    ListCompare compare) {
  if (compare == nullptr) return 0;
  return PasteWith(
      pSource, pDestination, bFreeSource, [pDestination, compare](const NODE_STRUCT& node) {
        return ListAddSorted(pDestination, node.Key, node.Item, node.ItemSize, compare);
      });
}

int ListAdd(LIST_STRUCT* pList, const char* szKey, const void* pItem, std::uint16_t nSize) {
  if (!HasCurrent(pList)) return 0;
  NODE_STRUCT* const pNode = MakeNode(szKey, pItem, nSize);
  if (pNode == nullptr) return 0;
  pNode->Previous = pList->Current;
  pNode->Next = pList->Current->Next;
  pNode->Previous->Next = pNode;
  pNode->Next->Previous = pNode;
  pList->Current = pNode;
  ++pList->Count;
  return 1;
}

int ListAddStart(LIST_STRUCT* pList, const char* szKey, const void* pItem, std::uint16_t nSize) {
  if (!IsList(pList)) return 0;
  pList->Current = pList->Head;
  return ListAdd(pList, szKey, pItem, nSize);
}

int ListAddEnd(LIST_STRUCT* pList, const char* szKey, const void* pItem, std::uint16_t nSize) {
  if (!IsList(pList)) return 0;
  pList->Current = pList->Head->Previous;
  return ListAdd(pList, szKey, pItem, nSize);
}

int ListAddSorted(LIST_STRUCT* pList, const char* szKey, const void* pItem, std::uint16_t nSize,
                  ListCompare compare) {
  if (!IsList(pList) || compare == nullptr) return 0;
  NODE_STRUCT* pNext = pList->Head->Next;
  while (pNext != pList->Head && (pNext->Key == nullptr || compare(szKey, pNext->Key) >= 0)) {
    pNext = pNext->Next;
  }
  pList->Current = pNext->Previous;
  return ListAdd(pList, szKey, pItem, nSize);
}

int ListFind(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  if (!IsList(pList) || compare == nullptr) return 0;
  return FindFrom(pList, pList->Head->Next, &NODE_STRUCT::Next, szKey, compare);
}

int ListFindForward(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  return FindFromCurrent(pList, &NODE_STRUCT::Next, szKey, compare);
}

int ListFindBackward(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  return FindFromCurrent(pList, &NODE_STRUCT::Previous, szKey, compare);
}

int ListFindSorted(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  if (!HasCurrent(pList) || pList->Current == pList->Head || compare == nullptr) return 0;
  const auto nOrder = static_cast<std::int16_t>(compare(szKey, pList->Current->Key));
  if (nOrder == 0) return 1;
  return nOrder < 0 ? ListFindBackward(pList, szKey, compare)
                    : ListFindForward(pList, szKey, compare);
}

int ListNext(LIST_STRUCT* pList) {
  return Move(pList, &NODE_STRUCT::Next);
}

int ListPrevious(LIST_STRUCT* pList) {
  return Move(pList, &NODE_STRUCT::Previous);
}

int ListCircleNext(LIST_STRUCT* pList) {
  return MoveInCircle(pList, &NODE_STRUCT::Next);
}

int ListCirclePrevious(LIST_STRUCT* pList) {
  return MoveInCircle(pList, &NODE_STRUCT::Previous);
}

int ListGetFirstNode(LIST_STRUCT* pList, NODE_STRUCT** ppNode) {
  return MoveToEnd(pList, &NODE_STRUCT::Next, ppNode);
}

int ListGetLastNode(LIST_STRUCT* pList, NODE_STRUCT** ppNode) {
  return MoveToEnd(pList, &NODE_STRUCT::Previous, ppNode);
}

int ListGetItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare, void** ppItem) {
  if (ppItem == nullptr || !GoTo(pList, szKey, compare)) return 0;
  *ppItem = pList->Current->Item;
  return 1;
}

int ListGetNode(LIST_STRUCT* pList, const char* szKey, ListCompare compare, NODE_STRUCT** ppNode) {
  if (ppNode == nullptr || !GoTo(pList, szKey, compare)) return 0;
  *ppNode = pList->Current;
  return 1;
}

int ListSetItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare, const void* pItem,
                std::uint16_t nSize) {
  return GoTo(pList, szKey, compare) ? ListSetItemCurrentNode(pList, pItem, nSize) : 0;
}

int ListSetItemCurrentNode(LIST_STRUCT* pList, const void* pItem, std::uint16_t nSize) {
  if (!HasCurrent(pList)) return 0;
  if (pItem != nullptr && pList->Current == pList->Head) return 0;
  // Copied before the old item goes, since the new one may be a part of it.
  void* pOwnItem = nullptr;
  const bool bOk = pItem == nullptr || Copy(pOwnItem, pItem, nSize, __LINE__);
  NODE_STRUCT& node = *pList->Current;
  if (node.Item != nullptr) {
    _RealDeAllocate(node.Item);
    node.ItemSize = 0;
  }
  node.Item = pOwnItem;
  if (pOwnItem != nullptr) node.ItemSize = nSize;
  return bOk ? 1 : 0;
}

int ListDeleteItem(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  return GoTo(pList, szKey, compare) ? ListDeleteItemCurrentNode(pList) : 0;
}

int ListDeleteItemCurrentNode(LIST_STRUCT* pList) {
  if (!HasCurrent(pList)) return 0;
  pList->Current->Item = _RealDeAllocate(pList->Current->Item);
  return 1;
}

int ListDelete(LIST_STRUCT* pList, const char* szKey, ListCompare compare) {
  if (szKey != nullptr && ListFind(pList, szKey, compare) == 0) return 0;
  return ListDeleteCurrentNode(pList);
}

int ListDeleteCurrentNode(LIST_STRUCT* pList) {
  if (!IsList(pList)) return 0;
  NODE_STRUCT* const pNode = pList->Current;
  if (IsEmpty(pList) || pNode == nullptr) return 1;
  if (pNode == pList->Head) return 0;
  pList->Current = pNode->Next != pList->Head ? pNode->Next : pNode->Previous;
  pNode->Previous->Next = pNode->Next;
  pNode->Next->Previous = pNode->Previous;
  FreeNode(pNode);
  --pList->Count;
  return 1;
}

}  // namespace ald
