// SPDX-License-Identifier: Apache-2.0
#include "cli/QuietProject.h"

#include "platform/SafeFile.h"

#include <iostream>

namespace tw {

bool QuietProject::read(const std::string& file, std::vector<std::string>* notes) {
    app.loadMainForm();
    return app.readFile(file, notes);
}

int QuietProject::writeTo(const std::string& output) {
    ports.lastMessage.clear();
    ports.keepSaves = true;
    if (!app.writeFile(output) || !ports.saved || !ports.lastMessage.empty()) {
        std::cerr << output << ": " << (ports.lastMessage.empty() ? "not written" : why()) << '\n';
        return 1;
    }
    const WriteResult w = replaceFile(output, *ports.saved);
    if (w.errorNumber) {
        std::cerr << output << ": " << oneLine(w.error) << '\n';
        return 1;
    }
    return 0;
}

} // namespace tw
