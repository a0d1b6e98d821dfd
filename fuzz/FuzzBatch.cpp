// The batch reader of `grade FILE|-` and `count --solutions FILE|-`: the input
// is the source's bytes, read once from standard input and once from a file.
//
// Invariants, for every source:
// - standard input and the file give the same output and exit status;
// - the exit status is 0 (puzzles and nothing bad) or 2 (anything skipped, no
//   puzzle at all, or a source that is not text), and every output line is a
//   puzzle of 81 cells, a tab and its solution count (0, 1 or 2);
// - every puzzle taken round-trips: written as the program's TXT export, and
//   as a line of its 81 cells, it reads back as the same puzzle, alone;
// - a source with a NUL byte, or that starts with a UTF-16 mark, gives no
//   output and status 2.
// For a source of one-per-line puzzles alone (no line that is a nine-cell grid
// row, "PUZZLE" or "SOLUTION", which start or skip a grid), the reading is
// compared whole with the reference below: the puzzles in order, and the
// numbers of the lines skipped.
//
// The reference is written from the documented line format, not from the
// reader: a puzzle line is 81 cells ("1".."9" givens; ".", "0" or "-" blanks)
// followed by nothing, or by a blank, tab, ",", ";" or "#" and anything; blanks
// (space, tab, form feed) around a line do not count; blank lines and "#"
// lines pass by; a UTF-8 byte-order mark at the start is no part of the first
// line; a puzzle whose givens repeat in a row, column or box is skipped. Lines
// are split by referenceLines (FuzzSupport.h), not by the LineReader. What the
// reference shares with the reader is only the format it reads.

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzSupport.h"
#include "cli/Batch.h"
#include "cli/Commands.h"
#include "model/Services.h"
#include "output/TextExport.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

struct BatchRun {
  int status = 0;
  std::string out, err;
};

BatchRun runFrom(const std::string& source, const std::string& input = {}) {
  StandardStreams streams(input);
  BatchRun run;
  run.status = cli::runBatch(source, 1, TechniqueSet::rulesOnly(), cli::BatchOutput::Solutions);
  run.out = streams.out.str();
  run.err = streams.err.str();
  return run;
}

bool isCellChar(char ch) { return (ch >= '1' && ch <= '9') || ch == '.' || ch == '0' || ch == '-'; }

std::string_view referenceTrimmed(std::string_view line) {
  const auto blank = [](char ch) { return ch == ' ' || ch == '\t' || ch == '\f' || ch == '\r'; };
  while (!line.empty() && blank(line.front())) line.remove_prefix(1);
  while (!line.empty() && blank(line.back())) line.remove_suffix(1);
  return line;
}

/// The 81 cells with "." for blanks, or "" when the line is no puzzle line.
std::string referencePuzzle(std::string_view line) {
  if (line.size() < 81) return {};
  if (line.size() > 81 && std::string_view(" \t,;#").find(line[81]) == std::string_view::npos) return {};
  std::string cells;
  for (char ch : line.substr(0, 81)) {
    if (!isCellChar(ch)) return {};
    cells.push_back(ch >= '1' && ch <= '9' ? ch : '.');
  }
  return cells;
}

/// Whether the line, blanks and tabs left out, is nine cells (a grid row).
bool referenceGridRow(std::string_view line) {
  int cells = 0;
  for (char ch : line) {
    if (ch == ' ' || ch == '\t' || ch == '\r') continue;
    if (!isCellChar(ch)) return false;
    ++cells;
  }
  return cells == 9;
}

bool givensRepeat(const std::string& cells) {
  for (int i = 0; i < 81; ++i)
    for (int j = i + 1; j < 81; ++j) {
      if (cells[std::size_t(i)] == '.' || cells[std::size_t(i)] != cells[std::size_t(j)]) continue;
      const bool row = i / 9 == j / 9, column = i % 9 == j % 9;
      const bool box = i / 27 == j / 27 && i % 9 / 3 == j % 9 / 3;
      if (row || column || box) return true;
    }
  return false;
}

