// SPDX-License-Identifier: Apache-2.0
// The drawing pane beside the form: the bent in plan and elevation as the
// engineer types, the element of the focused field highlighted. A dock the
// engineer can move, float, resize or close; zoom, pan and Fit are the
// view's own.
#pragma once

#include "core/drawing/BentDrawing.h"

#include <QDockWidget>

#include <functional>
#include <map>
#include <optional>
#include <utility>

class QComboBox;
class QLabel;
class QPushButton;

namespace tw {

class App;
class LaidOutView;

class DrawingPane : public QDockWidget {
    Q_OBJECT
  public:
    explicit DrawingPane(QWidget* parent = nullptr);

    // Draws the project as it stands; cheap when nothing it shows has changed.
    void showProject(const App& app);
    LaidOutView* view() const { return view_; }
    // What the pane says of closing values the form has not brought up to date.
    QLabel* staleNote() const { return stale_; }
    // What the pane says when it is too small for the bent's labels.
    QLabel* fitNote() const { return fit_; }
    // How lengths read (View > Units).
    void setUnits(LengthUnits units);
    // Its one click that brings them up to date, and what the click does.
    QPushButton* bringUpToDateButton() const { return bringUpToDate_; }
    std::function<void()> onBringUpToDate;

    QSize sizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    drawing::Scene layout(double widthPt, double heightPt) const;
    // The drawing of the views `o` names, laid out starting from its last layout for this size.
    drawing::Scene laidOut(const drawing::DrawOptions& o, double widthPt, double heightPt,
                           drawing::LayoutReport& report) const;

    drawing::BentInputs inputs_;
    bool elevationFirst_ = false; // the last field the engineer was in shows in the elevation
    // Automatic's last choice between both views and one, kept while nothing it hangs on changes.
    struct Choice {
        QSizeF size;
        bool elevationFirst;
        int beams;
        std::optional<BentType> type;
        bool both;
    };
    mutable std::optional<Choice> choice_;
    LengthUnits units_ = LengthUnits::FeetInches;
    // The last layout of each choice of views, where the next one starts from.
    mutable std::map<std::pair<bool, bool>, drawing::LayoutReport> last_;
    QComboBox* views_ = nullptr;
    QLabel* stale_ = nullptr;
    QLabel* fit_ = nullptr;
    QPushButton* bringUpToDate_ = nullptr;
    LaidOutView* view_ = nullptr;
    const App* app_ = nullptr;
    // The bent is first drawn once the window has shown its first frame:
    // the form comes up without waiting for the drawing.
    bool windowUp_ = false;
    QWidget* firstPaint_ = nullptr;
};

} // namespace tw
