// SPDX-License-Identifier: Apache-2.0
// The sample engine's listings, computed from a project read with the
// program's own reader. Sample results, not a design.
#pragma once

#include <array>
#include <string>

namespace tw::sample {

// names: input, drawing script, concrete, rebar, general, bent, elevation,
// beam, pile, quantities.
void writeListings(const std::array<std::string, 10>& names);

} // namespace tw::sample
