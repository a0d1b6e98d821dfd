#include "output/TextExport.h"

#include <algorithm>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "model/Session.h"
#include "model/Text.h"
#include "Version.h"

namespace tessaly {

namespace {

constexpr const char* kCrLf = "\r\n";
constexpr const char* kRuleLine = "+---+---+---+---+---+---+---+---+---+";

void addLine(std::string& out, std::string_view line) {
  out.append(line);
  out.append(kCrLf);
}

const Cell& cellAt(const Session& session, int row, int col) { return session.grid[CellNumber[row][col]]; }

/// The digit of a given cell, `otherwise` for any other cell.
char givenChar(const Cell& cell, char otherwise) {
  return cell.given && cell.value > 0 ? char('0' + cell.value) : otherwise;
}
/// The digit of any filled cell, `otherwise` for an empty one.
char valueChar(const Cell& cell, char otherwise) { return cell.value > 0 ? char('0' + cell.value) : otherwise; }

// One CSV row: every field quoted, empty inside when charOf yields no character (0).
template <class CharOf>
std::string csvRow(const Session& session, int row, CharOf charOf) {
  std::string line;
  for (int col = 1; col <= 9; ++col) {
    char ch = charOf(cellAt(session, row, col));
    line += '"';
    if (ch) line += ch;
    line += "\",";
  }
  line.pop_back();  // no comma after the last field
  return line;
}

// The report's framed grid: a rule line, then per row a cell line and a rule
// line. A cell line is "| " and, per cell, its character and " | ", so it is 38
// characters long and keeps a blank after its last bar.
template <class CharOf>
void addFramedGrid(std::string& out, const Session& session, CharOf charOf) {
  addLine(out, kRuleLine);
  for (int row = 1; row <= 9; ++row) {
    std::string line = "| ";
    for (int col = 1; col <= 9; ++col) {
      line += charOf(cellAt(session, row, col));
      line += " | ";
    }
    addLine(out, line);
    addLine(out, kRuleLine);
  }
}

std::string twoDigits(int n) { return padded(n, 2); }

}  // namespace

std::string csvExportText(const Session& session) {
  std::string out;
  addLine(out, "PUZZLE");
  for (int row = 1; row <= 9; ++row)
    addLine(out, csvRow(session, row, [](const Cell& c) { return givenChar(c, 0); }));
  addLine(out, "SOLUTION");
  for (int row = 1; row <= 9; ++row)
    addLine(out, csvRow(session, row, [](const Cell& c) { return valueChar(c, 0); }));
  return out;
}

std::string txtExportText(const Session& session) {
  std::string out;
  addLine(out, "PUZZLE");
  for (int row = 1; row <= 9; ++row) {
    std::string line;
    for (int col = 1; col <= 9; ++col) line += givenChar(cellAt(session, row, col), '0');
    addLine(out, line);
  }
  addLine(out, "SOLUTION");
  for (int row = 1; row <= 9; ++row) {
    std::string line;
    for (int col = 1; col <= 9; ++col) line += valueChar(cellAt(session, row, col), '0');
    addLine(out, line);
  }
  return out;
}

FileResult writeCsvExport(const Session& session, const std::string& path) {
  return writeFileAtomically(path, csvExportText(session));
}

FileResult writeTxtExport(const Session& session, const std::string& path) {
  return writeFileAtomically(path, txtExportText(session));
}

namespace {

/// The report with the event log's lines 1..lastLogLine when includeLog is set.
std::string reportWithLogLines(const Session& session, bool includeLog, int lastLogLine) {
  const std::string heading = "Puzzle Number" + num(session.collection.CurrentPuzzleNumber);
  std::string out;
  addLine(out, heading);
  addLine(out, "");
  addFramedGrid(out, session, [](const Cell& c) { return givenChar(c, ' '); });

  if (includeLog) {
    addLine(out, "");
    addLine(out, "EVENT LOG");
    const int last = std::min(lastLogLine, session.log.TotalLines());
    for (int n = 1; n <= last; ++n) addLine(out, session.log.text(n));
  }

  addLine(out, "");
  addLine(out, heading + " Solution");
  addLine(out, "");
  addFramedGrid(out, session, [](const Cell& c) { return valueChar(c, ' '); });

  addLine(out, "");
  addLine(out, std::string("Tessaly Puzzle Solution and Creation - version ") + kProgramVersion);
  return out;
}

}  // namespace

std::string reportText(const Session& session, bool includeLog) {
  // Bounded by the recorded line count, not by the lines held: only a hint
  // sets that count and every solve resets it, so after a plain solve the
  // heading stands alone.
  return reportWithLogLines(session, includeLog, session.log.RecordedLineCount);
}

std::string printerReportText(const Session& session, bool includeLog) {
  return reportWithLogLines(session, includeLog, session.log.TotalLines());
}

std::string reportFileName(int puzzleNumber, const TimeOfDay& time) {
  // The time is formatted hh:mm:ss and every ":" then turned into "-", which
  // file systems accept.
  return "P#" + trimmed(std::to_string(puzzleNumber)) + "@" + twoDigits(time.hours) + "-" +
         twoDigits(time.minutes) + "-" + twoDigits(time.seconds) + ".txt";
}

std::string printToTextFile(Session& session, bool includeLog) {
  const std::string name =
      pathIn(session.folders.output, reportFileName(session.collection.CurrentPuzzleNumber, session.clock().now()));
  if (const FileResult written = writeFileAtomically(name, reportText(session, includeLog)); !written) {
    session.message(couldNotWriteText(name, written));
    return {};
  }
  session.message("Printed to: " + name);
  return name;
}

}  // namespace tessaly
