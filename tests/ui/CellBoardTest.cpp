// The grid and candidate display on their own: what they show for a cell in
// each paint state, and how clicks and keys on the grid are reported (the
// window's tests follow double-clicks and the pointer on to the pages).

#include <gtest/gtest.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include "model/Session.h"
#include "ui/CellBoard.h"
#include "ui/ColourScheme.h"

namespace tessaly {
namespace {

class CellBoardTest : public ::testing::Test {
 protected:
  CellBoardTest() : board(session, scheme) {
    board.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&board));
  }
  static QColor back(QLabel* label) { return label->palette().color(QPalette::Window); }
  static QColor qc(const Rgb& c) { return QColor(c.red, c.green, c.blue); }

  Session session;
  ColourScheme scheme;
  CellBoard board;
};

TEST_F(CellBoardTest, ShowsEachPaintStateInItsSchemeColourUntilCleared) {
  session.grid[1] = Cell{5, true, CandidateSet::of(5)};
  session.grid[2] = Cell{0, false, CandidateSet::fromText("37")};
  session.grid[3] = Cell{0, false, CandidateSet::fromText("8")};
  board.setPaint(1, CellPaint::Given);
  board.setPaint(5, CellPaint::Placed);
  board.setPaint(6, CellPaint::Dead);
  board.setPaint(7, CellPaint::Retry);
  board.highlightArea(80, 0, 0, 9);
  board.refreshFromSession();

  EXPECT_EQ(board.valueBox(1)->text(), "5");
  EXPECT_TRUE(board.valueBox(1)->font().bold());
  EXPECT_EQ(board.candidateLabel(2)->text(), "37");
  const struct {
    QLabel* label;
    Rgb back;
  } expected[] = {
      {board.valueBox(1), scheme.givenBack},        {board.candidateLabel(1), scheme.givenBack},
      {board.candidateLabel(2), scheme.candidateBack},
      {board.candidateLabel(3), scheme.givenBack},  // a single stands out like a given
      {board.valueBox(5), scheme.highlightRed},     {board.candidateLabel(5), scheme.highlightRed},
      {board.candidateLabel(6), scheme.colour[6]},  {board.candidateLabel(7), scheme.highlightGreen},
      {board.candidateLabel(80), scheme.colour[13]},  // the highlighted cell
      {board.candidateLabel(81), scheme.colour[9]},   // its area, box 9
  };
  for (const auto& e : expected) EXPECT_EQ(back(e.label), qc(e.back)) << e.label->objectName().toStdString();

  board.clearPaints();
  board.restoreHighlight();
  board.refreshFromSession();
  for (int cell : {5, 6, 7, 80, 81}) EXPECT_EQ(back(board.candidateLabel(cell)), qc(scheme.candidateBack)) << cell;
}

TEST_F(CellBoardTest, ReportsClicksAndKeysWithTheirCell) {
  QSignalSpy clicks(&board, &CellBoard::valueBoxClicked);
  QSignalSpy keys(&board, &CellBoard::valueBoxKeyPressed);
  QSignalSpy candidateClicks(&board, &CellBoard::candidateLabelClicked);
  QTest::mouseClick(board.valueBox(40), Qt::RightButton);
  ASSERT_EQ(clicks.count(), 1);
  EXPECT_EQ(clicks[0][0].toInt(), 40);
  EXPECT_EQ(clicks[0][1].value<Qt::MouseButton>(), Qt::RightButton);
  // Keys go to the value box last pressed.
  QTest::mouseClick(board.valueBox(41), Qt::LeftButton);
  QTest::keyClick(board.findChild<QWidget*>("Grid"), Qt::Key_7);
  ASSERT_EQ(keys.count(), 1);
  EXPECT_EQ(keys[0][0].toInt(), 41);
  EXPECT_EQ(keys[0][1].toInt(), int(Qt::Key_7));
  QTest::mouseClick(board.candidateLabel(81), Qt::LeftButton);
  ASSERT_EQ(candidateClicks.count(), 1);
  EXPECT_EQ(candidateClicks[0][0].toInt(), 81);
}

}  // namespace
}  // namespace tessaly
