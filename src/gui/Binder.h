// Ties widgets to the controls of one form's data: copies the data into the
// widgets after every event, and turns widget events into the core's events.
#pragma once

#include "core/App.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
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
    // `after` runs after every event the binder forwarded (the window refresh).
    Binder(App& app, std::string form, std::function<void()> after, QObject* parent = nullptr);

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

    // Runs a core event with run-time errors ending in the error box, then refreshes.
    void run(const std::function<void()>& body);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Type { Line, Combo, Label, Group, Button, Text, Other };
    struct Binding {
        CtlId id;
        Type type;
        QPointer<QWidget> widget;
    };
    Control& data(const CtlId& id) { return app_.form(form_).at(id); }
    const Binding* find(const QObject* w) const;
    void syncOne(const Binding& b);
    void keyInto(const Binding& b, QLineEdit* edit, int key);

    App& app_;
    std::string form_;
    std::function<void()> after_;
    std::vector<Binding> bindings_;
    int depth_ = 0;
};

} // namespace tw
