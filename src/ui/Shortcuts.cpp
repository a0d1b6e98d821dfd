#include "ui/Shortcuts.h"

#include <QAbstractButton>
#include <QShortcut>
#include <QStringList>

namespace tessaly {

QString toolTipWithKeys(const QString& toolTip, const QString& caption, const QKeySequence& key) {
  QStringList keys;
  if (!key.isEmpty()) keys << key.toString(QKeySequence::NativeText);
  if (const QKeySequence mnemonic = QKeySequence::mnemonic(caption); !mnemonic.isEmpty())
    keys << mnemonic.toString(QKeySequence::NativeText);
  return keys.isEmpty() ? toolTip : QString("%1 (%2)").arg(toolTip, keys.join(", "));
}

void addShortcut(QAbstractButton* button, const QKeySequence& key, const QString& toolTip) {
  // A shortcut owned by the button is active only while the button is visible
  // and enabled; click() then behaves as a click of the left mouse button.
  auto* shortcut = new QShortcut(key, button);
  QObject::connect(shortcut, &QShortcut::activated, button, [button] { button->click(); });
  button->setToolTip(toolTipWithKeys(toolTip, button->text(), key));
}

}  // namespace tessaly
