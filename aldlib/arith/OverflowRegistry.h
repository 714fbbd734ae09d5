#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <unordered_map>

// The side table of values that do not fit their digits. Its key is the address of the object that
// shows the limit; its item holds the exact value.
//
// A registry exists only while it holds an item, so that the ordinary road costs one test of a null
// pointer.
namespace ald {

template <class TItem, class TKey>
class COverflowRegistry {
 public:
  // The item of the key, or null.
  TItem* Find(const TKey* pKey) {
    const auto found = m_items.find(pKey);
    return found == m_items.end() ? nullptr : &found->second;
  }

  // Replaces any item of the key. Returns false when memory is out; then the key has no item.
  bool Store(const TKey* pKey, const TItem& item) noexcept {
    try {
      m_items.insert_or_assign(pKey, item);
      return true;
    } catch (const std::bad_alloc&) {
      m_items.erase(pKey);
      return false;
    }
  }

  bool Remove(const TKey* pKey) { return m_items.erase(pKey) != 0; }
  bool IsEmpty() const { return m_items.empty(); }

 private:
  // Neighbouring objects lie at least twelve bytes apart: the low bits say little.
  struct AddressHash {
    std::size_t operator()(const TKey* pKey) const {
      return static_cast<std::size_t>(reinterpret_cast<std::uintptr_t>(pKey) >> 4);
    }
  };

  static constexpr std::size_t kBuckets = 23;
  std::unordered_map<const TKey*, TItem, AddressHash> m_items{kBuckets};
};

}  // namespace ald
