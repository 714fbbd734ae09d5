#include "aldlib/screens/HelpLevel.h"

#include <utility>
#include <vector>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/screens/internal/ForgetScreens.h"

namespace ald {
namespace {

constinit int g_nLevel = 0;

std::vector<int>& SavedLevels() {
  static const NeverDestroyed<std::vector<int>> s_levels;
  return *s_levels;
}

}  // namespace

int GetHelpLevel() {
  const bool bInMessage = MyAlderLibDataPtr != nullptr && MyAlderLibDataPtr->bInMessage != 0;
  // The least integer has no negative and comes back as it is.
  return bInMessage ? static_cast<int>(0U - static_cast<unsigned>(g_nLevel)) : g_nLevel;
}

int SetHelpLevel(int nLevel) {
  return std::exchange(g_nLevel, nLevel);
}

// Without memory to save it in, the old level is lost and the next pop brings an older one back.
int PushHelpLevel(int nLevel) {
  try {
    SavedLevels().push_back(g_nLevel);
  } catch (...) {
  }
  return SetHelpLevel(nLevel);
}

int PopHelpLevel() {
  std::vector<int>& saved = SavedLevels();
  if (!saved.empty()) {
    g_nLevel = saved.back();
    saved.pop_back();
  }
  return g_nLevel;
}

void ForgetHelpLevels() {
  g_nLevel = 0;
  SavedLevels() = {};
}

}  // namespace ald
