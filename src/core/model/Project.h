// The project model is the set of input controls of the main form plus the
// bent table and its bookkeeping (all held by App). This names the inputs,
// in the model's order: control arrays, general inputs, bent-row entry.
#pragma once

#include "core/model/Controls.h"

#include <vector>

namespace tw {

const std::vector<CtlId>& projectInputs();

} // namespace tw
