// SPDX-License-Identifier: Apache-2.0
#include "gui/DrawingViewer.h"

#include "gui/SceneView.h"
#include "platform/SafeFile.h"
#include "render/ScenePainter.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPageLayout>
#include <QPainter>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <map>

namespace tw {

namespace {

QIcon swatch(const drawing::Color& c) {
    QPixmap pixmap(14, 14);
    pixmap.fill(QColor(c.r, c.g, c.b));
    QPainter p(&pixmap);
    p.setPen(Qt::darkGray);
    p.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

} // namespace

DrawingViewer::DrawingViewer(drawing::Scene scene, const QString& file, size_t elements, QWidget* parent)
    : QMainWindow(parent), file_(file) {
    setWindowTitle(title());

    // Levels in use, with how many shapes each holds and the colour of its first.
    std::map<int, std::pair<int, drawing::Color>> perLevel;
    auto count = [&](int level, const drawing::Color& color) {
        ++perLevel.try_emplace(level, 0, color).first->second.first;
    };
    for (std::size_t i = 0; i < scene.polylines.size(); ++i)
        count(scene.polylines.style(i).level, scene.polylines.style(i).pen.color);
    for (const auto& s : scene.shapes)
        count(s.level, s.pen.color);

    view_ = new SceneView;
    view_->setScene(std::move(scene));

    auto* side = new QWidget;
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(6, 6, 0, 6);
    auto* caption = new QLabel(tr("&Levels"));
    levels_ = new QListWidget;
    caption->setBuddy(levels_);
    levels_->setToolTip(tr("Tick a level to show it, untick it to hide it"));
    for (const auto& [level, info] : perLevel) {
        auto* item = new QListWidgetItem(swatch(info.second), tr("Level %1  (%2)").arg(level).arg(info.first));
        item->setData(Qt::UserRole, level);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsSelectable);
        item->setCheckState(Qt::Checked);
        levels_->addItem(item);
    }
    connect(levels_, &QListWidget::itemChanged, this, &DrawingViewer::levelChanged);
    auto* all = new QPushButton(tr("Show &all"));
    auto* none = new QPushButton(tr("&Hide all"));
    connect(all, &QPushButton::clicked, this, [this] { showAllLevels(true); });
    connect(none, &QPushButton::clicked, this, [this] { showAllLevels(false); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(all);
    buttons->addWidget(none);
    sideLayout->addWidget(caption);
    sideLayout->addWidget(levels_, 1);
    sideLayout->addLayout(buttons);

    auto* split = new QSplitter;
    split->addWidget(side);
    split->addWidget(view_);
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setSizes({200, 900});
    setCentralWidget(split);

    auto* bar = addToolBar(tr("Drawing"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto add = [&](const QString& text, const QKeySequence& key, auto slot) {
        QAction* a = bar->addAction(text);
        a->setShortcut(key);
        a->setToolTip(QStringLiteral("%1 (%2)").arg(QString(text).remove(QLatin1Char('&')),
                                                    key.toString(QKeySequence::NativeText)));
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    add(tr("&Fit"), QKeySequence(Qt::CTRL | Qt::Key_0), [this] { view_->fit(); });
    add(tr("Zoom &In"), QKeySequence::ZoomIn, [this] { view_->zoomIn(); });
    add(tr("Zoom &Out"), QKeySequence::ZoomOut, [this] { view_->zoomOut(); });
    bar->addSeparator();
    add(tr("&Print..."), QKeySequence::Print, [this] { print(); });
    add(tr("&Export..."), QKeySequence(Qt::CTRL | Qt::Key_E), [this] { exportDrawing(); });
    bar->addSeparator();
    add(tr("&Close"), QKeySequence::Close, [this] { close(); });

    statusBar()->showMessage(
        tr("%1 elements on %2 levels. The wheel zooms, a drag pans, a double click fits the drawing.")
            .arg(elements)
            .arg(perLevel.size()));
    view_->setFocus();
}

QString DrawingViewer::title() const { return tr("%1 - Tarnwick drawing viewer").arg(QFileInfo(file_).fileName()); }

void DrawingViewer::placeOnScreen() {
    const QScreen* screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QRect avail = screen ? screen->availableGeometry() : QRect(0, 0, 1366, 768);
    // Room for the frame the window manager adds around the window.
    const int width = std::min(1100, avail.width() - 16);
    const int height = std::min(700, avail.height() - 48);
    resize(width, height);
    move(avail.x() + (avail.width() - width) / 2, avail.y() + std::max(0, (avail.height() - height - 32) / 2));
}

void DrawingViewer::levelChanged(QListWidgetItem* item) {
    PaintOptions o = view_->options();
    const int level = item->data(Qt::UserRole).toInt();
    if (item->checkState() == Qt::Checked)
        o.hiddenLevels.erase(level);
    else
        o.hiddenLevels.insert(level);
    view_->setOptions(o);
}

void DrawingViewer::showAllLevels(bool show) {
    for (int i = 0; i < levels_->count(); ++i)
        levels_->item(i)->setCheckState(show ? Qt::Checked : Qt::Unchecked);
}

bool DrawingViewer::printTo(QPrinter& printer) {
    QPainter p;
    if (!p.begin(&printer)) return false;
    const QRect page = printer.pageLayout().paintRectPixels(printer.resolution());
    const QRectF target(0, 0, page.width(), page.height());
    paintScene(p, view_->scene(), fitTransform(view_->scene().bounds(), target), view_->options());
    return p.end();
}

bool DrawingViewer::exportTo(const QString& path, QString* error) {
    return exportScene(view_->scene(), path, error, replaceFile, QFileInfo(file_).fileName(), view_->options());
}

void DrawingViewer::print() {
    QPrinter printer(QPrinter::HighResolution);
    const drawing::Box box = view_->scene().bounds();
    printer.setPageOrientation(box.width() >= box.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setDocName(QFileInfo(file_).fileName());
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialog.exec() != QDialog::Accepted) return;
    if (!printTo(printer))
        QMessageBox::warning(this, title(), tr("The drawing could not be printed on %1.").arg(printer.printerName()));
}

void DrawingViewer::exportDrawing() {
    const QFileInfo drawingFile(file_);
    QString filter = tr("PDF document (*.pdf)");
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export Drawing"), drawingFile.dir().filePath(drawingFile.completeBaseName() + QStringLiteral(".pdf")),
        tr("PDF document (*.pdf);;SVG drawing (*.svg);;PNG picture (*.png)"), &filter);
    if (path.isEmpty()) return;
    QString target = path;
    if (QFileInfo(target).suffix().isEmpty()) // the suffix of the chosen kind, as the dialog shows it
        target += filter.contains(QLatin1String("svg"))   ? QStringLiteral(".svg")
                  : filter.contains(QLatin1String("png")) ? QStringLiteral(".png")
                                                          : QStringLiteral(".pdf");
    QString error;
    if (!exportTo(target, &error)) QMessageBox::warning(this, title(), error);
}

} // namespace tw
