#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <utility>
#include <vector>

namespace ald {

// Things behind 32-bit handles. A handle is the thing's place in the table plus one, and above that
// the generation of the place, so that the handle of a thing that is gone does not answer for the
// one that took its place. A thing keeps its address until it is removed.
template <typename Handle, typename Thing>
class HandleTable {
 public:
  // Returns the handle, or 0 when all 65,535 places are taken.
  Handle Add(Thing thing) {
    std::uint32_t nPlace = 0;
    if (m_free.size() > kKeepFree || (m_places.size() == kMaxPlaces && !m_free.empty())) {
      nPlace = m_free.front();  // the one that has been free for longest
      m_free.pop_front();
    } else if (m_places.size() < kMaxPlaces) {
      nPlace = static_cast<std::uint32_t>(m_places.size());
      m_places.emplace_back();
    } else {
      return Handle{};
    }
    Place& place = m_places[nPlace];
    if (++place.nGeneration == 0) ++place.nGeneration;
    place.pThing = std::make_unique<Thing>(std::move(thing));
    ++m_nCount;
    return static_cast<Handle>(std::uint32_t{place.nGeneration} << 16 | (nPlace + 1));
  }

  // Null for a handle that names nothing, or nothing any more.
  Thing* Find(Handle handle) {
    const auto nHandle = static_cast<std::uint32_t>(handle);
    const std::uint32_t nPlace = (nHandle & 0xFFFF) - 1;
    if (nPlace >= m_places.size() || m_places[nPlace].nGeneration != nHandle >> 16) return nullptr;
    return m_places[nPlace].pThing.get();
  }

  bool Remove(Handle handle) {
    if (Find(handle) == nullptr) return false;
    const std::uint32_t nPlace = (static_cast<std::uint32_t>(handle) & 0xFFFF) - 1;
    m_places[nPlace].pThing.reset();
    m_free.push_back(nPlace);
    --m_nCount;
    return true;
  }

  std::size_t Count() const { return m_nCount; }

 private:
  static constexpr std::size_t kMaxPlaces = 0xFFFF;
  // So many places rest before one is used again, which makes a generation last longer.
  static constexpr std::size_t kKeepFree = 64;

  struct Place {
    std::uint16_t nGeneration = 0;
    std::unique_ptr<Thing> pThing;
  };

  std::vector<Place> m_places;
  std::deque<std::uint32_t> m_free;
  std::size_t m_nCount = 0;
};

}  // namespace ald
