#include "ui/HelpWindow.h"

#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "ui/ObjectNames.h"

namespace tessaly {

namespace {
constexpr int kWidth = 700, kHeight = 600;
}

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent) {
  setObjectName(names::HelpWindow);
  setWindowTitle("Tessaly Help");
  m_browser = new QTextBrowser(this);
  m_browser->setObjectName(names::HelpBrowser);
  m_browser->setOpenExternalLinks(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(m_browser);
  resize(kWidth, kHeight);
}

bool HelpWindow::showPage(const QString& path) {
  if (!QFileInfo(path).isFile()) return false;
  m_browser->setSource(QUrl::fromLocalFile(path));
  return true;
}

}  // namespace tessaly
