// SPDX-License-Identifier: Apache-2.0
// Any bytes given to the reader are either read or refused with an error,
// and the reader without a form reads them as the form does: the same
// project, the same warnings and the same error.
#include "cli/QuietProject.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/Session.h"
#include "core/inputfile/ProjectReader.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static tw::QuietFilePorts ports;
    static tw::Session session(ports, ports, "/nonexistent");
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    tw::resetForm(session);
    std::vector<std::string> notes;
    std::string error;
    try {
        tw::parseProject(session, bytes, &notes);
    } catch (const tw::RuntimeError& e) {
        error = tw::standardErrorText(e.number(), e.description());
    }
    session.takeLog(); // what changed is nobody's business here
    const tw::ProjectRead direct = tw::readProject(bytes);
    // What a refused file leaves half read is nobody's: only the error has to agree then.
    if (direct.errorText() != error) std::abort();
    if (error.empty() && (direct.notes != notes || !(direct.project == session.project()))) std::abort();
    return 0;
}
