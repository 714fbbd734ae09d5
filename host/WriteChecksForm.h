#pragma once

#include "aldlib/platform/WindowTypes.h"

namespace alder_checks {

// The form of the screen: its controls and where they stand, in dialog units.
ald::DialogTemplate WriteChecksForm();

// Parts of the form that are painted alike, in dialog units.
constexpr ald::Rect kZoneOfFields{50, 6, 244, 58};
constexpr ald::Rect kZoneOfWords{50, 60, 244, 82};
constexpr ald::Rect kZoneOfEntry{6, 92, 296, 146};

}  // namespace alder_checks
