// Reads a MicroStation V7 design file with GDAL's DGN driver (and no other
// driver), one record per element. GDAL lives in a library of the program
// folder, loaded on the first drawing read.
#pragma once

#include "core/drawing/DgnFile.h"

namespace tw {

class GdalDrawingReader : public drawing::DrawingFileReader {
  public:
    explicit GdalDrawingReader(std::string programDir) : programDir_(std::move(programDir)) {}
    bool read(const std::string& path, std::vector<drawing::DgnElement>& elements, std::string& error) override;

  private:
    std::string programDir_;
};

// The drawing of a design file ready to paint, with the number of its
// elements. False with one sentence in `error` when it cannot be read.
struct LoadedDrawing {
    drawing::Scene scene;
    size_t elements = 0;
};
bool loadDrawing(const std::string& programDir, const std::string& path, LoadedDrawing& drawing, std::string& error);

} // namespace tw