/// The puzzles of the output, in order; fails on a line of any other shape.
std::vector<std::string> outputPuzzles(const std::string& out) {
  std::vector<std::string> puzzles;
  std::size_t start = 0;
  while (start < out.size()) {
    const std::size_t end = out.find('\n', start);
    FUZZ_CHECK(end != std::string::npos);
    const std::string line = out.substr(start, end - start);
    FUZZ_CHECK(line.size() == 83 && line[81] == '\t' && line[82] >= '0' && line[82] <= '2');
    for (char ch : line.substr(0, 81)) FUZZ_CHECK(ch == '.' || (ch >= '1' && ch <= '9'));
    puzzles.push_back(line.substr(0, 81));
    start = end + 1;
  }
  return puzzles;
}

/// The line numbers of the "NAME:LINE: ...; skipped" lines on standard error.
std::vector<int> skippedLines(const std::string& err, const std::string& name) {
  std::vector<int> lines;
  const std::string lead = "tessaly-cli: " + name + ":";
  std::size_t start = 0;
  while (start < err.size()) {
    std::size_t end = err.find('\n', start);
    if (end == std::string::npos) end = err.size();
    const std::string line = err.substr(start, end - start);
    if (line.rfind(lead, 0) == 0 && line.size() > 9 && line.compare(line.size() - 9, 9, "; skipped") == 0)
      lines.push_back(std::atoi(line.c_str() + lead.size()));
    start = end + 1;
  }
  return lines;
}

void checkRoundTrip(const std::string& puzzle) {
  ScriptedUserInterface ui;
  FixedClock clock;
  SeededRandom random{1};
  Session s{Services{&ui, nullptr, nullptr, &clock, &random}};
  putGivens(s, puzzle);
  const std::string exported = scratchFolder() + "export.txt";
  writeBytes(exported, txtExportText(s));
  const BatchRun fromExport = runFrom(exported);
  FUZZ_CHECK(fromExport.status == 0);
  FUZZ_CHECK(outputPuzzles(fromExport.out) == std::vector<std::string>{puzzle});
  const BatchRun fromLine = runFrom("-", puzzle + "\n");
  FUZZ_CHECK(fromLine.status == 0);
  FUZZ_CHECK(fromLine.out == fromExport.out);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string content = bytesOf(data, size);
  const BatchRun fromStdin = runFrom("-", content);
  const std::string path = scratchFolder() + "batch.txt";
  writeBytes(path, content);
  const BatchRun fromFile = runFrom(path);
  FUZZ_CHECK(fromStdin.status == fromFile.status && fromStdin.out == fromFile.out);
  FUZZ_CHECK(fromStdin.status == 0 || fromStdin.status == 2);
  FUZZ_CHECK(skippedLines(fromStdin.err, "standard input") == skippedLines(fromFile.err, path));
  const std::vector<std::string> puzzles = outputPuzzles(fromStdin.out);
  if (fromStdin.status == 0) FUZZ_CHECK(!puzzles.empty() && fromStdin.err.empty());

  const bool utf16 = content.rfind("\xFF\xFE", 0) == 0 || content.rfind("\xFE\xFF", 0) == 0;
  if (utf16 || content.find('\0') != std::string::npos) {
    FUZZ_CHECK(fromStdin.status == 2 && puzzles.empty());
    return 0;
  }
  std::set<std::string> seen;
  for (const std::string& puzzle : puzzles)
    if (seen.insert(puzzle).second) checkRoundTrip(puzzle);

  const std::string_view bom = "\xEF\xBB\xBF";
  const std::string text = content.rfind(bom, 0) == 0 ? content.substr(bom.size()) : content;
  const std::vector<std::string> lines = referenceLines(text);
  std::vector<std::string> expected;
  std::vector<int> skipped;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view line = referenceTrimmed(lines[i]);
    if (referenceGridRow(line) || line == "PUZZLE" || line == "SOLUTION") return 0;  // grids: round trips only
    if (line.empty() || line.front() == '#') continue;
    const std::string puzzle = referencePuzzle(line);
    if (puzzle.empty() || givensRepeat(puzzle))
      skipped.push_back(int(i) + 1);
    else
      expected.push_back(puzzle);
  }
  FUZZ_CHECK(puzzles == expected);
  FUZZ_CHECK(skippedLines(fromStdin.err, "standard input") == skipped);
  FUZZ_CHECK(fromStdin.status == (skipped.empty() && !expected.empty() ? 0 : 2));
  return 0;
}
