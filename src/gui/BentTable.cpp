// SPDX-License-Identifier: Apache-2.0
#include "gui/BentTable.h"
#include "gui/FocusMarker.h"

#include "core/app/App.h"
#include "gui/Binder.h"
#include "gui/FormGrid.h"
#include "gui/FormPages.h"
#include "platform/QtText.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <optional>
#include <utility>

namespace tw {

namespace {

// Values as wide as an elevation can be typed: four digits, a point, two decimals and a sign.
const QString kWidestValue = QStringLiteral("-9999.99");
constexpr int kCellPadding = 14;
constexpr int kEntryPromptWidth = 170;

} // namespace

QString wrappedHeading(const QString& heading) {
    const QStringList words = heading.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.size() < 2 || heading.size() <= 10) return heading;
    // The split into two lines that keeps the longer line shortest.
    int best = 1;
    qsizetype bestLength = heading.size();
    for (int i = 1; i < words.size(); ++i) {
        const qsizetype first = words.mid(0, i).join(QLatin1Char(' ')).size();
        const qsizetype second = words.mid(i).join(QLatin1Char(' ')).size();
        if (std::max(first, second) < bestLength) {
            bestLength = std::max(first, second);
            best = i;
        }
    }
    return words.mid(0, best).join(QLatin1Char(' ')) + QLatin1Char('\n') + words.mid(best).join(QLatin1Char(' '));
}

BentTableModel::BentTableModel(const BentTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), shown_(table) {}

bool BentTableModel::reload() {
    if (shown_ == table_) return false;
    const bool sameShape =
        shown_.rows() == table_.rows() && shown_.cols() == table_.cols() && shown_.rowCells(0) == table_.rowCells(0);
    if (!sameShape) {
        beginResetModel();
        shown_ = table_;
        endResetModel();
        return true;
    }
    // Rows the table shares with what is shown are unchanged: only the others are repainted.
    int first = -1, last = -1;
    for (int r = 1; r < table_.rows(); ++r)
        if (!table_.sharesRow(shown_, r)) {
            if (first < 0) first = r;
            last = r;
        }
    shown_ = table_;
    if (first > 0) emit dataChanged(index(first - 1, 0), index(last - 1, shown_.cols() - 1), {Qt::DisplayRole});
    return true;
}

int BentTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_.rows() - 1; }
int BentTableModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_.cols(); }

QVariant BentTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) return {};
    if (role == Qt::DisplayRole) return q(shown_.cell(index.row() + 1, index.column()));
    if (role == Qt::TextAlignmentRole)
        return shown_.colCentred(index.column()) ? int(Qt::AlignCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

QVariant BentTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        if (role == Qt::DisplayRole) return section + 1;
        if (role == Qt::TextAlignmentRole) return int(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }
    if (section < 0 || section >= columnCount()) return {};
    const std::string& heading = shown_.cell(0, section);
    if (role == Qt::DisplayRole) return wrappedHeading(q(heading));
    if (role == Qt::ToolTipRole) return q(heading);
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignCenter);
    return {};
}

FrozenColumnTable::FrozenColumnTable(QWidget* parent) : QTableView(parent), frozen_(new QTableView(this)) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setWordWrap(false);
    setTextElideMode(Qt::ElideNone);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    horizontalHeader()->setTextElideMode(Qt::ElideNone);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);

    // The frozen copy shows the first column over the left edge of the table.
    frozen_->setObjectName(QStringLiteral("MSFlexGrid1.frozen"));
    frozen_->setFocusPolicy(Qt::NoFocus);
    frozen_->verticalHeader()->hide();
    frozen_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    frozen_->horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    frozen_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozen_->setSelectionBehavior(QAbstractItemView::SelectRows);
    frozen_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    frozen_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    frozen_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    frozen_->setTextElideMode(Qt::ElideNone);
    frozen_->verticalHeader()->setDefaultSectionSize(verticalHeader()->defaultSectionSize());
    frozen_->setStyleSheet(QStringLiteral("QTableView { border: none; }"));
    viewport()->stackUnder(frozen_);

    connect(frozen_->verticalScrollBar(), &QAbstractSlider::valueChanged, verticalScrollBar(),
            &QAbstractSlider::setValue);
    connect(verticalScrollBar(), &QAbstractSlider::valueChanged, frozen_->verticalScrollBar(),
            &QAbstractSlider::setValue);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        if (section == 0) {
            frozen_->setColumnWidth(0, size);
            placeFrozen();
        }
    });
}

