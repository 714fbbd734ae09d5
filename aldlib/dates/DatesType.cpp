#include "aldlib/dates/DatesType.h"

#include <ostream>

#include "aldlib/dates/internal/FieldText.h"

namespace ald {

constinit DatesType TodaysDate{};

constinit const DatesType InvalidDate{255, 255, 65535};

std::ostream& operator<<(std::ostream& out, DatesType date) {
  FieldText<16> text;
  text.Number(date.year, 4).Text("-").Number(date.month, 2).Text("-").Number(date.day, 2);
  return out << text.c_str();
}

std::ostream& operator<<(std::ostream& out, const FromTo& range) {
  return out << range.From << ".." << range.To;
}

}  // namespace ald
