// SPDX-License-Identifier: Apache-2.0
#include "gui/Binder.h"
#include "core/form/FormPrompts.h"
#include "core/model/Inputs.h"
#include "gui/WrapLabel.h"
#include "platform/QtText.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextCursor>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace tw {

namespace {

QColor colorOf(BackColor c) {
    switch (c) {
    case BackColor::Yellow: return QColor(255, 255, 0);
    case BackColor::Red: return QColor(255, 0, 0);
    case BackColor::Normal: break;
    }
    return {};
}

// Focus that comes and goes with windows and popups (a message box, a menu)
// is not the user moving between fields.
bool userFocusReason(Qt::FocusReason r) { return r != Qt::ActiveWindowFocusReason && r != Qt::PopupFocusReason; }

// Qt counts the caret in UTF-16 units, the form data in bytes of UTF-8.
int bytesBefore(const QString& text, int position) { return static_cast<int>(text.left(position).toUtf8().size()); }

Selection selectionOf(const QLineEdit* e) {
    const QString t = e->text();
    if (!e->hasSelectedText()) return {bytesBefore(t, e->cursorPosition()), 0};
    const int start = e->selectionStart();
    const int from = bytesBefore(t, start);
    return {from, bytesBefore(t, start + static_cast<int>(e->selectedText().size())) - from};
}

int utf16Position(const std::string& text, int bytes) {
    const int n = std::clamp(bytes, 0, static_cast<int>(text.size()));
    return static_cast<int>(QString::fromUtf8(text.data(), n).size());
}

// Hands the wheel on to the page while the user has not picked the box.
class WheelSafeCombo : public QComboBox {
  public:
    using QComboBox::QComboBox;
    bool shownOnce = false;

  protected:
    void showEvent(QShowEvent* e) override {
        shownOnce = true;
        QComboBox::showEvent(e);
    }
    void wheelEvent(QWheelEvent* e) override {
        if (hasFocus())
            QComboBox::wheelEvent(e);
        else
            e->ignore();
    }
};

// A key of one of the window's commands that a text field does not edit with.
bool windowCommandKey(const QWidget* field, const QKeyEvent* ke) {
    if (!(ke->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))) return false;
    for (auto own : {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste,
                     QKeySequence::SelectAll, QKeySequence::DeleteStartOfWord, QKeySequence::DeleteEndOfWord,
                     QKeySequence::MoveToNextWord, QKeySequence::MoveToPreviousWord, QKeySequence::SelectNextWord,
                     QKeySequence::SelectPreviousWord})
        if (ke->matches(own)) return false;
    const QKeySequence pressed(ke->keyCombination());
    for (const QAction* a : field->window()->findChildren<QAction*>())
        if (a->isEnabled() && a->shortcuts().contains(pressed)) return true;
    return false;
}

} // namespace

namespace {

// The unit and the limits of a number field, as its format on leaving sets them.
QString unitAndLimits(const CtlId& id) {
    const InputRule& r = inputRule(id);
    if (id.ctl == Ctl::txtProjectInfo)
        return QStringLiteral("Free text, written as typed: title line %1 of the engine's listings").arg(id.index + 1);
    if (r.kind == InputKind::BentNumber)
        return QStringLiteral("A bent number from 1 to 99, typed with the digits 1 to 9 (no zero)");
    if (r.kind != InputKind::Number) return {};
    if (id.ctl == Ctl::txtCapLength) return QStringLiteral("In feet, four decimals: at most 99 ft");
    const bool angle = id.ctl == Ctl::txtBeamangleH || id.ctl == Ctl::txtBeamangleM || id.ctl == Ctl::txtBeamangleS ||
                       id.ctl == Ctl::txtWinLAngle || id.ctl == Ctl::txtWinRAngle;
    const int part = id.ctl == Ctl::txtBeamangleH   ? 0
                     : id.ctl == Ctl::txtBeamangleM ? 1
                     : id.ctl == Ctl::txtBeamangleS ? 2
                                                    : id.index;
    const QString unit = !angle      ? QStringLiteral("ft")
                         : part == 0 ? QStringLiteral("degrees")
                         : part == 1 ? QStringLiteral("minutes")
                                     : QStringLiteral("seconds");
    const QString decimals =
        r.decimals == 0 ? QStringLiteral("whole %1").arg(unit) : QStringLiteral("%1 decimals").arg(r.decimals);
    QString most(r.digits, QLatin1Char('9'));
    if (r.decimals) most += QLatin1Char('.') + QString(r.decimals, QLatin1Char('9'));
    QString least = QLatin1Char('-') + most.mid(1);
    return QStringLiteral("In %1, %2: at most %3 %1, at least %4 %1 (a wider value loses its leading digits)")
        .arg(unit, decimals, most, least);
}

} // namespace

