#pragma once

#include <string_view>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The name of a key or value with its letters in one case: equal for names that are the same.
inline CString FoldedName(std::string_view sName) {
  CString sFolded(sName);
  for (char& c : sFolded) c = CharUpper(c);
  return sFolded;
}

}  // namespace ald
