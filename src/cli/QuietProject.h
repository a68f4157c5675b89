// SPDX-License-Identifier: Apache-2.0
// A project on a whole form with nobody watching, for the commands that need
// the form's commands or its view (rows added through Add's checks, a
// put-aside copy restored): the form loaded, the file read, and a
// failure kept as the one line the error box would have shown. Commands that
// only read a file use readProjectFile (platform/ProjectFile.h).
#pragma once

#include "core/QuietPorts.h"
#include "core/Quoting.h"
#include "core/app/App.h"
#include "platform/FileRead.h"

#include <optional>
#include <string>
#include <vector>

namespace tw {

// Quiet ports that read files as the window reads them.
class QuietFilePorts : public QuietPorts {
  public:
    ReadResult readFile(const std::string& path, std::uintmax_t maxBytes) override {
        return readRegularFile(path, maxBytes);
    }
    // With `keepSaves`, a save is kept in `saved`, for the caller to write
    // once it knows the whole command went through; else nothing is written.
    WriteResult writeFile(const std::string& path, const std::string& bytes) override {
        if (!keepSaves) return QuietPorts::writeFile(path, bytes);
        saved = bytes;
        return {};
    }
    bool keepSaves = false;
    std::optional<std::string> saved;
};

struct QuietProject {
    explicit QuietProject(const std::string& programDir) : app(ports, ports, programDir) {}

    // False when the file cannot be read; why() then says what the box would have.
    bool read(const std::string& file, std::vector<std::string>* notes = nullptr);
    std::string why() const { return oneLine(ports.lastMessage); }
    // Writes the project to `output` as a save would, but only when the whole
    // save went through without a word; 0, or 1 with the reason on standard error.
    int writeTo(const std::string& output);

    QuietFilePorts ports;
    App app;
};

} // namespace tw
