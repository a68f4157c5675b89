// SPDX-License-Identifier: Apache-2.0
// An input file read straight into a Project, with no form around it: what
// check, dump, diff, table, draw and report need. The project is the one
// Open leaves on the form -- the choices' handlers change the project as they do there
// (a bent type brings its bent-drawn answer, its bearing distance and its
// table columns; the number of beams its columns) -- and a failure is the
// run-time error the error box would have shown.
#pragma once

#include "core/Errors.h"
#include "core/model/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace tw {

// The project as New and the start of the program leave it.
const Project& defaultProject();

struct ProjectRead {
    // What was read; on an error, what was read up to it.
    Project project;
    // Number fields that hold no number, a bent count above the bents held:
    // what `check` warns of, each naming its line.
    std::vector<std::string> notes;
    // What the window's status bar says of the file once it is open (the
    // bent count above the bents held); empty when nothing.
    std::string hint;
    // Why the file cannot be read; none when it was.
    std::optional<RuntimeError> error;

    bool ok() const { return !error.has_value(); }
    // The error box's text for the error (empty when there is none).
    std::string errorText() const;
};

// The file's bytes read onto the default project.
ProjectRead readProject(const std::string& bytes);

} // namespace tw