void FrozenColumnTable::setModel(QAbstractItemModel* model) {
    QTableView::setModel(model);
    frozen_->setModel(model);
    frozen_->setSelectionModel(selectionModel());
    auto hideOthers = [this, model] {
        for (int c = 1; c < model->columnCount(); ++c)
            frozen_->setColumnHidden(c, true);
        frozen_->setColumnWidth(0, columnWidth(0));
        placeFrozen();
    };
    connect(model, &QAbstractItemModel::modelReset, this, hideOthers);
    connect(model, &QAbstractItemModel::columnsInserted, this, hideOthers);
    hideOthers();
}

void FrozenColumnTable::fitColumns() {
    if (!model()) return;
    const QFontMetrics cellMetrics(font());
    const QFontMetrics headMetrics(horizontalHeader()->font());
    int headerHeight = 0;
    for (int c = 0; c < model()->columnCount(); ++c) {
        const QString heading = model()->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
        int width = 0;
        for (const QString& line : heading.split(QLatin1Char('\n')))
            width = std::max(width, headMetrics.horizontalAdvance(line));
        width += 2 * kCellPadding;
        // Every column but the bent number holds elevations.
        width = std::max(width, cellMetrics.horizontalAdvance(c == 0 ? QStringLiteral("99") : kWidestValue) +
                                    2 * kCellPadding);
        // Digits are as wide as each other in the table's fonts: the longest value is the widest.
        QString longest;
        for (int r = 0; r < model()->rowCount(); ++r) {
            const QString value = model()->index(r, c).data().toString();
            if (value.size() > longest.size()) longest = value;
        }
        width = std::max(width, cellMetrics.horizontalAdvance(longest) + 2 * kCellPadding);
        setColumnWidth(c, width);
        headerHeight = std::max<int>(headerHeight, headMetrics.lineSpacing() * (heading.count(QLatin1Char('\n')) + 1));
    }
    horizontalHeader()->setMinimumHeight(headerHeight + 12);
    frozen_->horizontalHeader()->setMinimumHeight(headerHeight + 12);
    frozen_->setColumnWidth(0, columnWidth(0));
    placeFrozen();
}

void FrozenColumnTable::placeFrozen() {
    frozen_->setGeometry(verticalHeader()->width() + frameWidth(), frameWidth(), columnWidth(0),
                         viewport()->height() + horizontalHeader()->height());
    frozen_->horizontalHeader()->setFixedHeight(horizontalHeader()->height());
}

void FrozenColumnTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    placeFrozen();
}

void FrozenColumnTable::updateGeometries() {
    QTableView::updateGeometries();
    placeFrozen();
}

QModelIndex FrozenColumnTable::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) {
    QModelIndex current = QTableView::moveCursor(cursorAction, modifiers);
    // Moving left into cells hidden under the frozen column scrolls them out.
    if (cursorAction == MoveLeft && current.column() > 0 &&
        visualRect(current).topLeft().x() < frozen_->columnWidth(0)) {
        const int shift = visualRect(current).topLeft().x() - frozen_->columnWidth(0);
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + shift);
    }
    return current;
}

bool FrozenColumnTable::event(QEvent* e) {
    const bool done = QTableView::event(e);
    if (e->type() == QEvent::Paint && hasFocus()) {
        QPainter p(this);
        drawFocusMarker(p, this, rect());
    }
    return done;
}

void FrozenColumnTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (index.column() > 0) QTableView::scrollTo(index, hint);
}

