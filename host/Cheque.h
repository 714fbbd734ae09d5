#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/dates/DatesType.h"
#include "aldlib/text/FixedString.h"

namespace alder_checks {

#pragma pack(push, 1)

// One cheque as the company's file holds it, byte for byte.
struct Cheque {
  ald::DatesType date;
  ald::CDecimal amount;
  ald::CFixedString<40> sPayee;
  std::int32_t nAccount;  // that the money is spent on
};

#pragma pack(pop)

static_assert(sizeof(Cheque) == 60 && offsetof(Cheque, amount) == 4 &&
              offsetof(Cheque, sPayee) == 16 && offsetof(Cheque, nAccount) == 56);
static_assert(std::is_standard_layout_v<Cheque>);

}  // namespace alder_checks
