#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "model/FileUtil.h"

namespace tessaly {

/// The file the Solve command writes the log into.
inline constexpr const char* kEventLogFileName = "Eventlog.txt";

/// Thrown by a write beyond the log's capacity; the command that runs the write
/// catches it and tells the user.
class EventLogFull : public std::runtime_error {
 public:
  EventLogFull() : std::runtime_error("Event log is full (5000 lines)") {}
};

/// One line of the log: its colour style (a number of the 16-colour palette)
/// and its text.
struct LogLine {
  int style = 0;
  std::string text;
  friend bool operator==(const LogLine&, const LogLine&) = default;
};

/// The narrated lines, as records. Their written forms are made by the
/// writers: the text alone (Eventlog.txt, the report, the log view) or the
/// style as two digits before it (`listed`, the command line's --raw listing).
class EventLog {
 public:
  static constexpr int kCapacity = 5000;

  /// Appends a line; throws EventLogFull when the log already holds kCapacity lines.
  void append(int style, std::string_view text);
  /// Empties the log (the recorded line count is left to its owners).
  void clear() { m_lines.clear(); }

  int TotalLines() const { return int(m_lines.size()); }
  /// Line n (1-based).
  const LogLine& line(int n) const { return m_lines[std::size_t(n - 1)]; }
  /// The text of line n.
  std::string_view text(int n) const { return line(n).text; }
  /// The style of line n.
  int style(int n) const { return line(n).style; }
  /// Line n as the raw listing writes it: the style as two digits, then the
  /// text ("00Click Start to commence").
  std::string listed(int n) const;

  /// First line n in from..RecordedLineCount whose text begins with `text`; 0 when none.
  int searchForward(std::string_view text, int from) const;
  /// The same going from `from` down to line 1.
  int searchBackward(std::string_view text, int from) const;

  /// Writes the texts of lines 1..RecordedLineCount, CR LF each; the reason on error.
  FileResult writeTextFile(const std::string& path) const;

  /// Copied from TotalLines by the hint operation, reset by solve runs; bounds the
  /// forward search, Eventlog.txt and the printed log.
  int RecordedLineCount = 0;

 private:
  std::vector<LogLine> m_lines;
};

}  // namespace tessaly
