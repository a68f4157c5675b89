// SPDX-License-Identifier: Apache-2.0
// Whatever records a drawing reader hands over (style strings, texts,
// coordinates that are not numbers or are huge, any level) become a scene
// whose extent can be taken; any bytes get an answer from the chain check.
#include "core/drawing/DgnFile.h"
#include "core/drawing/FeatureStyle.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

using tw::drawing::DgnElement;

double coordinate(FuzzedDataProvider& in) {
    constexpr double kOdd[] = {std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::max(),
                               std::numeric_limits<double>::lowest(),
                               std::numeric_limits<double>::denorm_min(),
                               0.0,
                               1e12};
    return in.ConsumeBool() ? in.PickValueInArray(kOdd) : in.ConsumeFloatingPoint<double>();
}

tw::drawing::Color color(FuzzedDataProvider& in) {
    return {in.ConsumeIntegral<std::uint8_t>(), in.ConsumeIntegral<std::uint8_t>(), in.ConsumeIntegral<std::uint8_t>()};
}

DgnElement element(FuzzedDataProvider& in) {
    DgnElement e;
    e.kind = in.PickValueInArray({DgnElement::Kind::Line, DgnElement::Kind::LineString, DgnElement::Kind::Shape,
                                  DgnElement::Kind::Arc, DgnElement::Kind::Ellipse, DgnElement::Kind::Text,
                                  DgnElement::Kind::Curve, DgnElement::Kind::ComplexChain,
                                  DgnElement::Kind::ComplexShape, DgnElement::Kind::Point, DgnElement::Kind::Other});
    e.type = in.ConsumeIntegral<int>();
    const int paths = in.ConsumeIntegralInRange(0, 3);
    for (int p = 0; p < paths; ++p) {
        e.paths.emplace_back();
        const int points = in.ConsumeIntegralInRange(0, 40);
        for (int i = 0; i < points; ++i) {
            const double x = coordinate(in);
            e.paths.back().push_back({x, coordinate(in)});
        }
    }
    e.closed = in.ConsumeBool();
    e.level = in.ConsumeIntegral<int>();
    e.colorIndex = in.ConsumeIntegralInRange(-2, 300);
    if (in.ConsumeBool()) e.rgb = color(in);
    e.weight = in.ConsumeIntegralInRange(-2, 40);
    e.style = in.ConsumeIntegralInRange(-2, 10);
    if (in.ConsumeBool()) e.fill = color(in);
    e.text = in.ConsumeRandomLengthString(64);
    if (in.ConsumeBool()) e.textSize = coordinate(in);
    if (in.ConsumeBool()) e.textAngle = coordinate(in);
    if (in.ConsumeBool()) {
        tw::drawing::DgnArc a;
        a.center = {coordinate(in), coordinate(in)};
        a.rx = coordinate(in);
        a.ry = coordinate(in);
        a.rotation = coordinate(in);
        a.start = coordinate(in);
        a.sweep = coordinate(in);
        e.arc = a;
    }
    e.styleString = in.ConsumeRandomLengthString(256);
    return e;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tw::drawing::dgnChainProblem(std::string_view(reinterpret_cast<const char*>(data), size));
    FuzzedDataProvider in(data, size);
    std::vector<DgnElement> elements;
    while (in.remaining_bytes() > 0 && elements.size() < 64)
        elements.push_back(element(in));
    for (const auto& e : elements)
        for (const auto& tool : tw::drawing::parseFeatureStyle(e.styleString))
            for (const auto& [key, value] : tool.params) {
                tw::drawing::parseStyleColor(value);
                tw::drawing::parseStyleSize(value);
            }
    const tw::drawing::Scene scene = tw::drawing::sceneFromDgn(elements);
    scene.bounds();
    scene.levels();
    return 0;
}
