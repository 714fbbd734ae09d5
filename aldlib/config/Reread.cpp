#include "aldlib/config/Reread.h"

#include <cstdint>
#include <cstring>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/config/Preferences.h"
#include "aldlib/config/Profile.h"
#include "aldlib/config/internal/ForgetSettings.h"
#include "aldlib/dates/DateText.h"
#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/DateCustom.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/LargeClip.h"
#include "aldlib/text/Constants.h"

namespace ald {
namespace {

constexpr const char* kRegionalSection = "intl";

void ReadDateSettings() {
  CFixedString<2> sSeparator = GetDateSeparator();
  GetWINProfileString(kRegionalSection, "sDate", sSeparator, sSeparator, 2);
  SetDateSeparator(sSeparator);
  SetDateOrder(static_cast<DateOrderType>(
      GetWINProfileInt(kRegionalSection, "iDate", static_cast<std::int16_t>(GetDateOrder()))));
  SetDateBounds();
}

void ReadNumberSettings() {
  GetWINProfileString(kRegionalSection, "sDecimal", DecimalPoint, DecimalPoint, 2);
  GetWINProfileString(kRegionalSection, "sThousand", Comma, Comma, 2);
  CurrencyPrecision = static_cast<std::uint16_t>(
      GetWINProfileInt(kRegionalSection, "iCurrDigits", GetCurrencyPrecision()));
  UpdateCentRounding();
}

void ReadDataPath() {
  if (MyAlderLibDataPtr == nullptr) return;
  char* const szDataPath = MyAlderLibDataPtr->szDataPath;
  constexpr std::size_t kSize = sizeof MyAlderLibDataPtr->szDataPath;
  GetALWProfileString(AlderIniSections::Lib, "DATAPATH", szDataPath, szDataPath,
                      static_cast<std::int16_t>(kSize));
  const auto nLength = static_cast<std::size_t>(TextLength(szDataPath, kSize));
  if (nLength > 0 && nLength + 1 < kSize && szDataPath[nLength - 1] != '\\') {
    std::memcpy(szDataPath + nLength, "\\", 2);
  }
}

}  // namespace

void ReReadWinIni() {
  ReadDateSettings();
  ReadNumberSettings();
  CDecimal::SetErrorHandler(IntlErrorHandler);
}

void ReReadAlderIni() {
  ReadDataPath();
  StoreAutoDecimal(CALWMachineUserPreferences::GetBoolValue(PreferenceGroup::Options,
                                                            Preference::autodecimal, false));
  AllowLargeClip(CALWMachineUserPreferences::GetBoolValue(PreferenceGroup::Options,
                                                          Preference::allowlargeclip, false));
}

void SetAutoDecimal(int nAutoDecimal) {
  StoreAutoDecimal(nAutoDecimal != 0);
  CALWMachineUserPreferences options(PreferenceOpenMode::Write, PreferenceGroup::Options);
  options.SetValue(Preference::autodecimal, nAutoDecimal != 0);
}

void ForgetSettings() {
  ForgetDateCustom();
  ForgetDateBounds();
  DecimalPoint = ".";
  Comma = ",";
  CurrencyPrecision = 2;
  UpdateCentRounding();
  StoreAutoDecimal(false);
  AllowLargeClip(false);
  CALWMachineUserPreferences::m_bConverted = false;
}

}  // namespace ald
