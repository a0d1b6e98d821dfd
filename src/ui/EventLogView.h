#pragma once
// The scrolling coloured text list that shows the event log (`EventLogx`).
//
// It keeps its own copy of the log's lines, taken in by syncWithLog: each new
// line is converted, measured and wrapped once, so appending costs the same
// whatever the length of the log, and painting never reads the log itself (it
// may have been cleared since). Only the rows on screen are drawn.

#include <QAbstractScrollArea>
#include <QColor>
#include <QString>
#include <array>
#include <string>
#include <vector>

#include "model/EventLog.h"

namespace tessaly {

class EventLogView : public QAbstractScrollArea {
  Q_OBJECT

 public:
  explicit EventLogView(const EventLog& log, QWidget* parent = nullptr);

  /// Takes in the lines written since the last call. A log that shrank, or whose
  /// last known line changed, was cleared in between: the view starts over.
  /// With `verify` every known line is compared, which also finds a log that was
  /// cleared and refilled to the same length.
  void syncWithLog(bool verify = false);

  /// Lines shown (the log's TotalLines at the last sync).
  int TotalLines() const { return int(m_lines.size()); }
  /// The text of line n (1-based) as shown.
  QString lineText(int n) const { return textOf(n - 1); }
  int lineStyle(int n) const { return m_lines[std::size_t(n - 1)].style; }
  /// Number of the first line with a row on screen (0 when empty).
  int firstVisibleLine() const;
  /// Number of the last line with a row on screen (0 when empty).
  int lastVisibleLine() const;
  /// Whole rows that fit on the page.
  int LinesPerPage() const;

  /// The text at `scale` times the application font's size (Arial, as the log
  /// has always been drawn); set again when the application font changes.
  void setTextScale(double scale);
  double textScale() const { return m_textScale; }

  /// Selected lines, joined by line breaks.
  QString selectedText() const;
  void selectAll();
  /// Puts the selected lines (all lines when none is selected) on the clipboard.
  void copy();
  /// Selects line n (1-based) alone and scrolls it into view; 0 selects nothing.
  void selectLine(int n);
  /// Where the first row of line n is drawn in the viewport; empty when off screen.
  QRect lineRect(int n) const;
  /// Whether line n (1-based) is among the selected lines.
  bool isLineSelected(int n) const;
  /// The number of the line under a viewport point, 0 when none.
  int lineNumberAt(const QPoint& point) const { return lineAt(point) + 1; }

  // What assistive technology reads: the lines joined by line breaks.
  /// Characters in all lines, with one line break between two lines.
  int characterCount() const { return m_characters; }
  /// Counts the times the view started over, so that a reader of the lines
  /// knows whether what it keeps is still the log's.
  int restarts() const { return m_restarts; }

 signals:
  /// A plain left click on line n (1-based).
  void lineClicked(int n);

 public:
  /// The colour of a log style: the classic 16-colour palette (0 black, 1 blue,
  /// ... 15 white); other numbers draw black.
  static QColor styleColour(int style);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// The lines are kept as the log's records (also to notice a cleared log);
  /// their text is made for the screen only when it is drawn or copied, since
  /// most lines of a long run never are.
  using Line = LogLine;
  /// One display row: a piece of a line that fits the width.
  struct Row {
    int line = 0;  ///< index into m_lines
    int start = 0;
    int length = 0;
  };

  void clearView();
  /// Tells assistive technology that the selection (the line replayed) changed.
  void tellSelection();
  void appendLine(const LogLine& line);
  void wrapLine(int index);
  /// The text of the line with that index.
  QString textOf(int index) const;
  /// Width of a character in pixels: from a table for ASCII, measured otherwise.
  int advance(QChar ch) const;
  void measureFont();
  void rewrap();
  void updateScrollRange(bool toBottom);
  int rowHeight() const;
  int wrapWidth() const;
  /// Index of the line under a viewport point, clamped to the lines there are.
  int lineAt(const QPoint& point) const;
  /// Index of the first row of the line with that index (m_rows.size() when there is none).
  int firstRow(int index) const;

  const EventLog& m_log;
  std::vector<Line> m_lines;
  std::vector<Row> m_rows;
  int m_wrapWidth = 0;
  /// Advances of the ASCII characters in the view's font; measuring a whole
  /// line would shape it, which costs more than everything else an append does.
  std::array<int, 128> m_asciiAdvance{};
  int m_widestAscii = 0;  ///< the largest of them: a line no wider than that many times its length fits
  double m_textScale = 1.0;
  int m_characters = 0;
  int m_restarts = 0;
  int m_selectionAnchor = -1;  ///< line indexes, -1 when nothing is selected
  int m_selectionEnd = -1;
};

}  // namespace tessaly
