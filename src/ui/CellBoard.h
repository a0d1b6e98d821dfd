#pragma once
// The grid of value cells (`Grid`) beside the candidate display ("Choices for
// cells": the candidate cells and each box's `BoxMissingCount`), both painted
// by a BoardView that scales with the window. The board draws the session's
// grid; the only state it keeps is how the solver and manual play asked cells
// to be painted, so that a redraw keeps the highlights of a paused step.
//
// The cells keep the names the rest of the program knows them by (Grid_N,
// PosVals_N, BoxMissingCount_N): `cellAt` answers what each one shows.

#include <QColor>
#include <QRect>
#include <QString>
#include <QWidget>
#include <array>
#include <optional>

#include "model/Interfaces.h"
#include "model/PuzzleGrid.h"
#include "ui/BoardView.h"
#include "ui/PlayMarks.h"

class QGroupBox;

namespace tessaly {

class ColourScheme;
class Session;

/// What one addressable cell of the board shows, as drawn.
struct BoardCell {
  QString name;  ///< Grid_<cell - 1>, PosVals_<cell> or BoxMissingCount_<box>
  QString text;  ///< the digit, the choices ("45") or the count
  QColor back, fore;
  bool bold = false;
  QString notes{};  ///< a value cell's notes as drawn small ("147"), with the digits a nudge shows
  QString toolTip;
  QRect rect;                   ///< in the coordinates of `view`
  BoardView* view = nullptr;    ///< the view that draws it; null for an unknown name
  bool valid() const { return view != nullptr; }
};

/// How the solver asked the cells to be drawn: each cell's paint and the
/// highlighted area (row, column and box numbers, 0 for none) with its cell.
struct BoardMarks {
  std::array<CellPaint, 81> paints{};  ///< entry c-1 for cell c
  int cell = 0, row = 0, col = 0, box = 0;
  bool inArea(int c) const;
};

/// A board drawn instead of the session's: the cells, box counts and marks as
/// they stood at some earlier moment. Drawing it never touches the session.
struct PastBoard {
  PuzzleGrid grid;
  std::array<int, 9> boxMissing{};  ///< entry b-1 for box b
  BoardMarks marks;
};

class CellBoard : public QWidget {
  Q_OBJECT

 public:
  CellBoard(const Session& session, const ColourScheme& scheme, QWidget* parent = nullptr);

  /// The painted value grid (object name Grid); it takes the grid's keys.
  BoardView* grid() const { return m_grid; }
  /// The painted candidate cells (object name PosVals).
  BoardView* candidateView() const { return m_candidateView; }
  /// The frame "Choices for cells" around the candidate cells and their caption.
  QWidget* candidateDisplay() const;

  /// The value cell of cell 1..81 (Grid_<cell - 1>).
  BoardCell valueCell(int cell) const;
  /// The candidate cell of cell 1..81 (PosVals_<cell>).
  BoardCell candidateCell(int cell) const;
  /// The missing-digit count beside box 1..9 (BoxMissingCount_<box>).
  BoardCell boxCount(int box) const;
  /// A cell by its name; not valid() when the board has none of that name.
  BoardCell cellAt(const QString& name) const;
  /// The side of a value cell in pixels.
  int cellSize() const { return m_grid->cellSize(); }

  // --- what the solver asks for (through the window's Display)
  void setPaint(int cell, CellPaint paint);
  CellPaint paint(int cell) const { return m_marks.paints.at(std::size_t(cell - 1)); }
  /// Every cell back to its ordinary colours (singles still stand out).
  void clearPaints();
  /// Colours the area given by a non-zero row, column or box, and the cell.
  void highlightArea(int cell, int row, int col, int box);
  void restoreHighlight();
  bool isAreaHighlighted(int cell) const;
  int highlightedCell() const { return m_marks.cell; }

  /// Colours laid over a value cell by manual play (selection, refused marker,
  /// area highlight); an invalid text colour keeps the ordinary one.
  void setOverlayColours(int cell, QColor back, QColor text);
  void clearOverlayColours(int cell);
  /// What manual play draws in the value cells beside their values (notes,
  /// the nudge's marks, shades, clashes); drawn on the present board only.
  void setPlayMarks(const BoardPlayMarks& marks) { m_playMarks = marks; }
  const PlayMarks& playMarks(int cell) const { return m_playMarks.at(std::size_t(cell - 1)); }

  /// Redraws values, candidates, box counts and colours from the session; only
  /// the cells whose looks changed are painted again. While a snapshot is
  /// shown, it is drawn instead.
  void refreshFromSession();

  // --- a board from the past
  /// Draws the snapshot, framed in `frame`, until showPresent; the session's
  /// grid, paints and highlights stay as they are meanwhile.
  void showSnapshot(const PastBoard& snapshot, const QColor& frame);
  /// Back to drawing the session.
  void showPresent();
  bool showsSnapshot() const { return m_snapshot.has_value(); }

 signals:
  void valueBoxClicked(int cell, Qt::MouseButton button);
  void valueBoxDoubleClicked(int cell);
  /// A key released while the grid has the focus.
  void gridKeyReleased(int key, Qt::KeyboardModifiers modifiers);
  void candidateLabelClicked(int cell, Qt::MouseButton button);
  void candidateLabelHovered(int cell);
  /// A click on the frame of box 1..9 of the grid, between or around its cells.
  void boxFrameClicked(int box);

 private:
  using Colours = BoardView::Look;

  QGroupBox* createCandidateDisplay();
  Colours valueBoxColours(const PuzzleGrid& grid, const BoardMarks& marks, bool overlays, int cell) const;
  Colours candidateColours(const PuzzleGrid& grid, const BoardMarks& marks, int cell) const;
  void draw(const PuzzleGrid& grid, const std::array<int, 9>& boxMissing, const BoardMarks& marks, bool overlays);
  static BoardCell describe(BoardView* view, const QString& name, const BoardView::Look& look, const QRect& rect,
                            const QString& toolTip);

  const Session& m_session;
  const ColourScheme& m_scheme;
  BoardView* m_grid = nullptr;
  BoardView* m_candidateView = nullptr;
  QGroupBox* m_candidates = nullptr;
  BoardMarks m_marks;
  std::array<Colours, 81> m_overlays{};  ///< back invalid: no overlay
  BoardPlayMarks m_playMarks{};
  std::optional<PastBoard> m_snapshot;
};

}  // namespace tessaly
