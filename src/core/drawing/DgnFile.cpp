// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/DgnFile.h"

#include <algorithm>

namespace tw::drawing {

// A V7 element starts with four bytes: level, type, and the number of
// 16-bit words that follow; two 0xFF bytes mark the end of the design.
// GDAL stops quietly where a file breaks off, so a cut-off drawing would
// look whole without this walk.
void DgnChainWalk::feed(std::string_view bytes) {
    size_t i = 0;
    while (i < bytes.size() && !ended_) {
        if (skip_ > 0) {
            const size_t n = std::min<size_t>(skip_, bytes.size() - i);
            skip_ -= n;
            i += n;
            continue;
        }
        head_[headLength_++] = static_cast<unsigned char>(bytes[i++]);
        if (headLength_ == 2) {
            if (head_[0] == 0xff && head_[1] == 0xff) {
                ended_ = true;
                break;
            }
            ++elements_;
            start_ = size_ + i - 2;
        }
        if (headLength_ == 4) {
            skip_ = 2 * (head_[2] + 256u * head_[3]);
            headLength_ = 0;
        }
    }
    size_ += i;
}

std::optional<std::string> DgnChainWalk::problem() const {
    if (ended_) return std::nullopt;
    const auto breaksOff = [&](size_t at) {
        return "it breaks off inside element " + std::to_string(elements_) + " (at byte " + std::to_string(at) +
               " of " + std::to_string(size_) + ")";
    };
    if (skip_ > 0 || headLength_ >= 2) return breaksOff(start_);
    if (headLength_ == 1) return breaksOff(size_ - 1);
    return "it ends without the end-of-design mark after " + std::to_string(elements_) + " elements";
}

bool DrawingFileReader::read(const std::string& path, std::vector<DgnElement>& elements, std::string& error) {
    elements.clear();
    const bool ok = read(
        path, [&](const DgnElement& e) { elements.push_back(e); }, error);
    if (!ok) elements.clear();
    return ok;
}

std::optional<std::string> dgnChainProblem(std::string_view bytes) {
    DgnChainWalk walk;
    walk.feed(bytes);
    return walk.problem();
}

} // namespace tw::drawing
