#pragma once
// A main window on a scratch folder that is both its application directory and
// the working folder (where Eventlog.txt and the reports go), with scripted
// message boxes, file choosers and random numbers, and helpers to click through it.

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>
#include <string>

#include "model/Services.h"
#include "model/Session.h"
#include "support/TestSupport.h"
#include "ui/MainWindow.h"
#include "ui/EventLogView.h"

namespace tessaly::testing {

using test::puzzleFile;
using test::readFile;
using test::writeFile;

class WindowFixture : public ::testing::Test {
 protected:
  /// The application directory, ending in "/"; also the working folder.
  std::string appDir() const { return m_scratch.dir.dir(); }

  /// Builds the window, runs its start-up on the application directory and shows it.
  void startWindow() {
    window = std::make_unique<MainWindow>(session, &ui);
    window->startUp(appDir());
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
  }
  /// Starts the window and reads puzzle n of pe96.
  void startWithPuzzle(int n = 1) {
    startWindow();
    window->readPuzzleFile(puzzleFile("pe96.sud"), n);
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
  EventLogView* logView() const { return window->eventLogView(); }
  std::string lastLogLine() const {
    const int n = session.log.TotalLines();
    return n ? std::string(session.log.text(n)) : std::string();
  }

 private:
  test::ScratchFolder m_scratch;  // made first, gone last

 protected:
  ScriptedUserInterface ui;
  ScriptedRandom random{{0.5}};
  Session session{Services{&ui, nullptr, nullptr, nullptr, &random}};
  std::unique_ptr<MainWindow> window;
};

}  // namespace tessaly::testing
