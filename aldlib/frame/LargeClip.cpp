#include "aldlib/frame/LargeClip.h"

namespace ald {
namespace {

constinit bool g_bLargeClip = false;

}  // namespace

bool IsLargeClipAllowed() {
  return g_bLargeClip;
}

void AllowLargeClip(bool bAllow) {
  g_bLargeClip = bAllow;
}

}  // namespace ald
