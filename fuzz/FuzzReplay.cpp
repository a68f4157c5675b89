// SPDX-License-Identifier: Apache-2.0
// Any script line is either carried out or refused; nothing reaches the disk
// or starts a program.
#include "cli/QuietProject.h"
#include "cli/Replay.h"

#include <cstddef>
#include <cstdint>
#include <sstream>

namespace {

// Dialogs are cancelled and the platform does nothing, so no line of a script reaches the disk.
class SealedPorts : public tw::ReplayPorts {
  public:
    using ReplayPorts::ReplayPorts;
    std::optional<std::string> fileDialog(const tw::FileDialogRequest&) override { return std::nullopt; }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ostringstream out, err;
    SealedPorts ports(out, "/nonexistent");
    tw::QuietFilePorts quiet;
    tw::ReplaySystem system(out, quiet);
    tw::App app(ports, system, "/nonexistent");
    app.loadMainForm();
    tw::Replay replay(app, ports, out, err);
    std::istringstream script(std::string(reinterpret_cast<const char*>(data), size));
    replay.run(script);
    return 0;
}
