#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "aldlib/platform/Files.h"

namespace ald {

// The numbers of a backend's open files. Numbers go round: one that has been closed comes up again
// after all the others, so that a record which was not told of the close names no other file for a
// long time. Safe between threads; whoever has got an open file may finish with it after another
// thread has closed the number.
template <class T>
class FileTable {
 public:
  using Pointer = std::shared_ptr<T>;

  // Returns 0 if there are no numbers left.
  FileHandle Add(Pointer pFile) {
    const std::lock_guard guard(m_mutex);
    if (m_files.size() >= kNumbers) return FileHandle{};
    do {
      m_nLast = static_cast<std::uint16_t>(m_nLast % kNumbers + 1);
    } while (m_files.contains(m_nLast));
    m_files.emplace(m_nLast, std::move(pFile));
    return FileHandle{m_nLast};
  }
  // Null for a number that is not in use.
  Pointer Find(FileHandle hFile) const {
    const std::lock_guard guard(m_mutex);
    const auto it = m_files.find(static_cast<std::uint16_t>(hFile));
    return it != m_files.end() ? it->second : nullptr;
  }
  Pointer Remove(FileHandle hFile) {
    const std::lock_guard guard(m_mutex);
    const auto node = m_files.extract(static_cast<std::uint16_t>(hFile));
    return node.empty() ? nullptr : node.mapped();
  }
  std::size_t Size() const {
    const std::lock_guard guard(m_mutex);
    return m_files.size();
  }
  template <class TVisit>
  void Each(TVisit visit) const {
    const std::lock_guard guard(m_mutex);
    for (const auto& entry : m_files) visit(*entry.second);
  }

 private:
  static constexpr std::uint16_t kNumbers = 65534;  // 1 to 65534

  mutable std::mutex m_mutex;
  std::unordered_map<std::uint16_t, Pointer> m_files;
  std::uint16_t m_nLast = 0;
};

// A range of bytes that an open has locked.
struct FileRange {
  std::int64_t nStart;
  std::int64_t nLength;

  bool operator==(const FileRange&) const = default;
  bool Meets(const FileRange& other) const {
    return nLength > 0 && other.nLength > 0 && nStart < other.nStart + other.nLength &&
           other.nStart < nStart + nLength;
  }
};

// Ranges end at or below this; there is room for marks of a backend's own above it.
inline constexpr std::int64_t kRangeLimit = std::int64_t{1} << 62;

constexpr bool IsGoodRange(std::int64_t nStart, std::int64_t nLength) {
  return nStart >= 0 && nLength >= 0 && nLength <= kRangeLimit && nStart <= kRangeLimit - nLength;
}

}  // namespace ald
