#pragma once

#include <new>
#include <utility>

namespace ald {

// Holds an object that is built with its holder and never destroyed. As a function-local static it
// answers from the first call, whichever static initialiser makes it, to the last moment of the
// process: no order of destruction can pull it away from an exit handler.
template <class T>
class NeverDestroyed {
 public:
  template <class... Args>
  explicit NeverDestroyed(Args&&... args)
      : m_pObject(::new (m_storage) T(std::forward<Args>(args)...)) {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T& operator*() const { return *m_pObject; }

 private:
  alignas(T) unsigned char m_storage[sizeof(T)];
  T* m_pObject;
};

}  // namespace ald
