// SPDX-License-Identifier: Apache-2.0
#include "core/inputfile/Codepage.h"

#include "core/model/Utf8.h"

namespace tw {

namespace {

// Code points of the bytes 0x80..0x9F; 0 where Windows-1252 defines none.
constexpr char32_t kHigh[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

std::string printableBytes(std::string_view bytes) {
    static const char* const kHex = "0123456789ABCDEF";
    std::string out;
    for (unsigned char b : bytes) {
        const bool undefined = b >= 0x80 && b < 0xA0 && !kHigh[b - 0x80];
        if (b < 0x20 || b == 0x7F || undefined) {
            out += "\\x";
            out += kHex[b >> 4];
            out += kHex[b & 0xF];
        } else {
            out += cp1252ToUtf8(std::string_view(reinterpret_cast<const char*>(&b), 1));
        }
    }
    return out;
}

std::string cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char b : bytes) {
        char32_t cp = b;
        if (b >= 0x80 && b < 0xA0) cp = kHigh[b - 0x80] ? kHigh[b - 0x80] : b;
        out += utf8Encode(cp);
    }
    return out;
}

std::string utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (char32_t cp : utf8Decode(text)) {
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) {
            out += static_cast<char>(cp);
            continue;
        }
        char mapped = '?';
        for (int k = 0; k < 32; ++k)
            if (kHigh[k] == cp && cp != 0) mapped = static_cast<char>(0x80 + k);
        out += mapped;
    }
    return out;
}

} // namespace tw
