#pragma once
// Stepping back through a run: the board as it stood at any line of the event
// log. A click on a log line, the keys on the log or the slider under it pick
// a line; the cell board then draws that line's board (values, choices, box
// counts and the line's cell and area) from the run's board history, framed in
// a colour of its own, and a label says which line is shown. The session is
// never written: the board draws a snapshot. Escape, End, the slider's right
// end and every command that changes the board bring back the present.
//
// Keys on the log: Up/Down a line, PgUp/PgDn the previous/next line a stepped
// run pauses after, Home the first line, End and Escape the present.

#include <QColor>
#include <QObject>
#include <functional>
#include <vector>

#include "model/Finding.h"
#include "ui/CellBoard.h"

class QLabel;
class QShortcut;
class QSlider;

namespace tessaly {

class EventLogView;
class Session;

/// The board as log line `line` saw it, with the marks the solver gave that
/// line: a placement's cell painted as placed, a dead end or re-try likewise,
/// a rule's removal with its cell and the area of its reason highlighted.
PastBoard pastBoardAtLine(const Session& session, int line);

/// "Showing line 412 of 1,296 — Esc to return".
QString replayLabelText(int line, int total);

class ReplayController : public QObject {
  Q_OBJECT

 public:
  /// The frame drawn around the board while it shows the past.
  static inline const QColor kPastFrame{230, 110, 0};

  ReplayController(const Session& session, CellBoard& board, EventLogView& log, QWidget* window);

  /// The strip under the log: the slider (`ReplaySlider`) and the label
  /// (`ReplayLabel`, shown only while the past is).
  QWidget* createStrip(QWidget* parent);

  /// Whether a line may be shown now; by default always. The window allows it
  /// while no command runs or a run waits for Next.
  void setAllowed(std::function<bool()> allowed) { m_allowed = std::move(allowed); }

  /// The line shown, 0 for the present.
  int shownLine() const { return m_line; }
  bool showsPast() const { return m_line > 0; }

  /// Shows the board of line n (clamped to the log); nothing when the log is
  /// empty or showing is not allowed now.
  void showLine(int n);
  /// Back to the session's board; nothing when it is shown already.
  void returnToPresent();
  /// One line back (from the present: the last line) or forward (past the last: the present).
  void step(int delta);
  /// To the previous or next line a stepped run pauses after; past the first
  /// such line the first line, past the last one the present.
  void stepPausePoint(int direction);

  /// The log changed: the slider follows its length, and a line that is gone
  /// gives way to the present.
  void logChanged();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showLineNow(int n);
  void updateSlider();
  int totalLines() const;
  /// The lines of the findings a stepped run pauses after, in order.
  std::vector<int> pausePoints() const;

  const Session& m_session;
  CellBoard& m_board;
  EventLogView& m_log;
  QWidget* m_strip = nullptr;
  QSlider* m_slider = nullptr;
  QLabel* m_label = nullptr;
  QShortcut* m_escape = nullptr;
  std::function<bool()> m_allowed;
  int m_line = 0;
  bool m_settingSlider = false;
};

}  // namespace tessaly
