// SPDX-License-Identifier: Apache-2.0
// The input file is single-byte Windows-1252 text; the program holds UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tw {

std::string cp1252ToUtf8(std::string_view bytes);
// Characters Windows-1252 cannot hold become "?".
std::string utf8ToCp1252(std::string_view text);
// Bytes of a file as a description may quote them: read as Windows-1252,
// with control bytes and bytes the code page leaves undefined written as \xHH.
std::string printableBytes(std::string_view bytes);

} // namespace tw
