#pragma once
// A main window on a scratch application directory, with scripted message
// boxes, file choosers and random numbers, and helpers to click through it.
// Files the commands write into the working folder land in a scratch folder too.

#include <gtest/gtest.h>

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QProgressBar>
#include <QTabBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "model/Services.h"
#include "model/Session.h"
#include "ui/Form1.h"
#include "ui/cTxtBox.h"

namespace tessaly::testing {

inline std::string puzzlePath(const std::string& name) { return std::string(TESSALY_TEST_DATA_DIR) + "/puzzles/" + name; }

inline std::string readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

inline void writeText(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
}

class WindowFixture : public ::testing::Test {
 protected:
  WindowFixture() : session(Services{&ui, nullptr, nullptr, nullptr, &random}) {
    m_previousDir = std::filesystem::current_path();
    std::filesystem::current_path(m_workDir.path().toStdString());
  }
  ~WindowFixture() override {
    window.reset();
    std::filesystem::current_path(m_previousDir);
  }

  /// The application directory, ending in "/".
  std::string appDir() const { return m_appDir.path().toStdString() + "/"; }
  /// The working folder, where Eventlog.txt and the reports go.
  std::string workDir() const { return m_workDir.path().toStdString() + "/"; }

  /// Builds the window, runs its start-up on the application directory and shows it.
  void startWindow() {
    window = std::make_unique<Form1>(session, &ui);
    window->startUp(appDir());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }

  /// Starts the window and reads puzzle n of a collection through File > Open
  /// (n = 1) or the collection read.
  void startWithPuzzle(const std::string& collection, int n = 1) {
    startWindow();
    window->readPuzzleFile(collection, n);
  }

  template <class T = QWidget>
  T* child(const char* name) const {
    T* found = window->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QAction* action(const char* name) const { return child<QAction>(name); }
  void click(const char* name, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(child<QWidget>(name), button);
  }
  /// Clicks a check box on its indicator (its centre may lie beyond its caption).
  void clickCheckBox(const char* name) {
    QWidget* box = child<QWidget>(name);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2));
  }
  QString text(const char* name) const {
    if (auto* label = window->findChild<QLabel*>(name)) return label->text();
    return QString();
  }
  cTxtBox* logView() const { return window->eventLogView(); }
  std::string lastLogLine() const {
    const int n = session.log.TotalLines();
    return n ? std::string(session.log.text(n)) : std::string();
  }
  std::vector<std::string> logTexts() const {
    std::vector<std::string> texts;
    for (int n = 1; n <= session.log.TotalLines(); ++n) texts.emplace_back(session.log.text(n));
    return texts;
  }
  bool logHas(const std::string& text) const {
    for (const auto& line : logTexts())
      if (line == text) return true;
    return false;
  }

  ScriptedUserInterface ui;
  ScriptedRandom random{{0.5}};
  Session session;
  std::unique_ptr<Form1> window;

 private:
  QTemporaryDir m_appDir;
  QTemporaryDir m_workDir;
  std::filesystem::path m_previousDir;
};

}  // namespace tessaly::testing
