#include "cli/QuietProject.h"

#include "core/form/MainForm.h"
#include "core/inputfile/InputFile.h"

namespace tw {

bool QuietProject::read(const std::string& file, std::vector<std::string>* notes) {
    bool read = false;
    // Whatever one file does, the command goes on.
    app.guarded([&] {
        loadMainForm(app);
        read = readInputFile(app, file, notes);
    });
    return read;
}

} // namespace tw