BentTablePage::BentTablePage(App& app, Binder& binder, QWidget* parent) : QWidget(parent), app_(app), binder_(binder) {
    auto* split = new QSplitter(Qt::Horizontal);
    split->addWidget(entryPanel());
    split->addWidget(tablePanel());
    split->setStretchFactor(0, 0);
    split->setStretchFactor(1, 1);
    split->setChildrenCollapsible(false);
    auto* v = new QVBoxLayout(this);
    v->setContentsMargins(0, 0, 0, 0);
    v->addWidget(split);
}

QWidget* BentTablePage::entryPanel() {
    Binder& b = binder_;
    auto* bent = new QGroupBox(QStringLiteral("Bent"));
    FormGrid g(b, bent, kEntryPromptWidth);
    g.row(QStringLiteral("Enter the bent number"), Ctl::txtBentNoPI);
    g.row(QStringLiteral("Do you want the program to calculate the bottom cap elevations?"), Ctl::cboBtomCalPI);
    g.row(Ctl::Label35, Ctl::txtBtLCapPI, kFeet);
    g.row(Ctl::Label36, Ctl::txtBtRCapPI, Ctl::Label37);

    auto* steps = new QGroupBox(QStringLiteral("Step Elevations"));
    auto* sv = new QVBoxLayout(steps);
    auto* stepRows = numberedRows(b, Ctl::lblEStepPI, Ctl::txtEStepPI, 20, kFeet);
    b.bindVisibility(Ctl::picOutterStep, stepRows);
    sv->addWidget(stepRows);

    // The tops of the wingwalls: one elevation for a level top, two for a sloped one.
    auto* wing = new QWidget;
    auto* wv = new QVBoxLayout(wing);
    wv->setContentsMargins(0, 0, 0, 0);
    const std::tuple<Ctl, Ctl, const char*> levels[] = {
        {Ctl::Frame12, Ctl::txtLwingwallElevation, "Enter the elevation at the top of the left wingwall"},
        {Ctl::Frame10, Ctl::txtRwingwallElevation, "Enter the elevation at the top of the right wingwall"}};
    const std::tuple<Ctl, Ctl, Ctl> slopes[] = {
        {Ctl::Frame11, Ctl::txtElevationTopLeftfront, Ctl::txtElevationTopLeftEnd},
        {Ctl::Frame9, Ctl::txtElevationTopRighFront, Ctl::txtElevationTopRighEnd}};
    for (int side = 0; side < 2; ++side) {
        const auto& [levelFrame, level, prompt] = levels[side];
        auto* single = frameGroup(b, levelFrame);
        FormGrid(b, single, kEntryPromptWidth).row(QString::fromLatin1(prompt), level, kFeet);
        wv->addWidget(single);
        const auto& [slopeFrame, front, end] = slopes[side];
        auto* two = frameGroup(b, slopeFrame);
        FormGrid sg(b, two, kEntryPromptWidth);
        sg.row(QStringLiteral("Elevation at the front face of the cap"), front, kFeet);
        sg.row(QStringLiteral("Elevation at the end of the wingwall"), end, kFeet);
        wv->addWidget(two);
    }
    b.bindVisibility(Ctl::picOutterWingwall, wing);

    auto* backwall = frameGroup(b, Ctl::Frame13);
    FormGrid bg(b, backwall, kEntryPromptWidth);
    bg.row(QStringLiteral("Top of the left end post"), Ctl::txtTopLeftEndPost, kFeet);
    bg.row(QStringLiteral("Top of the right end post"), Ctl::txtTopRightEndPost, kFeet);
    bg.row(QStringLiteral("Backwall at the inside face of the left end post"), Ctl::txtTopLeftBackwall, kFeet);
    bg.row(QStringLiteral("Backwall at the centerline of the bent"), Ctl::txtTopCentBackwall, kFeet);
    bg.row(QStringLiteral("Backwall at the inside face of the right end post"), Ctl::txtTopRightBackwall, kFeet);

    auto* content = new QWidget;
    auto* v = new QVBoxLayout(content);
    v->setContentsMargins(0, 0, 4, 0);
    for (QWidget* w :
         {static_cast<QWidget*>(bent), static_cast<QWidget*>(steps), wing, static_cast<QWidget*>(backwall)})
        v->addWidget(w);
    v->addStretch(1);
    QWidget* page = scrolledPage(content);
    page->setMinimumWidth(content->sizeHint().width() + 24);
    return page;
}

