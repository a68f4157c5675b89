// SPDX-License-Identifier: Apache-2.0
// The explanatory sketches as pictures: drawn from the sketch's scene at a
// multiple of the size they are meant to be seen at, text growing with them.
#pragma once

#include <QString>

#include <string>

namespace tw {

// Writes the sketch `name` ("bdapb", "cwbw", ...) to `path` (its suffix picks
// the format), `scale` times its natural size. False with a sentence in
// `error` for a name that is no sketch or a file that cannot be written.
bool writeSketchImage(const std::string& name, const QString& path, double scale, QString* error);

} // namespace tw
