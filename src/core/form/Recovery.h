// SPDX-License-Identifier: Apache-2.0
// The project kept safe while it holds unsaved changes: the recovery file.
// It begins with the input file the project would be saved as, so that it
// opens as one in any case, and goes on with what the form holds beyond
// it: every input as typed, the bent table cell by cell, its bookkeeping
// and the current file.
#pragma once

#include <string>

namespace tw {

class Session;
class Project;

// The recovery file of the project as it stands. Nothing on the form
// changes and no message is shown.
std::string composeRecovery(const Session& s);
// The same with the file dialog's name as it stood before a command changed it.
std::string composeRecovery(const Session& s, const std::string& dialogFileName);

// Puts the project of a recovery file back on the form: every input, the
// bent table, the bent counter and register, and the current file. The
// project counts as unsaved. A file that cannot be read -- any line that a
// session does not write, a table whose columns are not its layout's -- is
// a run-time error and leaves the form as it was.
void restoreRecovery(Session& s, const std::string& recovery);

// What tells one kept project from another: its file, its first title line
// and its bents (empty or 0 when it has none, or when the recovery file
// cannot be read), and why the file cannot be restored (empty when it can).
struct RecoverySummary {
    std::string currentFile;
    std::string title;
    int bents = 0;
    std::string problem;
};
RecoverySummary summarizeRecovery(const std::string& recovery);

// The input file at the head of a recovery file: what a save of its project
// would write (nothing when it is no recovery file).
std::string recoveredInputFile(const std::string& recovery);

} // namespace tw
