// SPDX-License-Identifier: Apache-2.0
// The windows we added beside the main one (Run Outputs and its previews,
// Compare With, the drawing viewer, Put-Aside Work, New from Template)
// behave as a desktop user expects: Esc closes them, each comes back at the
// size and place it was left at, and it opens on the screen the main window
// is on, whole.
#pragma once

#include <QString>
#include <QStringList>

class QTreeWidget;
class QVBoxLayout;
class QWidget;

namespace tw {

class SystemPorts;

// `name` keys the remembered size and place in the settings store (the
// platform's own when `settings` is null); `main` (may be null) is the
// window whose screen it opens on.
void makeSmallWindow(QWidget* w, const QString& name, const QWidget* main, SystemPorts* settings = nullptr);

// The body of a small window that offers a list: a wrapped note above a flat
// list whose last column stretches; `tip` says what Enter or a double-click
// on an item does, `accessibleName` what the list holds.
QTreeWidget* addNoteAndList(QVBoxLayout* layout, const QString& note, const QString& name, const QStringList& headings,
                            const QString& tip, const QString& accessibleName);

} // namespace tw
