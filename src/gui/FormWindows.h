// SPDX-License-Identifier: Apache-2.0
// The small windows: splash, about, printer, preview and sketch viewer.
// Each mirrors its form's data through a Binder.
#pragma once

#include "core/app/App.h"
#include "gui/Binder.h"

#include <QDialog>

class QLabel;
class QStackedWidget;

namespace tw {

class LaidOutView;

class FormWindow : public QDialog {
    Q_OBJECT
  public:
    FormWindow(App& app, FormId form, QWidget* parent);
    void refresh();
    void refresh(const ChangeSet& changes);
    Binder& binder() { return binder_; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    App& app_;
    FormId form_;
    Binder binder_;
};

// frmSplash and frmAbout: title, version, disclaimer and OK.
FormWindow* makeSplashOrAbout(App& app, FormId form, QWidget* parent);
FormWindow* makePrinterWindow(App& app, QWidget* parent);
// The preview opens with room for this many columns and lines of its fixed-pitch font, where the screen allows.
inline constexpr int kPreviewColumns = 100;
inline constexpr int kPreviewLines = 40;
FormWindow* makePreviewWindow(App& app, QWidget* parent);

// The sketch window: a picture file when the program folder has it, else the
// sketch drawn by the program, scaled to the window.
class PictureWindow : public FormWindow {
    Q_OBJECT
  public:
    PictureWindow(App& app, QWidget* parent);
    void showPicture(const QString& file);
    // The sketch drawn in place of a missing picture; null while a picture file shows.
    LaidOutView* drawnSketch() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QStackedWidget* stack_ = nullptr;
    QLabel* image_ = nullptr;
    LaidOutView* sketch_ = nullptr;
};

// The full-size picture of a sketch for `path` (<program folder>/Drawing/<key>.tif)
// when the program folder lacks it: drawn once into the user's cache. Any
// other path comes back as it is.
QString drawnFullSizeSketch(const QString& path);

} // namespace tw
