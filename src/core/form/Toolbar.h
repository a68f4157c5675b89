// SPDX-License-Identifier: Apache-2.0
// The toolbar's buttons by key: each does what the menu item beside it does.
#pragma once

#include "core/model/Controls.h"

#include <array>
#include <string_view>
#include <utility>

namespace tw {

inline constexpr std::array<std::pair<std::string_view, Ctl>, 6> kToolbarButtons = {{{"New", Ctl::mnuNew},
                                                                                     {"Open", Ctl::mnuOpen},
                                                                                     {"Save", Ctl::mnuSave},
                                                                                     {"Run", Ctl::mnuRun},
                                                                                     {"Print", Ctl::mnuPrint},
                                                                                     {"Exit", Ctl::mnuExit}}};

} // namespace tw
