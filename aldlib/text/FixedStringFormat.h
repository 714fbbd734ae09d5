#pragma once

// Lets the fmt library print fixed strings. An extra for programs that use that library: nothing of
// aldlib includes this header.
//
//   fmt::print("{:>12}", sName);      // every format of a text works

#include <fmt/format.h>

#include <string_view>

#include "aldlib/text/FixedString.h"

template <int N>
struct fmt::formatter<ald::CFixedString<N>> : fmt::formatter<std::string_view> {
  template <typename Context>
  auto format(const ald::CFixedString<N>& sText, Context& context) const {
    return fmt::formatter<std::string_view>::format(sText.view(), context);
  }
};

template <>
struct fmt::formatter<ald::CPathNameString> : fmt::formatter<ald::CFixedString<260>> {};
