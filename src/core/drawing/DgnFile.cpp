#include "core/drawing/DgnFile.h"

namespace tw::drawing {

// A V7 element starts with four bytes: level, type, and the number of
// 16-bit words that follow; two 0xFF bytes mark the end of the design.
// GDAL stops quietly where a file breaks off, so a cut-off drawing would
// look whole without this walk.
std::optional<std::string> dgnChainProblem(std::string_view bytes) {
    size_t at = 0;
    long element = 0;
    while (at + 2 <= bytes.size()) {
        const auto b0 = static_cast<unsigned char>(bytes[at]), b1 = static_cast<unsigned char>(bytes[at + 1]);
        if (b0 == 0xff && b1 == 0xff) return std::nullopt;
        ++element;
        if (at + 4 > bytes.size()) break;
        const size_t words =
            static_cast<unsigned char>(bytes[at + 2]) + 256u * static_cast<unsigned char>(bytes[at + 3]);
        const size_t next = at + 4 + 2 * words;
        if (next > bytes.size())
            return "it breaks off inside element " + std::to_string(element) + " (at byte " + std::to_string(at) +
                   " of " + std::to_string(bytes.size()) + ")";
        at = next;
    }
    if (at < bytes.size())
        return "it breaks off inside element " + std::to_string(element) + " (at byte " + std::to_string(at) + " of " +
               std::to_string(bytes.size()) + ")";
    return "it ends without the end-of-design mark after " + std::to_string(element) + " elements";
}

} // namespace tw::drawing
