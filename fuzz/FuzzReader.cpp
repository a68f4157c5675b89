// SPDX-License-Identifier: Apache-2.0
// Any bytes given to the reader are either read or refused with an error.
#include "cli/QuietProject.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/Session.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tw::QuietFilePorts ports;
    static tw::Session session(ports, ports, "/nonexistent");
    tw::resetForm(session);
    try {
        tw::parseProject(session, std::string(reinterpret_cast<const char*>(data), size));
    } catch (const tw::RuntimeError&) {
    }
    session.takeLog(); // what changed is nobody's business here
    return 0;
}
