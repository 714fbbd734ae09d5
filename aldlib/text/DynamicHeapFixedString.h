#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

namespace ald {

// A fixed string whose size is given at run time, for texts too long for the stack. It owns its
// buffer, which comes from the memory store, and hands it to every routine as a
// CFixedStringParamRef.
//
//   CDynamicHeapFixedString sText(2048);
//   Concat("Dear ", sName, sText);
//
// The characters stand behind a 32-bit word that holds their number. If the store has no memory, or
// nSize is below 1, the buffer is null, the size 0, and the string stays empty whatever is put in;
// the store has told the user by then.
class ALDLIB_EXPORT CDynamicHeapFixedString {
 public:
  explicit CDynamicHeapFixedString(std::int32_t nSize);
  ~CDynamicHeapFixedString();
  CDynamicHeapFixedString(const CDynamicHeapFixedString&) = delete;
  CDynamicHeapFixedString& operator=(const CDynamicHeapFixedString&) = delete;

  // Copies the characters, cut at size - 1, and zeroes the rest.
  CDynamicHeapFixedString& operator=(const char* szText) noexcept {
    sstrcpy(buffer, szText, size);
    return *this;
  }
  template <FixedText T>
  CDynamicHeapFixedString& operator=(const T& text) noexcept {
    internal::CopyText(buffer, size, text.view());
    return *this;
  }

  operator CFixedStringParamRef() noexcept { return {buffer, size}; }
  operator char*() noexcept { return buffer; }
  operator const char*() const noexcept { return buffer; }

  [[nodiscard]] std::int32_t GetSize() const noexcept { return size; }
  [[nodiscard]] bool IsEmpty() const noexcept { return view().empty(); }
  [[nodiscard]] std::string_view view() const noexcept { return internal::TextView(buffer, size); }
  void Clear() noexcept { sstrcpy(buffer, nullptr, size); }

  char* buffer = nullptr;  // owned
  std::int32_t size = 0;   // in bytes, terminator counted
};

}  // namespace ald
