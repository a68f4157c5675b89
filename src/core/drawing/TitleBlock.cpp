// SPDX-License-Identifier: Apache-2.0
// The title block under the drawing.
#include "core/drawing/DrawingBuilder.h"

#include "core/model/Numeric.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing::build {

double Builder::titleRoomEm(const Box& drawn, double sizePt) const { return titleRoomPt(drawn) / sizePt; }

double Builder::titleRoomPt(const Box& drawn) const {
    // A little short of the view, so that a line as long as it may be never decides the scale.
    return o_.viewWidthPt > 0 ? 0.98 * o_.viewWidthPt : std::max(40 * o_.textPt, drawn.width() / pt_);
}

void Builder::title(Scene& scene) {
    const Box drawn = scene.bounds();
    Scene s;
    const double top = drawn.empty ? 0 : drawn.minY - line_;
    const double x0 = drawn.empty ? 0 : drawn.minX, x1 = drawn.empty ? 0 : drawn.maxX;
    tagged(s.line({x0, top}, {x1, top}, thin()), {}, Mark::Normal, kNotes);
    const double headPt = o_.textPt + 2;
    std::string lines;
    for (const auto& l : o_.projectLines ? in_.projectInfo : std::array<std::string, 3>{})
        if (!trim(l).empty())
            lines += (lines.empty() ? "" : "\n") + fitText(trim(l), titleRoomEm(drawn, o_.textPt), kTitleLines);
    const std::string head =
        fitText(in_.typeText + "  \xE2\x80\x94  " + (o_.heading.empty() ? in_.bentLabel : o_.heading),
                titleRoomEm(drawn, headPt), kTitleLines);
    double y = top - 0.4 * line_;
    text(s, {x0, y}, head, {}, Mark::Normal, HAlign::Left, VAlign::Top, 0, headPt).level = kNotes;
    y -= lineCount(head) * headPt * kLineSpacing * pt_ + 0.2 * line_;
    if (!lines.empty()) {
        text(s, {x0, y}, lines, {}, Mark::Normal, HAlign::Left, VAlign::Top).level = kNotes;
        y -= heightOf(lines) + 0.2 * line_;
    }
    // Notes flow along the lines the view leaves them.
    double x = x0;
    const double room = titleRoomPt(drawn) * pt_;
    for (const auto& n : notes_) {
        const double w = widthOf(n.text);
        if (x > x0 && x - x0 + w > room) {
            x = x0;
            y -= line_;
        }
        text(s, {x, y}, n.text, n.source, n.mark, HAlign::Left, VAlign::Top).level = kNotes;
        x += w + widthOf(n.text.back() == ',' ? " " : "   ");
    }
    if (!notes_.empty()) y -= line_ + 0.2 * line_;
    if (on(kProblems) && !g_.problems.empty()) {
        std::string problems;
        for (const auto& p : g_.problems)
            problems += (problems.empty() ? "" : "\n") + fitText(p, titleRoomEm(drawn, o_.textPt));
        text(s, {x0, y}, problems, {}, Mark::Error, HAlign::Left, VAlign::Top).level = kNotes;
    }
    keepLabelRoom(s, pt_); // set line by line, clear of one another
    append(scene, std::move(s), {0, 0});
}

} // namespace tw::drawing::build
