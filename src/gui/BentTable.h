// SPDX-License-Identifier: Apache-2.0
// The bent table on a page of its own: the entry fields of one bent on the
// left, the table of bents on the right with room for its rows, the bent
// number kept in view while the elevations scroll sideways.
#pragma once

#include "core/model/BentTable.h"

#include <QAbstractTableModel>
#include <QTableView>
#include <QWidget>

namespace tw {

class App;
class Binder;

// A heading split over lines so that a column need not be wider than its values.
QString wrappedHeading(const QString& heading);

// The grid of the form as a table model: one row per bent, the header row as headings.
class BentTableModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    BentTableModel(const BentTable& table, QObject* parent = nullptr);
    // Brings the model up to date with the table; false when nothing had changed.
    bool reload();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    const BentTable& table_;
    // The table as last shown: the views read this, so they never see a
    // table halfway through a command. Its rows are the project's own.
    BentTable shown_;
};

// A table view whose first column stays put when the others scroll sideways.
class FrozenColumnTable : public QTableView {
    Q_OBJECT
  public:
    explicit FrozenColumnTable(QWidget* parent = nullptr);
    void setModel(QAbstractItemModel* model) override;
    // Column widths that show every heading and the widest values whole.
    void fitColumns();
    QTableView* frozenView() const { return frozen_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    // The frame marks the focus, also when no cell is current.
    bool event(QEvent* event) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void updateGeometries() override;

  private:
    void placeFrozen();
    QTableView* frozen_;
};

class BentTablePage : public QWidget {
    Q_OBJECT
  public:
    BentTablePage(App& app, Binder& binder, QWidget* parent = nullptr);
    // Copies the grid and its selection into the view.
    void refresh();
    // Bent row `row` (1 for the first) in view.
    void showRow(int row);
    FrozenColumnTable* table() const { return table_; }
    BentTableModel* model() const { return model_; }

  private:
    QWidget* entryPanel();
    QWidget* tablePanel();
    void selectionChanged();

    App& app_;
    Binder& binder_;
    BentTableModel* model_ = nullptr;
    FrozenColumnTable* table_ = nullptr;
    bool syncing_ = false;
};

} // namespace tw
