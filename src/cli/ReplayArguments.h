// SPDX-License-Identifier: Apache-2.0
// How many words may follow each verb of a replay script: a line with more
// cannot be carried out as written, so it is refused rather than half done.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace tw {

// The most arguments a line of `verb` takes; nothing for the verbs whose
// last argument is a text that runs to the end of the line.
std::optional<std::size_t> mostArguments(std::string_view verb);

} // namespace tw
