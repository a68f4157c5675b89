// Reads a MicroStation V7 design file with GDAL's DGN driver (and no other
// driver), one record per element.
#pragma once

#include "core/drawing/DgnFile.h"

namespace tw {

class GdalDrawingReader : public drawing::DrawingFileReader {
  public:
    bool read(const std::string& path, std::vector<drawing::DgnElement>& elements, std::string& error) override;
};

// The drawing of a design file ready to paint, with the number of its
// elements. False with one sentence in `error` when it cannot be read.
struct LoadedDrawing {
    drawing::Scene scene;
    size_t elements = 0;
};
bool loadDrawing(const std::string& path, LoadedDrawing& drawing, std::string& error);

} // namespace tw
