// Any script line is either carried out or refused; nothing reaches the disk
// or starts a program.
#include "cli/Replay.h"
#include "core/form/MainForm.h"

#include <cstddef>
#include <cstdint>
#include <sstream>

namespace {

class SealedPorts : public tw::ReplayPorts {
  public:
    using ReplayPorts::ReplayPorts;
    std::optional<std::string> fileDialog(const tw::FileDialogRequest&) override { return std::nullopt; }
    tw::ProcessResult startAndWait(const std::string&) override { return {}; }
    bool startDetached(const std::string&) override { return false; }
    tw::EngineResult callEngine(const std::string&, const std::array<std::string, 10>&) override { return {}; }
    void shellOpen(const std::string&, const std::string&, const std::string&) override {}
    std::string readSetting(const std::string&, const std::string&, const std::string&) override { return ""; }
    void writeSetting(const std::string&, const std::string&, const std::string&, const std::string&) override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ostringstream out, err;
    SealedPorts ports(out, "/nonexistent");
    tw::App app(ports, "/nonexistent");
    tw::loadMainForm(app);
    tw::Replay replay(app, ports, out, err);
    std::istringstream script(std::string(reinterpret_cast<const char*>(data), size));
    replay.run(script);
    return 0;
}
