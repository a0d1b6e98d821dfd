#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tessaly {

/// The file the Solve command writes the log into.
inline constexpr const char* kEventLogFileName = "Eventlog.txt";

/// Thrown by a write beyond the log's capacity; the command that runs the write
/// catches it and tells the user.
class EventLogFull : public std::runtime_error {
 public:
  EventLogFull() : std::runtime_error("Event log is full (5000 lines)") {}
};

/// The narrated lines. Each stored line is the style as two digits ("00" form)
/// followed by the text, so "00Click Start to commence" is style 0.
class EventLog {
 public:
  static constexpr int kCapacity = 5000;

  /// Appends a line; throws EventLogFull when the log already holds kCapacity lines.
  void append(int style, std::string_view text);
  /// Empties the log (the recorded line count is left to its owners).
  void clear() { m_lines.clear(); }

  int TotalLines() const { return int(m_lines.size()); }
  /// Stored line n (1-based) with its two-digit prefix.
  const std::string& line(int n) const { return m_lines[std::size_t(n - 1)]; }
  /// The text of line n without its prefix.
  std::string_view text(int n) const;
  /// The style of line n (its first two characters read as a number).
  int style(int n) const;

  /// First line n in from..RecordedLineCount whose text begins with `text`; 0 when none.
  int searchForward(std::string_view text, int from) const;
  /// The same going from `from` down to line 1.
  int searchBackward(std::string_view text, int from) const;

  /// Writes lines 1..RecordedLineCount as text (no prefix), CR LF each; false on error.
  bool writeTextFile(const std::string& path) const;

  /// Copied from TotalLines by the hint operation, reset by solve runs; bounds the
  /// forward search, Eventlog.txt and the printed log.
  int RecordedLineCount = 0;

 private:
  bool lineBeginsWith(int n, std::string_view text) const;
  std::vector<std::string> m_lines;
};

}  // namespace tessaly
