// SPDX-License-Identifier: Apache-2.0
// The engineer's own starting points: a template is an input file of the
// form's inputs with an empty bent table, read through the same reader as a
// project. File > Save as Template writes one; File > New from Template
// starts a new, unsaved project from one.
#pragma once

#include <optional>
#include <string>

namespace tw {

class Session;

// Why `name` cannot name a template: a template's name is one word (letters,
// digits, "-", "_", "." but not first), so that a list of them stays one
// name a line. Nothing when it can.
std::optional<std::string> templateNameProblem(const std::string& name);

// The form's inputs without the bent table, as a save writes them (its
// pile-box check asked at its place), to `path`. False, the user told why,
// when it was not written.
bool saveAsTemplate(Session& s, const std::string& name, const std::string& path);

// New's question and reset, then the inputs of the template at `path` on
// the form: a new project, not saved, as after New. A template that does
// not read is refused with the reader's words before anything is cleared.
// True when the form holds the template.
bool newFromTemplate(Session& s, const std::string& name, const std::string& path);

} // namespace tw
