#include <new>

#include "aldlib/arith/FixedDecimal.h"

// How a result is reported: the status, the handler, and the registry of values past the limits.
namespace ald {

const char* StatusName(DEC_STATUS eStatus) {
  switch (eStatus) {
    case DEC_EMPTY:
      return "DEC_EMPTY";
    case DEC_TRUNCATED:
      return "DEC_TRUNCATED";
    case DEC_OK:
      return "DEC_OK";
    case DEC_BAD_FORMAT:
      return "DEC_BAD_FORMAT";
    case DEC_TEXT_OVERFLOW:
      return "DEC_TEXT_OVERFLOW";
    case DEC_TEXT_UNDERFLOW:
      return "DEC_TEXT_UNDERFLOW";
    case DEC_OVERFLOW:
      return "DEC_OVERFLOW";
    case DEC_UNDERFLOW:
      return "DEC_UNDERFLOW";
    case DEC_DIVIDE_BY_ZERO:
      return "DEC_DIVIDE_BY_ZERO";
  }
  return "DEC_?";
}

auto CDecimal::SetErrorHandler(ErrorHandler pfnHandler) -> ErrorHandler {
  const ErrorHandler pfnFormer = m_pTlsData->m_pfnErrorHandler;
  m_pTlsData->m_pfnErrorHandler = pfnHandler;
  return pfnFormer;
}

DEC_STATUS CDecimal::ConvertMathErrorToDecStatus(int nMathError) {
  if (nMathError == MATH_OK) return DEC_OK;
  return nMathError == MATH_OVERFLOW ? DEC_OVERFLOW : DEC_DIVIDE_BY_ZERO;
}

void CDecimal::RaiseStatus(DEC_STATUS eStatus, CDecimal* pValue) {
  CALWThreadData& data = *m_pTlsData;
  data.m_eLastStatus = eStatus;
  if (data.m_pfnErrorHandler == nullptr || IsSuccess(eStatus)) return;
  if (IsOverflow(eStatus)) {
    // Without an item there is nothing that an assignment could still report: nobody is told.
    if (data.m_nExpressionDepth != 0) return;
    const COverflowItem* pItem = FindItem(pValue);
    if (pItem == nullptr || pItem->m_bHandled) return;
  }
  bool bHandled = false;
  {
    const CFrozenScope frozen;
    bHandled = data.m_pfnErrorHandler(pValue, eStatus);
  }
  if (bHandled && IsOverflow(eStatus)) {
    if (COverflowItem* pItem = FindItem(pValue)) pItem->m_bHandled = true;
  }
}

// The registry is frozen while a handler runs, so the limit that is stored here leaves the exact
// value in place.
bool CDecimal::DefaultErrorHandler(CDecimal* pValue, DEC_STATUS eStatus) {
  if (pValue == nullptr) return false;
  if (IsUnderflow(eStatus)) {
    pValue->SetToZero();
    return true;
  }
  if (IsOverflow(eStatus)) {
    *pValue = pValue->IsNegative() ? ms_nMinValue : ms_nMaxValue;
    return true;
  }
  return false;
}

bool CDecimal::InsertOrUpdateOverflowItem(DEC_STATUS eStatus, const CDecimal* pKey,
                                          const MathType& value) {
  CALWThreadData& data = *m_pTlsData;
  if (data.m_nHandlerDepth != 0) return false;
  if (data.m_pOverflowItems == nullptr) {
    try {
      data.m_pOverflowItems = new OverflowItems;
    } catch (const std::bad_alloc&) {
      return false;
    }
  }
  return data.m_pOverflowItems->Store(pKey, COverflowItem{eStatus, pKey, value, false});
}

bool CDecimal::RemovePossibleOverflowItem(const CDecimal* pKey) {
  CALWThreadData& data = *m_pTlsData;
  if (data.m_nHandlerDepth != 0 || data.m_pOverflowItems == nullptr) return false;
  const bool bRemoved = data.m_pOverflowItems->Remove(pKey);
  if (data.m_pOverflowItems->IsEmpty()) {
    delete data.m_pOverflowItems;
    data.m_pOverflowItems = nullptr;
  }
  return bRemoved;
}

bool CDecimal::UpdateOverflowItemOnCopy(CDecimal* pTarget, const CDecimal& source) {
  if (m_pTlsData->m_nHandlerDepth != 0) return false;
  const COverflowItem* pItem = FindItem(&source);
  if (pItem == nullptr) return RemovePossibleOverflowItem(pTarget);
  return InsertOrUpdateOverflowItem(pItem->m_eStatus, pTarget, MathType(pItem->m_MathValue));
}

bool CDecimal::UpdateOverflowItemOnAssignment(CDecimal* pTarget, const CDecimal& source) {
  if (m_pTlsData->m_nHandlerDepth != 0) return false;
  const COverflowItem* pItem = FindItem(&source);
  if (pItem == nullptr) return RemovePossibleOverflowItem(pTarget);
  const COverflowItem item = *pItem;
  const bool bStored = InsertOrUpdateOverflowItem(item.m_eStatus, pTarget, item.m_MathValue);
  if (!item.m_bHandled) RaiseStatus(item.m_eStatus, pTarget);
  return bStored;
}

}  // namespace ald
