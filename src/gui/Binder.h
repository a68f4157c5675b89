// Ties widgets to the controls of one form's data: copies the data into the
// widgets, and turns widget events into the core's user actions.
#pragma once

#include "core/App.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

class QLineEdit;
class QComboBox;
class QLabel;
class QGroupBox;
class QPushButton;
class QTableWidget;
class QTabWidget;
class QPlainTextEdit;

namespace tw {

class Binder : public QObject {
    Q_OBJECT
  public:
    Binder(App& app, std::string form, QObject* parent = nullptr);

    QLineEdit* lineEdit(const CtlId& id, QWidget* parent = nullptr);
    QComboBox* comboBox(const CtlId& id, QWidget* parent = nullptr);
    QLabel* label(const CtlId& id, QWidget* parent = nullptr, bool clickable = false);
    QGroupBox* groupBox(const CtlId& id, QWidget* parent = nullptr);
    QPushButton* button(const CtlId& id, QWidget* parent = nullptr);
    QPlainTextEdit* textView(const CtlId& id, QWidget* parent = nullptr);
    // Any other widget whose visibility follows a control (a scrolled pane).
    void bindVisibility(const CtlId& id, QWidget* w);

    // Copies the form's data into every bound widget.
    void sync();
    QWidget* widgetFor(const CtlId& id) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Type { Line, Combo, Label, Group, Button, Text, Other };
    struct Binding {
        CtlId id;
        Type type;
        QPointer<QWidget> widget;
    };
    const Control& data(const CtlId& id) const { return app_.form(form_).at(id); }
    Target target(const CtlId& id) const { return Target(form_, id); }
    const Binding* find(const QObject* w) const;
    void syncOne(const Binding& b);

    App& app_;
    std::string form_;
    std::vector<Binding> bindings_;
};

} // namespace tw
