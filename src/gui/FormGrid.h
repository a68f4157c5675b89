// SPDX-License-Identifier: Apache-2.0
// One grid for every group of the main form: prompt, field and unit in
// columns of the same widths everywhere, so fields line up from group to
// group and every number carries its unit.
#pragma once

#include "core/model/Controls.h"

#include <QString>

class QGridLayout;
class QGroupBox;
class QLabel;
class QWidget;

namespace tw {

class Binder;

inline const QString kFeet = QStringLiteral("feet");

class FormGrid {
  public:
    static constexpr int kPromptWidth = 340;
    static constexpr int kFieldWidth = 104;
    static constexpr int kUnitWidth = 34;

    FormGrid(Binder& binder, QWidget* group, int promptWidth = kPromptWidth);

    // A row whose prompt and unit are the view's own; they show and hide with the field.
    QWidget* row(const QString& prompt, const CtlId& field, const QString& unit = {});
    // A row whose prompt (and unit) are controls of the form with captions of their own.
    QWidget* row(const CtlId& prompt, const CtlId& field, const CtlId& unit);
    QWidget* row(const CtlId& prompt, const CtlId& field, const QString& unit = {});
    // A row of any widgets in the three columns.
    void place(QWidget* prompt, QWidget* field, QWidget* unit);
    // A widget across all the columns.
    void span(QWidget* w);
    QGridLayout* layout() const { return grid_; }

  private:
    QLabel* prompt(const QString& text, const CtlId& follows);
    QLabel* unit(const QString& text, const CtlId& follows);

    Binder& binder_;
    QGridLayout* grid_;
    int promptWidth_;
};

// A grid of rows without margins of its own, for rows inside a group.
QGridLayout* tightGrid(QWidget* w);

// Numbered rows of one field each (cap steps, step elevations), ten to a
// column, so twenty beams fit without scrolling.
QWidget* numberedRows(Binder& b, Ctl label, Ctl field, int count, const QString& unit);

// A titled group for a frame of the form, hidden with it and whenever no field in it shows.
QGroupBox* frameGroup(Binder& binder, const CtlId& frame);
// A titled group of the view's own, shown while a field in it shows.
QGroupBox* viewGroup(Binder& binder, const QString& title);

} // namespace tw
