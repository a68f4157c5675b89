#include "core/inputfile/Codepage.h"

namespace tw {

namespace {

// Code points of the bytes 0x80..0x9F; 0 where Windows-1252 defines none.
constexpr char32_t kHigh[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

} // namespace

std::string cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (unsigned char b : bytes) {
        char32_t cp = b;
        if (b >= 0x80 && b < 0xA0) cp = kHigh[b - 0x80] ? kHigh[b - 0x80] : b;
        appendUtf8(out, cp);
    }
    return out;
}

std::string utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        int len = c < 0x80 ? 1 : (c >> 5) == 6 ? 2 : (c >> 4) == 14 ? 3 : (c >> 3) == 30 ? 4 : 0;
        if (len == 0 || i + len > text.size()) { // not UTF-8: take the byte as it is
            out += static_cast<char>(c);
            ++i;
            continue;
        }
        char32_t cp = len == 1 ? c : c & (0x7F >> len);
        for (int k = 1; k < len; ++k)
            cp = (cp << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
        i += len;
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
