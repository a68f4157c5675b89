#include "cli/Cli.h"
#include "cli/Printing.h"
#include "cli/Quoting.h"
#include "core/App.h"
#include "core/benttable/Layout.h"
#include "core/form/MainForm.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Project.h"

#include <iostream>
#include <map>

namespace tw {

namespace {

// Ports for reading files without a window: a box is remembered, not shown,
// and the user's settings are left alone.
class QuietPorts : public Ports {
  public:
    std::string lastMessage;

    MsgAnswer message(const std::string& text, const std::string&, MsgButtons b, MsgIcon) override {
        lastMessage = text;
        return b == MsgButtons::YesNo ? MsgAnswer::Yes : MsgAnswer::OK;
    }
    std::optional<std::string> fileDialog(const FileDialogRequest&) override { return std::nullopt; }
    bool printerDialog() override { return false; }
    void print(const PrintDocument&) override {}
    void shellOpen(const std::string&, const std::string&, const std::string&) override {}
    ProcessResult startAndWait(const std::string&) override { return {}; }
    EngineResult callEngine(const std::string&, const std::array<std::string, 10>&) override { return {}; }
    std::string readSetting(const std::string& a, const std::string& s, const std::string& k) override {
        return settings_[a + "/" + s + "/" + k];
    }
    void writeSetting(const std::string& a, const std::string& s, const std::string& k, const std::string& v) override {
        settings_[a + "/" + s + "/" + k] = v;
    }
    std::string readIni(const std::string&, const std::string&, const std::string&, const std::string& d) override {
        return d;
    }
    AssociatedProgram associatedProgram(const std::string&) override { return {}; }
    void setBusyCursor(bool) override {}
    void windowShow(const std::string&, const std::string&) override {}
    void windowClose(const std::string&) override {}
    void pictureLoaded(const std::string&, const std::string&) override {}

  private:
    std::map<std::string, std::string> settings_;
};

// The error text as one line: line breaks and tabs escaped as in quoted words.
std::string oneLine(const std::string& text) {
    const std::string q = quote(text);
    return q.substr(1, q.size() - 2);
}

} // namespace

int cliCheck(const CliOptions& opt, const std::vector<std::string>& files) {
    int status = 0;
    for (const auto& file : files) {
        QuietPorts ports;
        App app(ports, opt.programDir);
        loadMainForm(app);
        if (readInputFile(app, file)) {
            std::cout << file << ": ok (" << app.grid.rows() - 1 << " bents, " << beamCount(app) << " beams, "
                      << app.text(Ctl::cboTybent) << ")\n";
        } else {
            std::cout << file << ": " << oneLine(ports.lastMessage) << '\n';
            status = 1;
        }
    }
    return status;
}

int cliDump(const CliOptions& opt, const std::string& file) {
    QuietPorts ports;
    App app(ports, opt.programDir);
    loadMainForm(app);
    if (!readInputFile(app, file)) {
        std::cerr << file << ": " << oneLine(ports.lastMessage) << '\n';
        return 1;
    }
    for (const auto& id : projectInputs())
        printShow(std::cout, toString(id), app.text(id));
    printGrid(std::cout, app.grid);
    return 0;
}

int cliRun(const CliOptions&, const std::string&) {
    std::cerr << "tarnwick: run is not available in this build\n";
    return 2;
}

} // namespace tw
