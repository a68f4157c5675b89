// SPDX-License-Identifier: Apache-2.0
#include "core/form/PutAside.h"

#include "core/form/Recovery.h"
#include "core/form/Session.h"

namespace tw {

namespace {

std::string projectName(const std::string& currentFile) {
    if (currentFile.empty()) return "an untitled project";
    const auto slash = currentFile.find_last_of("/\\");
    return slash == std::string::npos ? currentFile : currentFile.substr(slash + 1);
}

} // namespace

std::string putAsideText(const std::string& currentFile, const std::string& time, const std::string& error) {
    const std::string name = projectName(currentFile);
    if (!error.empty()) return "Unsaved changes to " + name + " could not be put aside: " + error;
    return "Unsaved changes to " + name + " (" + time + ") were put aside";
}

void putAsideUnsaved(Session& s, const std::string& command) { putAsideUnsaved(s, command, s.dialogFileName()); }

void putAsideUnsaved(Session& s, const std::string& command, const std::string& dialogFileName) {
    if (!s.unsavedChanges()) return;
    // Whatever goes wrong here, the command the user asked for still runs.
    PutAside kept;
    try {
        kept = s.system.putAside(composeRecovery(s, dialogFileName), command);
    } catch (const std::exception& e) {
        kept.error = e.what();
    }
    if (!kept.kept && kept.error.empty()) kept.error = "no folder for put-aside work";
    s.user.toldPutAside(putAsideText(s.project().currentFile, kept.time, kept.kept ? std::string() : kept.error),
                        kept.kept ? kept.path : std::string());
}

} // namespace tw
