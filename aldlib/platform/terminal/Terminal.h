#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "aldlib/platform/Export.h"

namespace ald {

// A line-by-line conversation with a person, in UTF-8.
class ALDLIB_EXPORT Terminal {
 public:
  virtual ~Terminal() = default;

  // Whether somebody is there to answer.
  virtual bool HasPerson() = 0;
  virtual void Write(std::string_view sText) = 0;
  // Reads up to the end of the line, which is dropped. False at the end of the input.
  virtual bool ReadLine(std::string& sLine) = 0;
};

// One over streams, which must outlive it. Somebody is there if there is an input, until its end.
class ALDLIB_EXPORT StreamTerminal : public Terminal {
 public:
  StreamTerminal(std::istream* pIn, std::ostream& out) : m_pIn(pIn), m_out(out) {}

  bool HasPerson() override;
  void Write(std::string_view sText) override;
  bool ReadLine(std::string& sLine) override;

 private:
  std::istream* m_pIn;
  std::ostream& m_out;
};

}  // namespace ald
