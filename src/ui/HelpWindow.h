#pragma once
// The help window: the help page SuDoKu.htm of the application directory.

#include <QDialog>

class QTextBrowser;

namespace tessaly {

class HelpWindow : public QDialog {
  Q_OBJECT

 public:
  static constexpr const char* kHelpPage = "SuDoKu.htm";

  explicit HelpWindow(QWidget* parent = nullptr);

  /// Shows the page; false when the file does not exist.
  bool showPage(const QString& path);
  QTextBrowser* browser() const { return m_browser; }

 private:
  QTextBrowser* m_browser = nullptr;
};

}  // namespace tessaly
