#pragma once

#include <cstdint>

namespace alder_checks {

// The numbered texts of the program, which is a module like any other: a translation is another
// table with the same numbers.
constexpr std::uint16_t kTextNoPayee = 31001;
constexpr std::uint16_t kTextNoAmount = 31002;
constexpr std::uint16_t kTextAmountTooLarge = 31003;
constexpr std::uint16_t kTextNoAccount = 31004;
constexpr std::uint16_t kTextNotRecorded = 31005;
constexpr std::uint16_t kTextBookInUse = 31006;
constexpr std::uint16_t kTextNoMoreScreens = 31007;
constexpr std::uint16_t kTextBookHolds = 31008;
constexpr std::uint16_t kTextAbout = 31009;

// The library's own.
constexpr std::uint16_t kTextInvalidDate = 20311;
constexpr std::uint16_t kTextSaveFirst = 20346;

// Adds the texts to those that messages are searched in. Once for each load of the library.
void RegisterTexts();

}  // namespace alder_checks
