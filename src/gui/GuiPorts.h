// SPDX-License-Identifier: Apache-2.0
// The outside world of the window: Qt dialogs, the printer, the desktop.
#pragma once

#include "core/ports.h"
#include "gui/ListingPrinter.h"
#include "platform/Platform.h"

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
    std::function<void(const std::string&)> onOfferViewer;
    // A word about a field (a refused key): shown at its caret too.
    std::function<void(const std::string&, const std::string&)> onBalloon;
    // Work put aside (the copy, empty when none could be kept): a bar above the form.
    std::function<void(const std::string&, const std::string&)> onPutAside;

    MsgAnswer message(const std::string& text, const std::string& title, MsgButtons buttons, MsgIcon icon) override;
    std::optional<std::string> fileDialog(const FileDialogRequest& request) override;
    bool printerDialog() override;
    void print(const PrintDocument& doc) override;
    void endPrintJob() override;
    // The user guide in a window of the program's own, where the desktop has no browser.
    void showDocument(const std::string& file) override;
    void setBusyCursor(bool busy) override;
    void windowShow(const std::string& form, const std::string& caption) override;
    void windowClose(const std::string& form) override;
    void pictureLoaded(const std::string& control, const std::string& file) override;
    void processEvents() override;
    void waitBegins(const std::string& what, std::function<void()> cancel) override;
    void waitEnds() override;
    void notice(const std::string& text) override;
    void offerDrawingViewer(const std::string& drawing) override;
    void note(const std::string& text, const std::string& field) override;
    void toldPutAside(const std::string& text, const std::string& copy) override;
    int screenWidthTwips() const override;
    int screenHeightTwips() const override;

  protected:
    // The printer dialog; true to print on the printer as set there.
    virtual bool choosePrinter(QPrinter& printer);

  private:
    QPointer<QWidget> parent_;
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<ListingPrinter> job_;
    QPointer<QWidget> document_;
    bool busy_ = false;
};

// The platform as the window uses it: a document that is missing can be
// made before the desktop opens it (a sketch drawn on first use).
class GuiSystem : public Platform {
  public:
    // Given the full path of a missing file, the path of one to open instead.
    std::function<QString(const QString&)> onMissingFile;
    bool shellOpen(const std::string& file, const std::string& parameters, const std::string& folder) override;
};

} // namespace tw
