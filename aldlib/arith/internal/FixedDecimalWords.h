#pragma once

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/internal/PackedWords.h"

// What the fast roads of the decimal share.
namespace ald {

// The end of each of them: the bytes and DEC_OK are all that an ordinary result leaves behind.
[[gnu::always_inline]] inline CDecimal& CDecimal::MarkGood() {
  m_pTlsData_storage.m_eLastStatus = DEC_OK;
  return *this;
}
[[gnu::always_inline]] inline CDecimal& CDecimal::StoreGood(packed::Words words) {
  packed::Store(words, m_aBytes);
  return MarkGood();
}

}  // namespace ald
