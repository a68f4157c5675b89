// SPDX-License-Identifier: Apache-2.0
#include "cli/QuietProject.h"

namespace tw {

bool QuietProject::read(const std::string& file, std::vector<std::string>* notes) {
    app.loadMainForm();
    return app.readFile(file, notes);
}

} // namespace tw
