#pragma once
// The core's messages, questions, text input and file choosers as Qt dialogs,
// and the busy pointer as the application's override cursor.

#include <QPointer>
#include <QWidget>

#include "model/Interfaces.h"

namespace tessaly {

class DialogUserInterface : public UserInterface {
 public:
  /// Dialogs open over `parent` (the main window).
  explicit DialogUserInterface(QWidget* parent = nullptr) : m_parent(parent) {}
  ~DialogUserInterface() override { setBusy(false); }

  void message(const std::string& text) override;
  bool question(const std::string& text) override;
  std::optional<std::string> textInput(const std::string& title, const std::string& prompt,
                                       const std::string& defaultAnswer) override;
  /// `FNDialog`: the file chooser, filtered by the request's pattern. A name
  /// chosen for saving gets the pattern's extension when it has none.
  std::string chooseFile(const FileRequest& request) override;
  /// `path` with the extension of the request's pattern ("*.csv" gives ".csv")
  /// added when its file name has none; a name with any extension is kept.
  static std::string withExtension(const FileRequest& request, const std::string& path);
  void setBusy(bool busy) override;

 private:
  /// Shows the normal pointer while a dialog is open over a busy window.
  class NormalPointer;

  QPointer<QWidget> m_parent;
  bool m_busy = false;
};

}  // namespace tessaly
