// The grid and candidate display on their own: what they show for a cell and
// how clicks and keys on the grid are reported.

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
  QColor back(QLabel* label) const { return label->palette().color(QPalette::Window); }
  static QColor qc(const Rgb& c) { return QColor(c.red, c.green, c.blue); }

  Session session;
  ColourScheme scheme;
  CellBoard board;
};

TEST_F(CellBoardTest, ShowsValuesCandidatesAndSinglesInTheGivenColours) {
  session.grid[1] = Cell{5, true, CandidateSet::of(5)};
  session.grid[2] = Cell{0, false, CandidateSet::fromText("37")};
  session.grid[3] = Cell{0, false, CandidateSet::fromText("8")};
  board.setPaint(1, CellPaint::Given);
  board.refreshFromSession();

  EXPECT_EQ(board.valueBox(1)->text(), "5");
  EXPECT_TRUE(board.valueBox(1)->font().bold());
  EXPECT_EQ(board.candidateLabel(1)->text(), "5");
  EXPECT_EQ(board.candidateLabel(2)->text(), "37");
  EXPECT_EQ(back(board.candidateLabel(1)), qc(scheme.givenBack));
  EXPECT_EQ(back(board.candidateLabel(2)), qc(scheme.candidateBack));
  EXPECT_EQ(back(board.candidateLabel(3)), qc(scheme.givenBack));  // a single
  EXPECT_EQ(back(board.valueBox(1)), qc(scheme.givenBack));
}

TEST_F(CellBoardTest, AreaHighlightsLastUntilRestored) {
  board.highlightArea(10, 0, 0, 1);
  board.refreshFromSession();
  EXPECT_EQ(back(board.candidateLabel(10)), qc(scheme.colour[13]));
  EXPECT_EQ(back(board.candidateLabel(21)), qc(scheme.colour[9]));
  EXPECT_EQ(back(board.candidateLabel(4)), qc(scheme.candidateBack));
  board.restoreHighlight();
  board.refreshFromSession();
  EXPECT_EQ(back(board.candidateLabel(10)), qc(scheme.candidateBack));
  EXPECT_EQ(back(board.candidateLabel(21)), qc(scheme.candidateBack));
}

TEST_F(CellBoardTest, PlacedDeadAndRetryCellsStandOut) {
  board.setPaint(5, CellPaint::Placed);
  board.setPaint(6, CellPaint::Dead);
  board.setPaint(7, CellPaint::Retry);
  board.refreshFromSession();
  EXPECT_EQ(back(board.candidateLabel(5)), qc(scheme.highlightRed));
  EXPECT_EQ(back(board.valueBox(5)), qc(scheme.highlightRed));
  EXPECT_EQ(back(board.candidateLabel(6)), qc(scheme.colour[6]));
  EXPECT_EQ(back(board.candidateLabel(7)), qc(scheme.highlightGreen));
  board.clearPaints();
  board.refreshFromSession();
  EXPECT_EQ(back(board.candidateLabel(5)), qc(scheme.candidateBack));
}

TEST_F(CellBoardTest, ReportsClicksAndKeysWithTheirCell) {
  QSignalSpy clicks(&board, &CellBoard::valueBoxClicked);
  QSignalSpy keys(&board, &CellBoard::valueBoxKeyPressed);
  QSignalSpy candidateClicks(&board, &CellBoard::candidateLabelClicked);
  QTest::mouseClick(board.valueBox(40), Qt::RightButton);
  ASSERT_EQ(clicks.count(), 1);
  EXPECT_EQ(clicks[0][0].toInt(), 40);
  EXPECT_EQ(clicks[0][1].value<Qt::MouseButton>(), Qt::RightButton);
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
