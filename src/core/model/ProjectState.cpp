#include "core/model/ProjectState.h"

#include "core/App.h"
#include "core/model/Inputs.h"

namespace tw {

ProjectState captureProject(const App& app) {
    ProjectState s;
    s.inputs.reserve(projectInputs().size());
    for (const auto& id : projectInputs())
        s.inputs.push_back(app.text(id));
    for (int r = 1; r < app.grid.rows(); ++r)
        s.rows.push_back(app.grid.rowCells(r));
    s.columns = app.grid.cols();
    s.bentCounter = app.bentCounter;
    s.bentRegister = app.bentRegister;
    s.currentFile = app.currentFile;
    return s;
}

} // namespace tw
