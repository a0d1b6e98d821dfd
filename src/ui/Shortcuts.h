#pragma once
// Keyboard habits for the window's buttons: a shortcut key beside the mnemonic
// of the caption ("&Start" answers Alt+S), both named in the tool tip.

#include <QKeySequence>
#include <QString>

class QAbstractButton;

namespace tessaly {

/// The key clicks the button while it is shown and enabled (so a page that is
/// not shown answers nothing); the tool tip becomes `toolTip` followed by the
/// key and the caption's mnemonic, e.g. "Solve the puzzle (F7, Alt+L)".
void addShortcut(QAbstractButton* button, const QKeySequence& key, const QString& toolTip);

/// The tool tip text for a button with that caption and shortcut key.
QString toolTipWithKeys(const QString& toolTip, const QString& caption, const QKeySequence& key);

}  // namespace tessaly
