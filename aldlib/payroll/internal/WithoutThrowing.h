#pragma once

#include <exception>

namespace ald {

// Whether the work went to its end; in work on strings, memory is the only thing that can lack.
template <class Work>
bool WithoutThrowing(Work work) {
  try {
    work();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace ald
