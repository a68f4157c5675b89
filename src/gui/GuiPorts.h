// The outside world of the window: Qt dialogs, the printer, the desktop.
#pragma once

#include "core/ports.h"
#include "platform/Platform.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>

class QPrinter;

namespace tw {

class GuiPorts : public Ports {
  public:
    GuiPorts();
    ~GuiPorts() override;

    // The window that owns dialogs and boxes.
    void setParent(QWidget* parent) { parent_ = parent; }
    // What showing and closing a form means in the window.
    std::function<void(const std::string&, const std::string&)> onShow;
    std::function<void(const std::string&)> onClose;
    std::function<void(const std::string&, const std::string&)> onPicture;
    // What to open instead of a file that does not exist (a picture drawn on demand); the same path for none.
    std::function<QString(const QString&)> onMissingFile;

    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
    bool printerDialog() override;
    void print(const PrintDocument& doc) override;
    void shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) override;
    ProcessResult startAndWait(const std::string& commandLine) override;
    bool startDetached(const std::string& commandLine) override;
    EngineResult callEngine(const std::string& programDir, const std::array<std::string, 10>& names) override;
    std::string readSetting(const std::string& app, const std::string& section, const std::string& key) override;
    void writeSetting(const std::string& app, const std::string& section, const std::string& key,
                      const std::string& value) override;
    std::string readIni(const std::string& path, const std::string& section, const std::string& key,
                        const std::string& defaultValue) override;
    AssociatedProgram associatedProgram(const std::string& file) override;
    void setBusyCursor(bool busy) override;
    void windowShow(const std::string& form, const std::string& caption) override;
    void windowClose(const std::string& form) override;
    void pictureLoaded(const std::string& control, const std::string& file) override;
    void processEvents() override;
    int screenWidthTwips() const override;
    int screenHeightTwips() const override;

  private:
    QPointer<QWidget> parent_;
    Platform platform_;
    std::unique_ptr<QPrinter> printer_;
    int documentsPrinted_ = 0;
    bool busy_ = false;
};

// Prints a listing, one printed line per file line, in an 8-point
// monospaced font, a new page when the next line would not fit.
bool printListing(QPrinter& printer, const PrintDocument& doc);

} // namespace tw
