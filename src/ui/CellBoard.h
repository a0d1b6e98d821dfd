#pragma once
// The grid of 81 value boxes (`Grid`) beside the candidate display ("Choices
// for cells": the 81 `PosVals` labels and each box's `BoxMissingCount`). It
// draws the session's grid; the only state it keeps is how the solver asked
// cells to be painted, so that a redraw keeps the highlights of a paused step.

#include <QColor>
#include <QWidget>
#include <array>

#include "model/Interfaces.h"

class QFrame;
class QGroupBox;
class QLabel;

namespace tessaly {

class ColourScheme;
class Session;

class CellBoard : public QWidget {
  Q_OBJECT

 public:
  CellBoard(const Session& session, const ColourScheme& scheme, QWidget* parent = nullptr);

  /// The value box of cell 1..81 (object name Grid_<cell - 1>).
  QLabel* valueBox(int cell) const { return m_valueBoxes.at(std::size_t(cell - 1)); }
  /// The candidate label of cell 1..81 (object name PosVals_<cell>).
  QLabel* candidateLabel(int cell) const { return m_candidateLabels.at(std::size_t(cell - 1)); }
  /// The missing-digit count beside box 1..9 (object name BoxMissingCount_<box>).
  QLabel* boxCount(int box) const { return m_boxCounts.at(std::size_t(box - 1)); }
  QWidget* candidateDisplay() const;

  // --- what the solver asks for (through the window's Display)
  void setPaint(int cell, CellPaint paint);
  CellPaint paint(int cell) const { return m_paints.at(std::size_t(cell - 1)); }
  /// Every label back to its ordinary colours (singles still stand out).
  void clearPaints();
  /// Colours the area given by a non-zero row, column or box, and the cell.
  void highlightArea(int cell, int row, int col, int box);
  void restoreHighlight();
  bool isAreaHighlighted(int cell) const;
  int highlightedCell() const { return m_highlightCell; }

  /// Colours laid over a value box by manual play (selection, refused marker,
  /// box highlight); an invalid text colour keeps the ordinary one.
  void setOverlayColours(int cell, QColor back, QColor text);
  void clearOverlayColours(int cell);

  /// Redraws values, candidates, box counts and colours from the session.
  void refreshFromSession();

 signals:
  void valueBoxClicked(int cell, Qt::MouseButton button);
  void valueBoxDoubleClicked(int cell);
  /// A key pressed while the grid has the focus; the cell is the value box last pressed.
  void valueBoxKeyPressed(int cell, int key);
  void candidateLabelClicked(int cell, Qt::MouseButton button);
  void candidateLabelHovered(int cell);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Colours {
    QColor back, text;
    friend bool operator==(const Colours&, const Colours&) = default;
  };

  QFrame* createGrid();
  QGroupBox* createCandidateDisplay();
  Colours valueBoxColours(int cell) const;
  Colours candidateColours(int cell) const;
  static void paintLabel(QLabel* label, const Colours& colours, Colours& applied);

  const Session& m_session;
  const ColourScheme& m_scheme;
  QFrame* m_grid = nullptr;
  QGroupBox* m_candidates = nullptr;
  std::array<QLabel*, 81> m_valueBoxes{};
  std::array<QLabel*, 81> m_candidateLabels{};
  std::array<QLabel*, 9> m_boxCounts{};
  std::array<CellPaint, 81> m_paints{};
  std::array<Colours, 81> m_overlays{};  ///< back invalid: no overlay
  std::array<Colours, 81> m_valueBoxApplied{};
  std::array<Colours, 81> m_candidateApplied{};
  // The area highlight: row, column and box numbers (0 for none) and the cell.
  int m_highlightRow = 0, m_highlightCol = 0, m_highlightBox = 0, m_highlightCell = 0;
  int m_selectedCell = 0;  ///< the value box last pressed, 0 before any
};

}  // namespace tessaly