const char* const kClosingFieldTip =
    "What the cap length leaves after the values entered above it; it is worked out, not typed.\n"
    "Yellow: some length is left. Red: nothing or less than nothing is left.";

Binder::Binder(App& app, FormId form, QObject* parent) : QObject(parent), app_(app), form_(form) {}

void Binder::add(const CtlId& id, Type type, QWidget* w) {
    byControl_.emplace(id, bindings_.size());
    bindings_.push_back({id, type, w});
}

QLineEdit* Binder::lineEdit(const CtlId& id, QWidget* parent) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(q(toString(id)));
    e->installEventFilter(this);
    add(id, Type::Line, e);
    // Edits Qt makes itself (Delete, paste, cut) reach the data as they are.
    connect(e, &QLineEdit::textChanged, this,
            [this, id, e](const QString& t) { app_.actions.edit(target(id), t.toStdString(), selectionOf(e)); });
    return e;
}

QComboBox* Binder::comboBox(const CtlId& id, QWidget* parent) {
    auto* c = new WheelSafeCombo(parent);
    c->setObjectName(q(toString(id)));
    c->setFocusPolicy(Qt::StrongFocus);
    // Sized to its items when first shown; made to follow them only when they
    // change after that (see syncCombo): following them from the start builds
    // each box's popup list before the window can show.
    c->installEventFilter(this);
    add(id, Type::Combo, c);
    connect(c, &QComboBox::activated, this, [this, id](int index) { app_.actions.choose(target(id), index); });
    return c;
}

QWidget* Binder::field(const CtlId& id, QWidget* parent) {
    if (data(id).kind == Kind::ComboBox) return comboBox(id, parent);
    return lineEdit(id, parent);
}

QLabel* Binder::label(const CtlId& id, QWidget* parent, bool clickable) {
    auto* l = new WrapLabel({}, parent);
    l->setObjectName(q(toString(id)));
    l->setTextFormat(Qt::PlainText);
    if (clickable) {
        l->installEventFilter(this);
        l->setCursor(Qt::PointingHandCursor);
        // A link the keyboard reaches too: Tab to it, Enter or Space opens it.
        l->setFocusPolicy(Qt::StrongFocus);
        l->setStyleSheet(QStringLiteral("QLabel { color: palette(link); text-decoration: underline; }"));
    }
    add(id, Type::Label, l);
    return l;
}

QGroupBox* Binder::groupBox(const CtlId& id, QWidget* parent) {
    auto* g = new QGroupBox(parent);
    g->setObjectName(q(toString(id)));
    add(id, Type::Group, g);
    return g;
}

QPushButton* Binder::button(const CtlId& id, QWidget* parent) {
    auto* b = new QPushButton(parent);
    b->setObjectName(q(toString(id)));
    b->installEventFilter(this);
    add(id, Type::Button, b);
    connect(b, &QPushButton::clicked, this, [this, id] { app_.actions.click(target(id)); });
    return b;
}

QPlainTextEdit* Binder::textView(const CtlId& id, QWidget* parent) {
    auto* t = new QPlainTextEdit(parent);
    t->setObjectName(q(toString(id)));
    t->setReadOnly(true);
    t->setLineWrapMode(QPlainTextEdit::NoWrap);
    add(id, Type::Text, t);
    return t;
}

