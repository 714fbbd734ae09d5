#pragma once

#include <cstddef>
#include <string_view>

// Where a text occurs in a long one. With bBlind set, A to Z and a to z count as equal.
namespace ald::internal {

inline constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

// Returns the first place from nStart on where sSought stands whole in sText, or kNowhere. An empty
// sought text stands nowhere.
[[nodiscard]] std::size_t ScanForward(std::string_view sText, std::string_view sSought,
                                      std::size_t nStart, bool bBlind) noexcept;

// Returns the last place where sSought stands whole in sText, or kNowhere.
[[nodiscard]] std::size_t ScanBackward(std::string_view sText, std::string_view sSought,
                                       bool bBlind) noexcept;

}  // namespace ald::internal
