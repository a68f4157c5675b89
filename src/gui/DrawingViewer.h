// SPDX-License-Identifier: Apache-2.0
// The engine's drawing in a window of its own: the drawing fitted, zoom and
// pan, a list of levels to show or hide, print on one page and export to
// SVG, PDF or PNG. What is hidden on screen is left out of print and export.
#pragma once

#include "core/drawing/Scene.h"

#include <QMainWindow>

class QListWidget;
class QListWidgetItem;
class QPrinter;

namespace tw {

class SceneView;

class DrawingViewer : public QMainWindow {
    Q_OBJECT
  public:
    // `file` names the drawing in the title; `elements` is how many the file holds.
    DrawingViewer(drawing::Scene scene, const QString& file, size_t elements, QWidget* parent = nullptr);

    SceneView* view() const { return view_; }
    QListWidget* levelList() const { return levels_; }

    // The drawing as shown (hidden levels left out) on one page of `printer`.
    bool printTo(QPrinter& printer);
    // The drawing as shown, as SVG, PDF or PNG by the suffix of `path`.
    bool exportTo(const QString& path, QString* error);

    // Sized and placed to fit the screen it opens on, frame included.
    void placeOnScreen();

  public slots:
    void print();
    void exportDrawing();
    void showAllLevels(bool show);

  private:
    void levelChanged(QListWidgetItem* item);
    QString title() const;

    QString file_;
    SceneView* view_ = nullptr;
    QListWidget* levels_ = nullptr;
};

} // namespace tw