void Binder::bindVisibility(const CtlId& id, QWidget* w) { add(id, Type::Other, w); }

void Binder::bindGroup(QGroupBox* g) { bindings_.push_back({CtlId(), Type::ViewGroup, g}); }

bool Binder::holdsVisibleField(const QWidget* group) const {
    for (const auto& b : bindings_) {
        if ((b.type != Type::Line && b.type != Type::Combo) || !b.widget || !data(b.id).visible) continue;
        if (group->isAncestorOf(b.widget)) return true;
    }
    return false;
}

const Binder::Binding* Binder::find(const QObject* w) const {
    for (const auto& b : bindings_)
        if (b.widget == w) return &b;
    return nullptr;
}

QWidget* Binder::widgetFor(const CtlId& id) const {
    // The control itself before a prompt or unit whose visibility follows it.
    QWidget* follower = nullptr;
    for (const auto& b : bindings_) {
        if (!(b.id == id)) continue;
        if (b.type != Type::Other) return b.widget;
        if (!follower) follower = b.widget;
    }
    return follower;
}

std::optional<CtlId> Binder::idOf(const QWidget* w) const {
    if (const Binding* b = find(w)) return b->id;
    return std::nullopt;
}

QString Binder::promptFor(const CtlId& id) const {
    // The field itself, not a prompt or unit whose visibility follows it.
    QWidget* w = nullptr;
    for (const auto& b : bindings_)
        if (b.id == id && (b.type == Type::Line || b.type == Type::Combo)) w = b.widget;
    QString prompt;
    // The prompt is what stands left of the field in its grid (one label or
    // several); rows without a worded one go by the input's name.
    if (auto* grid = w && w->parentWidget() ? qobject_cast<QGridLayout*>(w->parentWidget()->layout()) : nullptr) {
        int row = 0, col = 0, rows = 0, cols = 0;
        grid->getItemPosition(grid->indexOf(w), &row, &col, &rows, &cols);
        QLayoutItem* left = col > 0 ? grid->itemAtPosition(row, col - 1) : nullptr;
        if (QWidget* p = left ? left->widget() : nullptr) {
            QStringList parts;
            if (auto* l = qobject_cast<QLabel*>(p)) parts << l->text();
            for (const QLabel* l : p->findChildren<QLabel*>())
                parts << l->text();
            prompt = parts.join(QLatin1Char(' ')).remove(QLatin1Char('&')).simplified();
            if (prompt.size() < 4) prompt.clear(); // a row number, not a prompt
        }
    }
    if (prompt.isEmpty() && data(id).kind == Kind::ComboBox) prompt = q(choicePrompt(id.ctl));
    if (prompt.isEmpty()) prompt = q(inputLabel(id));
    return prompt.simplified();
}

QString Binder::toolTipFor(const CtlId& id) const {
    QStringList lines{promptFor(id)};
    if (data(id).kind == Kind::ComboBox) {
        QStringList items;
        for (const auto& item : data(id).items)
            items << q(item);
        lines << QStringLiteral("Choices: %1").arg(items.join(QStringLiteral(", ")));
    }
    if (const QString limits = unitAndLimits(id); !limits.isEmpty()) lines << limits;
    if (data(id).locked) lines << QString::fromUtf8(kClosingFieldTip);
    return lines.join(QLatin1Char('\n'));
}

