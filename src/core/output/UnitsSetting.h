// SPDX-License-Identifier: Apache-2.0
// How the engineer reads lengths (View > Units), kept in the settings store
// under a key of its own, apart from the legacy program's one setting.
#pragma once

#include "core/model/Measures.h"
#include "core/ports.h"

namespace tw {

// Feet and inches unless decimal feet were chosen.
LengthUnits lengthUnits(SystemPorts& system);
void setLengthUnits(SystemPorts& system, LengthUnits units);

} // namespace tw
