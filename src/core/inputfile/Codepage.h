// The input file is single-byte Windows-1252 text; the program holds UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tw {

std::string cp1252ToUtf8(std::string_view bytes);
// Characters Windows-1252 cannot hold become "?".
std::string utf8ToCp1252(std::string_view text);

} // namespace tw
