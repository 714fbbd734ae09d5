#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace ald {

// Calls until the call is not interrupted.
template <class TCall>
auto Uninterrupted(TCall call) {
  auto nResult = call();
  while (nResult == -1 && errno == EINTR) nResult = call();
  return nResult;
}

// A descriptor of the system, closed when it goes.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int nDescriptor) : m_nDescriptor(nDescriptor) {}
  Descriptor(Descriptor&& other) noexcept : m_nDescriptor(std::exchange(other.m_nDescriptor, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(m_nDescriptor, other.m_nDescriptor);
    return *this;
  }
  ~Descriptor() { Close(); }

  int get() const { return m_nDescriptor; }
  bool IsOpen() const { return m_nDescriptor >= 0; }

  // Returns an errno. The descriptor is gone even if the close was interrupted or failed, so it is
  // never closed again: its number may be another's by then.
  int Close() {
    const int nDescriptor = std::exchange(m_nDescriptor, -1);
    if (nDescriptor < 0 || ::close(nDescriptor) == 0 || errno == EINTR) return 0;
    return errno;
  }

 private:
  int m_nDescriptor = -1;
};

}  // namespace ald
