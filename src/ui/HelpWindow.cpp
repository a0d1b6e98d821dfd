#include "ui/HelpWindow.h"

#include <QFileInfo>
#include <QFontMetrics>
#include <QScreen>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/ObjectNames.h"

namespace tessaly {

namespace {
/// A page of about this many characters and lines, or less on a small screen.
constexpr int kColumns = 90, kLines = 40;
constexpr double kScreenShare = 0.8;
}  // namespace

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(names::HelpWindow);
  setWindowTitle("Tessaly Help");
  m_browser = new QTextBrowser(this);
  m_browser->setObjectName(names::HelpBrowser);
  m_browser->setOpenExternalLinks(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_browser);
  const QFontMetrics metrics = m_browser->fontMetrics();
  QSize size(metrics.averageCharWidth() * kColumns, metrics.lineSpacing() * kLines);
  if (const QScreen* screen = parent ? parent->screen() : this->screen())
    size = size.boundedTo(screen->availableGeometry().size() * kScreenShare);
  resize(size);
}

bool HelpWindow::showPage(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  m_browser->setSource(QUrl::fromLocalFile(path));
  return true;
}

}  // namespace tessaly
