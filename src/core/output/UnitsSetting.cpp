// SPDX-License-Identifier: Apache-2.0
#include "core/output/UnitsSetting.h"

namespace tw {

namespace {
constexpr const char* kApp = "Usage";
constexpr const char* kSection = "View";
constexpr const char* kKey = "Units";
} // namespace

LengthUnits lengthUnits(SystemPorts& system) {
    return unitsNamed(system.readSetting(kApp, kSection, kKey)).value_or(LengthUnits::FeetInches);
}

void setLengthUnits(SystemPorts& system, LengthUnits units) {
    system.writeSetting(kApp, kSection, kKey, std::string(unitsName(units)));
}

} // namespace tw