void Binder::nameSince(size_t first) {
    if (form_ != FormId::Main) return;
    for (size_t i = first; i < bindings_.size(); ++i) {
        const Binding& b = bindings_[i];
        if (!b.widget || (b.type != Type::Line && b.type != Type::Combo) || !isInput(b.id.ctl)) continue;
        // What a screen reader says of the field: its prompt, then its unit and limits or choices.
        b.widget->setAccessibleName(promptFor(b.id));
        b.widget->setAccessibleDescription(toolTipFor(b.id).section(QLatin1Char('\n'), 1));
    }
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    const Binding* b = find(watched);
    if (!b) return false;
    switch (event->type()) {
    case QEvent::ToolTip: {
        if ((b->type != Type::Line && b->type != Type::Combo) || form_ != FormId::Main || !isInput(b->id.ctl))
            return false;
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), toolTipFor(b->id), b->widget);
        return true;
    }
    case QEvent::FocusIn: {
        auto* fe = static_cast<QFocusEvent*>(event);
        if (form_ != FormId::Main || !userFocusReason(fe->reason())) return false;
        const CtlId id = b->id;
        if (app_.focus() != std::optional<CtlId>(id)) app_.actions.focus(target(id));
        // A leave handler that kept the focus (a refused value) takes it back.
        if (auto f = app_.focus(); f && *f != id)
            if (QWidget* keep = widgetFor(*f))
                QTimer::singleShot(0, keep, [keep] { keep->setFocus(Qt::OtherFocusReason); });
        return false;
    }
    case QEvent::ShortcutOverride: {
        // A line edit claims some keys as its own (Ctrl+E moves to the end
        // on X11); an application command's key goes to the window instead,
        // unless the field edits with it.
        auto* ke = static_cast<QKeyEvent*>(event);
        if (!qobject_cast<QLineEdit*>(b->widget) || !windowCommandKey(b->widget, ke)) return false;
        event->ignore();
        return true;
    }
    case QEvent::KeyPress: {
        if (b->type == Type::Label) {
            const int k = static_cast<QKeyEvent*>(event)->key();
            if (k != Qt::Key_Return && k != Qt::Key_Enter && k != Qt::Key_Space) return false;
            app_.actions.click(target(b->id));
            return true;
        }
        auto* edit = qobject_cast<QLineEdit*>(b->widget);
        if (!edit || form_ != FormId::Main) return false;
        auto* ke = static_cast<QKeyEvent*>(event);
        // The field's own undo is the project's: first its typing, then the steps before.
        if (ke->matches(QKeySequence::Undo)) {
            app_.actions.undo();
            return true;
        }
        if (ke->matches(QKeySequence::Redo) || (ke->key() == Qt::Key_Y && (ke->modifiers() & Qt::ControlModifier))) {
            app_.actions.redo();
            return true;
        }
        if (ke->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
        int key = 0;
        if (ke->key() == Qt::Key_Backspace) key = 8;
        if (ke->key() == Qt::Key_Return || ke->key() == Qt::Key_Enter) key = 13;
        const QString text = ke->text();
        if (!key && !text.isEmpty() && text.at(0).isPrint()) key = static_cast<int>(text.toUcs4().value(0));
        if (!key) return false;
        app_.actions.key(target(b->id), key, selectionOf(edit));
        return true;
    }
    case QEvent::MouseButtonRelease: {
        if (b->type != Type::Label) return false;
        app_.actions.click(target(b->id));
        return true;
    }
    default: return false;
    }
}

