#include "aldlib/dates/DatesType.h"

namespace ald {

constinit DatesType TodaysDate{};

constinit const DatesType InvalidDate{255, 255, 65535};

}  // namespace ald
