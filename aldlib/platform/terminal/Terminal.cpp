#include "aldlib/platform/terminal/Terminal.h"

#include <istream>
#include <ostream>

namespace ald {

bool StreamTerminal::HasPerson() {
  return m_pIn != nullptr && m_pIn->good();
}

void StreamTerminal::Write(std::string_view sText) {
  m_out << sText << std::flush;
}

bool StreamTerminal::ReadLine(std::string& sLine) {
  return m_pIn != nullptr && static_cast<bool>(std::getline(*m_pIn, sLine));
}

}  // namespace ald
