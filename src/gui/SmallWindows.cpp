// SPDX-License-Identifier: Apache-2.0
#include "gui/SmallWindows.h"

#include "core/ports.h"
#include "gui/WindowPlacement.h"
#include "platform/Platform.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWidget>

namespace tw {

namespace {

// Kept apart from the legacy program's one setting, and from our own others.
constexpr const char* kApp = "Windows";
constexpr const char* kSection = "Geometry";

class Remembered : public QObject {
  public:
    Remembered(QWidget* w, QString name, SystemPorts& settings, const QWidget* main)
        : QObject(w), w_(w), name_(std::move(name)), settings_(settings), main_(main) {}

  protected:
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Show && !placed_) {
            placed_ = true;
            restore();
        } else if (e->type() == QEvent::Hide || e->type() == QEvent::Close) {
            keep();
        }
        return false;
    }

  private:
    QScreen* mainScreen() const {
        return main_ && main_->screen() ? main_->screen() : QGuiApplication::primaryScreen();
    }
    void restore() {
        const std::string saved = settings_.readSetting(kApp, kSection, name_.toStdString());
        const QRect before = w_->geometry();
        if (!saved.empty() && w_->restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(saved))) &&
            mainScreen() && mainScreen()->availableGeometry().intersects(w_->frameGeometry()))
            return; // where it was left, on the main window's screen; keepOnScreen makes it whole
        // First shown, or left on another screen: over the main window.
        w_->setGeometry(before);
        if (mainScreen()) w_->setScreen(mainScreen());
        centre(w_, main_ && main_->isVisible() ? main_.data() : nullptr);
    }
    void keep() {
        if (!placed_ || !w_->isVisible()) return;
        settings_.writeSetting(kApp, kSection, name_.toStdString(), w_->saveGeometry().toBase64().toStdString());
    }

    QWidget* w_;
    QString name_;
    SystemPorts& settings_;
    QPointer<const QWidget> main_;
    bool placed_ = false;
};

} // namespace

void makeSmallWindow(QWidget* w, const QString& name, const QWidget* main, SystemPorts* settings) {
    static Platform platform;
    if (!settings) settings = &platform;
    auto* close = new QShortcut(QKeySequence(Qt::Key_Escape), w);
    close->setContext(Qt::WindowShortcut);
    QObject::connect(close, &QShortcut::activated, w, &QWidget::close);
    w->installEventFilter(new Remembered(w, name, *settings, main));
    keepOnScreen(w);
}

QTreeWidget* addNoteAndList(QVBoxLayout* layout, const QString& note, const QString& name, const QStringList& headings,
                            const QString& tip, const QString& accessibleName) {
    auto* about = new QLabel(note);
    about->setWordWrap(true);
    layout->addWidget(about);
    auto* list = new QTreeWidget;
    list->setObjectName(name);
    list->setRootIsDecorated(false);
    list->setHeaderLabels(headings);
    list->setToolTip(tip);
    list->setAccessibleName(accessibleName);
    list->header()->setStretchLastSection(true);
    layout->addWidget(list);
    return list;
}

} // namespace tw
