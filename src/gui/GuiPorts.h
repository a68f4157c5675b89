// The outside world of the window: Qt dialogs, the printer, the desktop.
#pragma once

#include "core/ports.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>
#include <memory>

class QPrinter;

namespace tw {

class GuiPorts : public UserPorts {
  public:
    GuiPorts();
    ~GuiPorts() override;

    // The window that owns dialogs and boxes.
    void setParent(QWidget* parent) { parent_ = parent; }
    // What showing and closing a form means in the window.
    std::function<void(const std::string&, const std::string&)> onShow;
    std::function<void(const std::string&)> onClose;
    std::function<void(const std::string&, const std::string&)> onPicture;
    // Waits for programs and words that need no answer (the status bar).
    std::function<void(const std::string&, std::function<void()>)> onWaitBegins;
    std::function<void()> onWaitEnds;
    std::function<void(const std::string&)> onNotice;

    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
    bool printerDialog() override;
    void print(const PrintDocument& doc) override;
    void setBusyCursor(bool busy) override;
    void windowShow(const std::string& form, const std::string& caption) override;
    void windowClose(const std::string& form) override;
    void pictureLoaded(const std::string& control, const std::string& file) override;
    void processEvents() override;
    void waitBegins(const std::string& what, std::function<void()> cancel) override;
    void waitEnds() override;
    void notice(const std::string& text) override;
    int screenWidthTwips() const override;
    int screenHeightTwips() const override;

  private:
    QPointer<QWidget> parent_;
    std::unique_ptr<QPrinter> printer_;
    int documentsPrinted_ = 0;
    bool busy_ = false;
};

// Prints a listing, one printed line per file line, in an 8-point
// monospaced font, a new page when the next line would not fit.
bool printListing(QPrinter& printer, const PrintDocument& doc);

} // namespace tw
