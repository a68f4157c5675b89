// SPDX-License-Identifier: Apache-2.0
// Reads a MicroStation V7 design file with GDAL's DGN driver (and no other
// driver), one record per element, handed over as it is read. GDAL lives in
// a library of the program folder, loaded on the first drawing read. Only a
// plain file of at most kMaxDrawingBytes is read.
#pragma once

#include "core/drawing/DgnFile.h"

namespace tw {

// Far beyond any real drawing (a whole bridge's is about 16 MiB).
inline constexpr unsigned long long kMaxDrawingBytes = 256ull << 20;

class GdalDrawingReader : public drawing::DrawingFileReader {
  public:
    explicit GdalDrawingReader(std::string programDir) : programDir_(std::move(programDir)) {}
    using DrawingFileReader::read;
    bool read(const std::string& path, const drawing::DgnElementSink& each, std::string& error) override;
    // The elements the file's chain holds, known before the first is handed over.
    long chainElements() const { return chainElements_; }

  private:
    std::string programDir_;
    long chainElements_ = 0;
};

// The drawing of a design file ready to paint, with the number of its
// elements. False with one sentence in `error` when it cannot be read.
struct LoadedDrawing {
    drawing::Scene scene;
    size_t elements = 0;
};
bool loadDrawing(const std::string& programDir, const std::string& path, LoadedDrawing& drawing, std::string& error);

} // namespace tw