namespace {

void syncLine(QLineEdit* e, const Control& c, const std::string& text) {
    const QSignalBlocker block(e);
    const QString t = q(text);
    if (e->text() != t) e->setText(t);
    if (e->isReadOnly() != c.locked) {
        e->setReadOnly(c.locked);
        // Tab passes over what the user cannot change.
        e->setFocusPolicy(c.locked ? Qt::ClickFocus : Qt::StrongFocus);
        e->setToolTip(c.locked ? QString::fromUtf8(kClosingFieldTip) : QString());
    }
    const QColor color = colorOf(c.color);
    QPalette p = e->palette();
    const QColor want = color.isValid() ? color : QPalette().color(QPalette::Base);
    // The legacy colours stay; the text on them is chosen to be read: bold,
    // white on red, black on yellow.
    const QColor ink = c.color == BackColor::Red      ? QColor(Qt::white)
                       : c.color == BackColor::Yellow ? QColor(Qt::black)
                                                      : QPalette().color(QPalette::Text);
    if (p.color(QPalette::Base) != want || p.color(QPalette::Text) != ink) {
        p.setColor(QPalette::Base, want);
        p.setColor(QPalette::Text, ink);
        e->setPalette(p);
        QFont f = e->font();
        f.setBold(c.color != BackColor::Normal);
        e->setFont(f);
    }
    if (e->hasFocus()) {
        const int start = utf16Position(text, c.selStart);
        if (c.selLength > 0)
            e->setSelection(start, utf16Position(text, c.selStart + c.selLength) - start);
        else
            e->setCursorPosition(start);
    }
}

void syncCombo(QComboBox* cb, const Control& c, int listIndex) {
    const QSignalBlocker block(cb);
    QStringList items;
    for (const auto& i : c.items)
        items << q(i);
    bool same = cb->count() == items.size();
    for (int i = 0; same && i < items.size(); ++i)
        same = cb->itemText(i) == items[i];
    if (!same) {
        if (auto* w = dynamic_cast<WheelSafeCombo*>(cb);
            w && w->shownOnce && cb->sizeAdjustPolicy() != QComboBox::AdjustToContents)
            cb->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        cb->clear();
        cb->addItems(items);
    }
    if (cb->currentIndex() != listIndex) cb->setCurrentIndex(listIndex);
}

void syncText(QPlainTextEdit* t, const std::string& value) {
    QString text = q(value);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (t->toPlainText() == text) return;
    t->setPlainText(text);
    t->moveCursor(QTextCursor::Start); // the listing is read from its top
}

template <class W, void (W::*Set)(const QString&), QString (W::*Get)() const>
void syncCaption(QWidget* w, const Control& c) {
    auto* widget = static_cast<W*>(w);
    if ((widget->*Get)() != q(c.caption)) (widget->*Set)(q(c.caption));
}

} // namespace

void Binder::syncOne(const Binding& b) {
    QWidget* w = b.widget;
    if (!w) return;
    if (b.type == Type::ViewGroup) {
        const bool show = holdsVisibleField(w);
        if (w->isHidden() == show) w->setVisible(show);
        return;
    }
    const Control& c = data(b.id);
    const bool visible = c.visible && (b.type != Type::Group || holdsVisibleField(w));
    if (w->isHidden() == visible) w->setVisible(visible);
    if (w->isEnabled() != c.enabled) w->setEnabled(c.enabled);
    switch (b.type) {
    case Type::Line: syncLine(static_cast<QLineEdit*>(w), c, app_.text(target(b.id))); break;
    case Type::Combo: syncCombo(static_cast<QComboBox*>(w), c, app_.session().listIndex(target(b.id))); break;
    case Type::Label: syncCaption<QLabel, &QLabel::setText, &QLabel::text>(w, c); break;
    case Type::Group: syncCaption<QGroupBox, &QGroupBox::setTitle, &QGroupBox::title>(w, c); break;
    case Type::Button: syncCaption<QAbstractButton, &QAbstractButton::setText, &QAbstractButton::text>(w, c); break;
    case Type::Text: syncText(static_cast<QPlainTextEdit*>(w), app_.text(target(b.id))); break;
    case Type::Other:
    case Type::ViewGroup: break;
    }
}

void Binder::sync() {
    for (const auto& b : bindings_)
        syncOne(b);
}

void Binder::syncSince(size_t first) {
    for (size_t i = first; i < bindings_.size(); ++i)
        syncOne(bindings_[i]);
}

void Binder::syncGroups() {
    for (const auto& b : bindings_)
        if (b.type == Type::Group || b.type == Type::ViewGroup) syncOne(b);
}

void Binder::sync(const ChangeSet& changes) {
    auto syncControl = [&](const CtlId& id) {
        const auto [from, to] = byControl_.equal_range(id);
        for (auto it = from; it != to; ++it)
            syncOne(bindings_[it->second]);
    };
    if (form_ == FormId::Main)
        for (const auto& id : changes.inputs)
            syncControl(id);
    bool shown = false;
    for (const auto& t : changes.controls) {
        if (t.form != form_) continue;
        syncControl(t.id);
        shown = true;
    }
    // A group shows while a field in it does.
    if (shown) syncGroups();
}

} // namespace tw
