// SPDX-License-Identifier: Apache-2.0
// Texts are held as UTF-8; keys and single-byte files speak in code points.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tw {

std::string utf8Encode(char32_t codePoint);
// The code points of a text; a byte that is not valid UTF-8 stands for itself.
std::vector<char32_t> utf8Decode(std::string_view text);

} // namespace tw
