// SPDX-License-Identifier: Apache-2.0
// A recovery file's project put back on the form.
#pragma once

#include "core/form/RecoveryFile.h"

#include <string>

namespace tw {

class Session;

// Puts the project of a recovery file back on the form: every input, the
// bent table, the bent counter and register, and the current file. The
// project counts as unsaved. A file that cannot be read is a run-time
// error and leaves the form as it was.
void restoreRecovery(Session& s, const std::string& recovery);

} // namespace tw
