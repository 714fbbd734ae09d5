#pragma once

namespace ald {

// Puts the first order and separator of dates back. Not part of the interface.
void ForgetDateCustom() noexcept;

}  // namespace ald
