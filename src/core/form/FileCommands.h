// The File menu: New, Open, Save and Save As, and the one save routine that
// Save, Save As, the toolbar and Run share.
#pragma once

namespace tw {

class App;

// Writes the project to its file (asking for a name when it has none).
// True when the file was written without the pile-box abort.
bool saveProject(App& app);

} // namespace tw
