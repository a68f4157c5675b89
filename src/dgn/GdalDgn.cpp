// SPDX-License-Identifier: Apache-2.0
// The part of the program that links GDAL, loaded only when a drawing is
// opened: GDAL and its hundred libraries would otherwise load, relocate and
// stay resident in every window and command.
#include "core/drawing/DgnFile.h"

#include <cpl_error.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <vector>

namespace tw {

namespace {

using drawing::DgnElement;
using drawing::Point;

DgnElement::Kind kindOfType(int type) {
    switch (type) {
    case 3: return DgnElement::Kind::Line;
    case 4: return DgnElement::Kind::LineString;
    case 6: return DgnElement::Kind::Shape;
    case 11:
    case 21: return DgnElement::Kind::Curve;
    case 12: return DgnElement::Kind::ComplexChain;
    case 14: return DgnElement::Kind::ComplexShape;
    case 15: return DgnElement::Kind::Ellipse;
    case 16: return DgnElement::Kind::Arc;
    case 17: return DgnElement::Kind::Text;
    case 22: return DgnElement::Kind::Point;
    default: return DgnElement::Kind::Other;
    }
}

std::vector<Point> pointsOf(const OGRSimpleCurve& curve) {
    std::vector<Point> points;
    points.reserve(static_cast<size_t>(std::max(0, curve.getNumPoints())));
    for (int i = 0; i < curve.getNumPoints(); ++i)
        points.push_back({curve.getX(i), curve.getY(i)});
    return points;
}

// The outline of a geometry as paths; rings make the element closed.
void collectPaths(const OGRGeometry& g, DgnElement& e, int depth = 0) {
    if (depth > 8) return;
    if (g.hasCurveGeometry()) {
        std::unique_ptr<OGRGeometry> linear(g.getLinearGeometry());
        if (linear && !linear->hasCurveGeometry()) collectPaths(*linear, e, depth + 1);
        return;
    }
    switch (wkbFlatten(g.getGeometryType())) {
    case wkbPoint: {
        const auto* p = g.toPoint();
        e.paths.push_back({{p->getX(), p->getY()}});
        break;
    }
    case wkbLineString:
    case wkbLinearRing: e.paths.push_back(pointsOf(*g.toLineString())); break;
    case wkbPolygon:
        for (const auto* ring : *g.toPolygon())
            e.paths.push_back(pointsOf(*ring));
        e.closed = true;
        break;
    case wkbMultiPoint:
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
        for (const auto* part : *g.toGeometryCollection())
            if (part) collectPaths(*part, e, depth + 1);
        break;
    default: break;
    }
}

int intField(const OGRFeature& f, const char* name, int missing) {
    const int i = f.GetFieldIndex(name);
    return i >= 0 && f.IsFieldSetAndNotNull(i) ? f.GetFieldAsInteger(i) : missing;
}

DgnElement recordOf(const OGRFeature& f) {
    DgnElement e;
    e.type = intField(f, "Type", 0);
    e.kind = kindOfType(e.type);
    e.level = intField(f, "Level", 0);
    e.colorIndex = intField(f, "ColorIndex", -1);
    e.weight = intField(f, "Weight", -1);
    e.style = intField(f, "Style", -1);
    if (const int i = f.GetFieldIndex("Text"); i >= 0 && f.IsFieldSetAndNotNull(i)) e.text = f.GetFieldAsString(i);
    if (const char* style = f.GetStyleString()) e.styleString = style;
    if (const OGRGeometry* g = f.GetGeometryRef()) collectPaths(*g, e);
    return e;
}

// GDAL ends the whole process after a fatal error, which is an allocation
// failing under a memory limit; here it ends the reading instead, and the
// program says why.
void CPL_STDCALL quietHandler(CPLErr kind, CPLErrorNum, const char*) {
    if (kind == CE_Fatal) throw std::bad_alloc();
}

// GDAL reports through a global handler; a viewer wants its words, not its noise on the terminal.
struct QuietGdal {
    QuietGdal() { CPLPushErrorHandler(quietHandler); }
    ~QuietGdal() { CPLPopErrorHandler(); }
};

struct DatasetCloser {
    void operator()(GDALDataset* d) const { GDALClose(d); }
};

} // namespace

} // namespace tw

// With no sink, only whether GDAL's DGN driver takes the file for a drawing.
extern "C" __attribute__((visibility("default"))) bool tarnwick_read_dgn(const std::string& path,
                                                                         const tw::drawing::DgnElementSink& each) {
    using namespace tw;
    static std::once_flag registered;
    std::call_once(registered, [] { RegisterOGRDGN(); });
    QuietGdal quiet;
    const char* const drivers[] = {"DGN", nullptr};
    std::unique_ptr<GDALDataset, DatasetCloser> dataset(
        GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, drivers, nullptr, nullptr));
    if (!dataset || dataset->GetLayerCount() < 1) return false;
    if (!each) return true;
    OGRLayer* layer = dataset->GetLayer(0);
    layer->ResetReading();
    while (const OGRFeatureUniquePtr feature{layer->GetNextFeature()})
        each(recordOf(*feature));
    return true;
}
