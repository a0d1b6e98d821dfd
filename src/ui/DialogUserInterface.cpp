#include "ui/DialogUserInterface.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>

namespace tessaly {

namespace {

QString qt(const std::string& text) { return QString::fromStdString(text); }

/// The message boxes carry the application's name as their title.
QString title() { return QApplication::applicationName(); }

}  // namespace

class DialogUserInterface::NormalPointer {
 public:
  explicit NormalPointer(bool busy) : m_busy(busy) {
    if (m_busy) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~NormalPointer() {
    if (m_busy) QApplication::restoreOverrideCursor();
  }

 private:
  bool m_busy;
};

void DialogUserInterface::message(const std::string& text) {
  NormalPointer pointer(m_busy);
  QMessageBox box(QMessageBox::NoIcon, title(), qt(text), QMessageBox::Ok, m_parent);
  box.exec();
}

bool DialogUserInterface::question(const std::string& text) {
  NormalPointer pointer(m_busy);
  QMessageBox box(QMessageBox::NoIcon, title(), qt(text), QMessageBox::Yes | QMessageBox::No, m_parent);
  return box.exec() == QMessageBox::Yes;
}

std::optional<std::string> DialogUserInterface::textInput(const std::string& dialogTitle, const std::string& prompt,
                                                          const std::string& defaultAnswer) {
  NormalPointer pointer(m_busy);
  bool ok = false;
  const QString answer =
      QInputDialog::getText(m_parent, qt(dialogTitle), qt(prompt), QLineEdit::Normal, qt(defaultAnswer), &ok);
  if (!ok) return std::nullopt;
  return answer.toStdString();
}

std::string DialogUserInterface::chooseFile(const FileRequest& request) {
  NormalPointer pointer(m_busy);
  const QString filter = qt(request.typeName) + " (" + qt(request.pattern) + ")";
  QString path;
  if (request.mode == FileRequest::Mode::Open)
    path = QFileDialog::getOpenFileName(m_parent, qt(request.title), qt(request.startDir), filter);
  else
    // The core asks before it overwrites a file that is not empty.
    path = QFileDialog::getSaveFileName(m_parent, qt(request.title), qt(request.startDir), filter, nullptr,
                                        QFileDialog::DontConfirmOverwrite);
  if (path.isEmpty() || request.mode == FileRequest::Mode::Open) return path.toStdString();
  // Every save asks here, so a bare name typed for any kind of file is
  // completed in this one place, before the core looks for a file to replace.
  return withExtension(request, path.toStdString());
}

std::string DialogUserInterface::withExtension(const FileRequest& request, const std::string& path) {
  // The first pattern of a list such as "*.sud *.txt" names the extension.
  const QString pattern = qt(request.pattern).section(' ', 0, 0);
  const QString extension = pattern.startsWith("*.") ? pattern.mid(2) : QString();
  if (extension.isEmpty() || extension.contains('*') || extension.contains('?')) return path;
  const QString name = QFileInfo(qt(path)).fileName();
  if (name.isEmpty()) return path;
  if (name.endsWith('.')) return path + extension.toStdString();
  // A dot further on than the first character begins an extension.
  if (name.lastIndexOf('.') > 0) return path;
  return path + "." + extension.toStdString();
}

void DialogUserInterface::setBusy(bool busy) {
  if (busy == m_busy) return;
  m_busy = busy;
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

}  // namespace tessaly
