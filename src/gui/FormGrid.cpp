// SPDX-License-Identifier: Apache-2.0
#include "gui/FormGrid.h"

#include "gui/Binder.h"
#include "gui/WrapLabel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace tw {

FormGrid::FormGrid(Binder& binder, QWidget* group, int promptWidth)
    : binder_(binder), grid_(new QGridLayout(group)), promptWidth_(promptWidth) {
    grid_->setColumnMinimumWidth(0, promptWidth);
    grid_->setColumnMinimumWidth(1, kFieldWidth);
    grid_->setColumnMinimumWidth(2, kUnitWidth);
    grid_->setColumnStretch(3, 1);
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(4);
}

QLabel* FormGrid::prompt(const QString& text, const CtlId& follows) {
    auto* l = new WrapLabel(text);
    l->setWordWrap(true);
    binder_.bindVisibility(follows, l);
    return l;
}

QLabel* FormGrid::unit(const QString& text, const CtlId& follows) {
    if (text.isEmpty()) return nullptr;
    auto* l = new QLabel(text);
    binder_.bindVisibility(follows, l);
    return l;
}

void FormGrid::place(QWidget* promptWidget, QWidget* field, QWidget* unitWidget) {
    const int r = grid_->rowCount();
    // Prompts wrap within the one column width, so fields line up from group to group.
    if (promptWidget) {
        promptWidget->setFixedWidth(promptWidth_);
        grid_->addWidget(promptWidget, r, 0, Qt::AlignVCenter);
    }
    if (auto* edit = qobject_cast<QLineEdit*>(field)) {
        edit->setFixedWidth(kFieldWidth);
        grid_->addWidget(field, r, 1);
    } else if (field) {
        // A combo box takes the width of its longest item, over the unit column if need be.
        grid_->addWidget(field, r, 1, 1, 3, Qt::AlignLeft);
    }
    if (unitWidget) grid_->addWidget(unitWidget, r, 2);
    if (auto* l = qobject_cast<QLabel*>(promptWidget)) l->setBuddy(field);
}

QWidget* FormGrid::row(const QString& promptText, const CtlId& fieldId, const QString& unitText) {
    QWidget* f = binder_.field(fieldId);
    place(prompt(promptText, fieldId), f, unit(unitText, fieldId));
    return f;
}

QWidget* FormGrid::row(const CtlId& promptId, const CtlId& fieldId, const CtlId& unitId) {
    QWidget* f = binder_.field(fieldId);
    QLabel* p = binder_.label(promptId);
    p->setWordWrap(true);
    place(p, f, binder_.label(unitId));
    return f;
}

QWidget* FormGrid::row(const CtlId& promptId, const CtlId& fieldId, const QString& unitText) {
    QWidget* f = binder_.field(fieldId);
    QLabel* p = binder_.label(promptId);
    p->setWordWrap(true);
    place(p, f, unit(unitText, fieldId));
    return f;
}

void FormGrid::span(QWidget* w) { grid_->addWidget(w, grid_->rowCount(), 0, 1, 4); }

QGridLayout* tightGrid(QWidget* w) {
    auto* g = new QGridLayout(w);
    g->setContentsMargins(0, 0, 0, 0);
    g->setHorizontalSpacing(6);
    g->setVerticalSpacing(4);
    return g;
}

// Numbered rows of one field each (cap steps, step elevations), ten to a
// column, so twenty beams fit without scrolling.
QWidget* numberedRows(Binder& b, Ctl label, Ctl field, int count, const QString& unit) {
    auto* w = new QWidget;
    QGridLayout* g = tightGrid(w);
    for (int i = 0; i < count; ++i) {
        const int r = i % 10, c = (i / 10) * 4;
        auto* number = b.label(CtlId(label, i));
        number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        number->setMinimumWidth(22);
        g->addWidget(number, r, c);
        auto* e = b.lineEdit(CtlId(field, i));
        e->setFixedWidth(FormGrid::kFieldWidth);
        g->addWidget(e, r, c + 1);
        auto* u = new QLabel(unit);
        b.bindVisibility(CtlId(field, i), u);
        g->addWidget(u, r, c + 2);
        g->setColumnMinimumWidth(c + 3, 24);
    }
    g->setColumnStretch(8, 1);
    return w;
}

QGroupBox* frameGroup(Binder& binder, const CtlId& frame) { return binder.groupBox(frame); }

QGroupBox* viewGroup(Binder& binder, const QString& title) {
    auto* g = new QGroupBox(title);
    binder.bindGroup(g);
    return g;
}

} // namespace tw
