// SPDX-License-Identifier: Apache-2.0
// Ties widgets to the controls of one form's data: copies the data into the
// widgets, and turns widget events into the core's user actions.
#pragma once

#include "core/app/App.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <map>
#include <optional>
#include <vector>

class QLineEdit;
class QComboBox;
class QLabel;
class QGroupBox;
class QPushButton;
class QPlainTextEdit;

namespace tw {

// What a locked, coloured closing field tells the user.
extern const char* const kClosingFieldTip;

class Binder : public QObject {
    Q_OBJECT
  public:
    Binder(App& app, FormId form, QObject* parent = nullptr);

    QLineEdit* lineEdit(const CtlId& id, QWidget* parent = nullptr);
    // A combo box that takes the mouse wheel only while it has the focus, so
    // the wheel over a page scrolls the page instead of changing a value.
    QComboBox* comboBox(const CtlId& id, QWidget* parent = nullptr);
    // The field for an input: a combo box for a choice, a line edit otherwise.
    QWidget* field(const CtlId& id, QWidget* parent = nullptr);
    QLabel* label(const CtlId& id, QWidget* parent = nullptr, bool clickable = false);
    QGroupBox* groupBox(const CtlId& id, QWidget* parent = nullptr);
    QPushButton* button(const CtlId& id, QWidget* parent = nullptr);
    QPlainTextEdit* textView(const CtlId& id, QWidget* parent = nullptr);
    // Any other widget whose visibility follows a control (a prompt or unit of the view's own).
    void bindVisibility(const CtlId& id, QWidget* w);
    // A group of the view's own: shown while it holds a visible field.
    void bindGroup(QGroupBox* g);

    // Copies the form's data into every bound widget.
    void sync();
    // Copies what the change set names.
    void sync(const ChangeSet& changes);
    // How many widgets are bound so far, and a copy into those bound since
    // that count: a part of the view built later catches up alone.
    size_t bindingCount() const { return bindings_.size(); }
    void syncSince(size_t first);
    QWidget* widgetFor(const CtlId& id) const;
    // The control a widget stands for, if it is bound.
    std::optional<CtlId> idOf(const QWidget* w) const;
    // What hovering a field says: its prompt, its unit and its limits (and,
    // for a closing field, how it is worked out).
    QString toolTipFor(const CtlId& id) const;
    // The words that stand before a field: its prompt.
    QString promptFor(const CtlId& id) const;
    // Gives the fields bound since `first` their prompt as accessible name, so a screen reader reads the form.
    void nameSince(size_t first);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Type { Line, Combo, Label, Group, Button, Text, Other, ViewGroup };
    struct Binding {
        CtlId id;
        Type type;
        QPointer<QWidget> widget;
    };
    const Control& data(const CtlId& id) const { return app_.ctl(target(id)); }
    Target target(const CtlId& id) const { return Target(form_, id); }
    void add(const CtlId& id, Type type, QWidget* w);
    void syncGroups();
    const Binding* find(const QObject* w) const;
    void syncOne(const Binding& b);
    // A group is worth showing while one of its fields is shown.
    bool holdsVisibleField(const QWidget* group) const;

    App& app_;
    FormId form_;
    std::vector<Binding> bindings_;
    std::multimap<CtlId, size_t> byControl_; // the bindings of each control
};

} // namespace tw
