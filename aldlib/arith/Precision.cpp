#include "aldlib/arith/Precision.h"

#include "aldlib/arith/DecimalLiteral.h"

namespace ald {

using namespace literals;

constinit std::uint16_t CurrencyPrecision = 2;
constinit CFixedDecimal<23, 9> g_decHalfCent = 0.005_dec;

}  // namespace ald
