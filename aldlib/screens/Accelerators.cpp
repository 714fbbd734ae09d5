#include "aldlib/screens/Accelerators.h"

#include <new>

#include "aldlib/frame/MemStore.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/WindowTable.h"
#include "aldlib/screens/internal/ForgetScreens.h"

namespace ald {

struct AcceleratorStackNode {
  AcceleratorHandle hAccelerator;
  AcceleratorStackNode* pNext;
};

namespace {

void MakeCurrent(AcceleratorHandle hAccelerator) {
  DataEntryManagerData.hAccelerator = hAccelerator;
  CurrentPlatform().desktop.windows.SetFrameAccelerator(hAccelerator);
}

// Takes the head off the stack, which is not empty, and returns what it held.
AcceleratorHandle Pop() {
  AcceleratorStackNode* const pHead = DataEntryManagerData.pAcceleratorStack;
  const AcceleratorHandle hAccelerator = pHead->hAccelerator;
  DataEntryManagerData.pAcceleratorStack = pHead->pNext;
  _RealDeAllocate(pHead);
  return hAccelerator;
}

}  // namespace

AcceleratorHandle GetAccelerator() {
  return DataEntryManagerData.hAccelerator;
}

AcceleratorHandle SetAccelerator(AcceleratorHandle hAccelerator) {
  DataEntryManagerDataType& data = DataEntryManagerData;
  const AcceleratorHandle hReplaced = data.hAccelerator;
  // Without memory for it the replaced one cannot be restored; the new one holds nevertheless.
  if (void* pRoom = _RealAllocate(sizeof(AcceleratorStackNode))) {
    data.pAcceleratorStack = ::new (pRoom) AcceleratorStackNode{hReplaced, data.pAcceleratorStack};
  }
  data.hPreviousAccelerator = hReplaced;
  MakeCurrent(hAccelerator);
  return hReplaced;
}

AcceleratorHandle RestoreAccelerator() {
  if (DataEntryManagerData.pAcceleratorStack == nullptr) return GetAccelerator();
  if (const AcceleratorHandle hSaved = Pop(); hSaved != AcceleratorHandle{}) MakeCurrent(hSaved);
  return GetAccelerator();
}

void ForgetAccelerators() {
  while (DataEntryManagerData.pAcceleratorStack != nullptr) Pop();
}

}  // namespace ald
