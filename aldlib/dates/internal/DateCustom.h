#pragma once

#include "aldlib/dates/DateText.h"

namespace ald {

// What GetDateOrder returns, for the sources of this folder. Not part of the interface.
extern DateOrderType g_eDateOrder;

// Puts the first order and separator of dates back. Not part of the interface.
void ForgetDateCustom() noexcept;

}  // namespace ald