QWidget* BentTablePage::tablePanel() {
    auto* panel = new QWidget;
    auto* v = new QVBoxLayout(panel);
    v->setContentsMargins(4, 0, 0, 0);
    // The row commands two abreast and the moves beside them, so the table
    // keeps a narrow minimum width beside the entry fields and the drawing
    // on a 1024 px screen.
    auto* buttons = new QGridLayout;
    buttons->setHorizontalSpacing(4);
    buttons->setVerticalSpacing(2);
    for (int i = 0; i < 6; ++i)
        buttons->addWidget(binder_.button(CtlId(Ctl::cmdQuantity, i)), i / 2, i % 2);
    buttons->setColumnMinimumWidth(2, 12);
    buttons->addWidget(binder_.button(Ctl::cmdMoveUp), 0, 3);
    buttons->addWidget(binder_.button(Ctl::cmdMoveDown), 1, 3);
    buttons->setColumnStretch(4, 1);
    v->addLayout(buttons);

    model_ = new BentTableModel(app_.project().table(), this);
    table_ = new FrozenColumnTable;
    table_->setObjectName(QStringLiteral("MSFlexGrid1"));
    table_->setModel(model_);
    binder_.bindVisibility(Ctl::MSFlexGrid1, table_);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { selectionChanged(); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { selectionChanged(); });
    v->addWidget(table_, 1);
    return panel;
}

namespace {

// The first and last rows of a selection, or nothing when none is selected.
std::optional<std::pair<int, int>> selectedRows(const QItemSelection& ranges) {
    if (ranges.isEmpty()) return std::nullopt;
    int top = ranges.first().top(), bottom = ranges.first().bottom();
    for (const auto& r : ranges) {
        top = std::min(top, r.top());
        bottom = std::max(bottom, r.bottom());
    }
    return std::pair{top, bottom};
}

} // namespace

void BentTablePage::selectionChanged() {
    if (syncing_) return;
    const auto rows = selectedRows(table_->selectionModel()->selection());
    if (!rows) return;
    const auto [top, bottom] = *rows;
    const int current = table_->selectionModel()->currentIndex().row();
    // The grid's current row is where the selection began; Qt's current row is where it ends.
    const int end = current == top ? top : bottom;
    const int anchor = end == top ? bottom : top;
    const GridSelection now = app_.selection();
    if (anchor + 1 == now.row && end + 1 == now.end) return;
    const int count = app_.project().table().rows();
    if (anchor + 1 < count && end + 1 < count) app_.actions.selectRows(anchor + 1, end + 1);
}

void BentTablePage::refresh() {
    syncing_ = true;
    // Widths are worked out again only when the table's text changed.
    if (model_->reload()) table_->fitColumns();
    const GridSelection g = app_.selection();
    auto* sel = table_->selectionModel();
    const int top = std::min(g.row, g.end) - 1, bottom = std::max(g.row, g.end) - 1;
    if (g.row <= 0 || model_->rowCount() == 0) {
        if (sel->hasSelection()) sel->clearSelection();
    } else {
        // Set only when it differs, so a selection the user is dragging is left alone.
        if (selectedRows(sel->selection()) != std::pair{top, bottom})
            sel->select(QItemSelection(model_->index(top, 0), model_->index(bottom, model_->columnCount() - 1)),
                        QItemSelectionModel::ClearAndSelect);
        const QModelIndex end = model_->index(g.end - 1, 0);
        if (sel->currentIndex().row() != end.row()) sel->setCurrentIndex(end, QItemSelectionModel::NoUpdate);
    }
    syncing_ = false;
}

void BentTablePage::showRow(int row) {
    if (row >= 1 && row <= model_->rowCount()) static_cast<QTableView*>(table_)->scrollTo(model_->index(row - 1, 0));
}

} // namespace tw
