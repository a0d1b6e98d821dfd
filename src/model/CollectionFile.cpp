#include "model/CollectionFile.h"

#include <algorithm>
#include <fstream>

#include "model/FileUtil.h"
#include "model/Session.h"
#include "model/Text.h"

namespace tessaly {

namespace {

constexpr std::size_t kHeadBytes = 64 * 1024;

bool isBlankCell(char ch) { return ch == '.' || ch == '0' || ch == '-'; }
bool isCell(char ch) { return (ch >= '1' && ch <= '9') || isBlankCell(ch); }

std::string_view trimmedView(std::string_view line) {
  const auto first = line.find_first_not_of(" \t\r\f");
  if (first == std::string_view::npos) return {};
  const auto last = line.find_last_not_of(" \t\r\f");
  return line.substr(first, last - first + 1);
}

// A line that a one-per-line reader passes over.
bool isSkippedLine(std::string_view line) {
  const std::string_view t = trimmedView(line);
  return t.empty() || t.front() == '#';
}

// Binary when the head holds a NUL byte or more than one control character in
// sixteen (text has only tabs and line ends).
bool looksBinary(std::string_view head) {
  std::size_t controls = 0;
  for (char ch : head) {
    const auto byte = static_cast<unsigned char>(ch);
    if (byte == 0) return true;
    if ((byte < 0x20 && ch != '\t' && ch != '\n' && ch != '\r' && ch != '\f') || byte == 0x7F) ++controls;
  }
  return controls * 16 > head.size();
}

// Calls take(lineNumber, line) for every line of the file, read a line at a
// time; CR LF, LF and CR all end a line. False when the file cannot be read.
template <typename Take>
bool forEachLine(const std::string& path, Take take) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::string line;
  int number = 0;
  char buffer[1 << 16];
  bool pendingCr = false;
  while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
    const std::streamsize got = in.gcount();
    for (std::streamsize i = 0; i < got; ++i) {
      const char ch = buffer[i];
      if (pendingCr && ch == '\n') {
        pendingCr = false;
        continue;
      }
      pendingCr = false;
      if (ch == '\r' || ch == '\n') {
        pendingCr = ch == '\r';
        if (!take(++number, std::string_view(line))) return true;
        line.clear();
      } else {
        line.push_back(ch);
      }
    }
  }
  if (!line.empty()) take(++number, std::string_view(line));
  return true;
}

// The grid form: nine good rows among the lines, nothing else but blank lines.
struct GridRead {
  std::string cells;  // 81 cells when good
  int badLine = 0;
};
GridRead readGrid(const std::vector<std::string>& lines) {
  GridRead read;
  int rows = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (trimmedView(lines[i]).empty()) continue;
    const auto row = parseGridRow(lines[i]);
    if (!row || rows == 9) {
      read.badLine = int(i) + 1;
      read.cells.clear();
      return read;
    }
    read.cells += *row;
    ++rows;
  }
  if (rows != 9) {
    read.badLine = int(lines.size());
    read.cells.clear();
  }
  return read;
}

// The head of the file decides its form: the first line that is neither blank
// nor a "#" line is a puzzle line when it is long (a row of the numbered form
// has nine cells); a file without "#" lines whose first line is a grid row is a
// single grid.
CollectionForm formOf(std::string_view head, bool wholeFile) {
  bool headers = false;
  std::optional<std::string_view> first;
  std::size_t start = 0;
  while (start < head.size()) {
    std::size_t end = head.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = head.size();
    const std::string_view line = head.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.front() == '#') headers = true;
    if (!first && !isSkippedLine(line)) {
      if (trimmedView(line).size() >= 40) return CollectionForm::OnePerLine;
      first = line;
    }
  }
  if (!headers && wholeFile && first && parseGridRow(*first)) return CollectionForm::SingleGrid;
  return CollectionForm::Numbered;
}

// Puzzle n (1-based) of a one-per-line file, as 81 cells.
std::optional<std::string> nthPuzzleLine(const std::string& path, int n) {
  std::optional<std::string> found;
  int good = 0;
  forEachLine(path, [&](int, std::string_view line) {
    if (isSkippedLine(line)) return true;
    auto puzzle = parsePuzzleLine(line);
    if (!puzzle || ++good != n) return true;
    found = std::move(puzzle);
    return false;
  });
  return found;
}

std::vector<std::string> rowsOf(const std::string& cells) {
  std::vector<std::string> rows;
  for (std::size_t r = 0; r < 9; ++r) {
    std::string row = cells.substr(r * 9, 9);
    std::replace(row.begin(), row.end(), '.', '0');
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

std::optional<std::string> parsePuzzleLine(std::string_view line) {
  if (line.size() < 81) return std::nullopt;
  if (line.size() > 81) {
    const char next = line[81];
    if (next != ' ' && next != '\t' && next != ',' && next != ';' && next != '#' && next != '\r') return std::nullopt;
  }
  std::string cells(line.substr(0, 81));
  for (char& ch : cells) {
    if (!isCell(ch)) return std::nullopt;
    if (isBlankCell(ch)) ch = '.';
  }
  return cells;
}

std::optional<std::string> parseGridRow(std::string_view line) {
  std::string cells;
  for (char ch : line) {
    if (ch == ' ' || ch == '\t' || ch == '\r') continue;
    if (!isCell(ch) || cells.size() == 9) return std::nullopt;
    cells.push_back(isBlankCell(ch) ? '.' : ch);
  }
  if (cells.size() != 9) return std::nullopt;
  return cells;
}

PuzzleTextParse parsePuzzleText(std::string_view text) {
  PuzzleTextParse result;
  std::vector<std::string> lines = splitLines(std::string(text));
  std::vector<std::string> filled;
  for (const std::string& line : lines)
    if (!trimmedView(line).empty()) filled.emplace_back(trimmedView(line));
  if (filled.empty()) {
    result.error = "The text holds no puzzle.";
    return result;
  }
  if (filled.size() == 1) {
    const std::string& line = filled.front();
    if (auto puzzle = parsePuzzleLine(line)) {
      result.puzzle = *puzzle;
      return result;
    }
    result.error = line.size() == 81 ? "A puzzle line holds only the digits 1 to 9 and \".\", \"0\" or \"-\" for a blank."
                                     : "A puzzle on one line has 81 cells; this line has " +
                                           std::to_string(line.size()) + " characters.";
    return result;
  }
  if (filled.size() != 9) {
    result.error = "A puzzle is one line of 81 cells or nine lines of nine cells; the text has " +
                   std::to_string(filled.size()) + " lines.";
    return result;
  }
  for (std::size_t i = 0; i < filled.size(); ++i) {
    const auto row = parseGridRow(filled[i]);
    if (!row) {
      result.error = "Line " + std::to_string(i + 1) + " is not a row of nine cells (digits 1 to 9, \".\", \"0\" or \"-\").";
      result.puzzle.clear();
      return result;
    }
    result.puzzle += *row;
  }
  return result;
}

CollectionScan scanCollection(const std::string& path) {
  CollectionScan scan;
  const long long length = fileLength(path);
  if (length < 0) return scan;
  if (length > kMaxCollectionBytes) {
    scan.problem = CollectionScan::Problem::TooLarge;
    return scan;
  }
  std::string head;
  {
    std::ifstream in(path, std::ios::binary);
    if (!in) return scan;
    head.resize(kHeadBytes);
    in.read(head.data(), std::streamsize(head.size()));
    head.resize(std::size_t(in.gcount()));
  }
  if (looksBinary(head)) {
    scan.problem = CollectionScan::Problem::Binary;
    return scan;
  }
  scan.problem = CollectionScan::Problem::None;
  scan.form = formOf(head, std::size_t(length) == head.size());
  switch (scan.form) {
    case CollectionForm::Numbered: {
      auto content = readWholeFile(path);
      if (!content) {
        scan.problem = CollectionScan::Problem::Unreadable;
        return scan;
      }
      for (const std::string& line : splitLines(*content))
        if (!line.empty() && line[0] == '#') ++scan.puzzles;
      break;
    }
    case CollectionForm::OnePerLine:
      forEachLine(path, [&](int number, std::string_view line) {
        if (isSkippedLine(line)) return true;
        if (parsePuzzleLine(line)) {
          ++scan.puzzles;
        } else if (scan.badLines++ == 0) {
          scan.firstBadLine = number;
        }
        return true;
      });
      break;
    case CollectionForm::SingleGrid: {
      const GridRead grid = readGrid(splitLines(head));
      if (grid.cells.empty()) {
        scan.badLines = 1;
        scan.firstBadLine = grid.badLine;
      } else {
        scan.puzzles = 1;
      }
      break;
    }
  }
  return scan;
}

std::string collectionProblemText(const CollectionScan& scan, const std::string& path) {
  switch (scan.problem) {
    case CollectionScan::Problem::TooLarge:
      return path + " is too large to read as a puzzle collection (more than " +
             std::to_string(kMaxCollectionBytes / (1024 * 1024)) + " MB)";
    case CollectionScan::Problem::Binary: return path + " is not a text file of puzzles";
    case CollectionScan::Problem::Unreadable:
    case CollectionScan::Problem::None: break;
  }
  if (scan.badLines == 0) return {};
  if (scan.form == CollectionForm::SingleGrid)
    return "Line " + std::to_string(scan.firstBadLine) + " of " + path +
           " does not fit a grid of nine lines of nine cells; the file was not read";
  return std::to_string(scan.badLines) + (scan.badLines == 1 ? " line" : " lines") + " of " + path +
         (scan.badLines == 1 ? " is not a puzzle and was" : " are not puzzles and were") +
         " skipped, the first is line " + std::to_string(scan.firstBadLine);
}

int countPuzzles(const std::string& path) {
  const CollectionScan scan = scanCollection(path);
  return scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
}

namespace {
PuzzleRowsRead readNumberedRows(const std::string& path, int n) {
  PuzzleRowsRead result;
  auto content = readWholeFile(path);
  if (!content) return result;
  std::vector<std::string> lines = splitLines(*content);
  int headers = 0;
  std::size_t i = 0;
  for (; i < lines.size(); ++i) {
    if (!lines[i].empty() && lines[i][0] == '#') ++headers;
    if (headers == n) break;
  }
  if (headers != n || i >= lines.size()) {
    result.status = PuzzleRowsRead::Status::NotFound;
    return result;
  }
  if (lines.size() - i - 1 < 9) {
    result.status = PuzzleRowsRead::Status::Incomplete;
    return result;
  }
  for (std::size_t k = 1; k <= 9; ++k) {
    std::string row = lines[i + k];
    std::replace(row.begin(), row.end(), '.', '0');
    std::replace(row.begin(), row.end(), ' ', '0');
    result.rows.push_back(std::move(row));
  }
  result.status = PuzzleRowsRead::Status::Found;
  return result;
}
}  // namespace

PuzzleRowsRead readPuzzleRows(const std::string& path, int n) {
  const CollectionScan scan = scanCollection(path);
  PuzzleRowsRead result;
  if (scan.problem != CollectionScan::Problem::None) return result;
  std::optional<std::string> cells;
  switch (scan.form) {
    case CollectionForm::Numbered: return readNumberedRows(path, n);
    case CollectionForm::OnePerLine: cells = n >= 1 ? nthPuzzleLine(path, n) : std::nullopt; break;
    case CollectionForm::SingleGrid:
      if (n == 1 && scan.puzzles == 1) {
        auto content = readWholeFile(path);
        if (content) {
          GridRead grid = readGrid(splitLines(*content));
          if (!grid.cells.empty()) cells = std::move(grid.cells);
        }
      }
      break;
  }
  if (!cells) {
    result.status = PuzzleRowsRead::Status::NotFound;
    return result;
  }
  result.rows = rowsOf(*cells);
  result.status = PuzzleRowsRead::Status::Found;
  return result;
}

namespace {
// The line end the file already uses: that of its first line, else LF.
std::string_view lineEndOf(std::string_view content) {
  const auto at = content.find_first_of("\r\n");
  if (at == std::string_view::npos || content[at] == '\n') return "\n";
  return at + 1 < content.size() && content[at + 1] == '\n' ? "\r\n" : "\r";
}

// A one-per-line file takes the puzzle as one more line of 81 cells, so it
// keeps its form and the new puzzle is its last.
std::optional<int> appendPuzzleLine(const std::string& path, const CollectionScan& scan, const std::string& text) {
  auto content = readWholeFile(path);
  if (!content) return std::nullopt;
  const std::string_view lineEnd = lineEndOf(*content);
  if (!content->empty() && content->back() != '\n' && content->back() != '\r') *content += lineEnd;
  *content += text.substr(0, std::size_t(kCells));
  *content += lineEnd;
  if (!writeFileAtomically(path, *content)) return std::nullopt;
  return scan.puzzles + 1;
}
}  // namespace

namespace {
/// The numbered form's record of a puzzle: its "#" line and nine rows.
std::string numberedRecord(int number, const std::string& text) {
  std::string out = "#" + std::to_string(number) + "\r\n";
  for (int r = 0; r < 9; ++r) {
    out += text.substr(std::size_t(r) * 9, 9);
    out += "\r\n";
  }
  return out;
}
}  // namespace

std::optional<int> appendPuzzle(const std::string& path, const std::string& text) {
  int count = 0;
  std::string out;
  if (fileLength(path) > 0) {
    const CollectionScan scan = scanCollection(path);
    if (scan.problem == CollectionScan::Problem::None && scan.form == CollectionForm::OnePerLine)
      return appendPuzzleLine(path, scan, text);
    if (scan.problem == CollectionScan::Problem::None && scan.form == CollectionForm::SingleGrid &&
        scan.puzzles == 1) {
      // A second puzzle turns the grid into a numbered collection of two; a
      // "#" record after the bare grid would hide the grid from every read.
      const PuzzleRowsRead grid = readPuzzleRows(path, 1);
      if (grid.status != PuzzleRowsRead::Status::Found) return std::nullopt;
      std::string rows;
      for (const std::string& row : grid.rows) rows += row;
      std::replace(rows.begin(), rows.end(), '0', '.');
      if (!writeFileAtomically(path, numberedRecord(1, rows) + "\r\n" + numberedRecord(2, text))) return std::nullopt;
      return 2;
    }
    count = countPuzzles(path);
    out += "\r\n";
  }
  ++count;
  out += numberedRecord(count, text);
  if (!appendFileAtomically(path, out)) return std::nullopt;
  return count;
}

std::string givensText(const Session& session) {
  std::string text;
  for (int r = 1; r <= 9; ++r)
    for (int c = 1; c <= 9; ++c) {
      const Cell& cell = session.grid[CellNumber[r][c]];
      text.push_back(cell.given && cell.value ? char('0' + cell.value) : '.');
    }
  return text;
}

bool saveGridToFile(Session& session, const std::string& path) {
  std::string text = givensText(session);
  int blanks = int(std::count(text.begin(), text.end(), '.'));
  auto count = appendPuzzle(path, text);
  if (!count) return false;
  session.collection.TotalPuzzles = *count;
  session.collection.CurrentPuzzleNumber = *count;
  session.collection.boardFromFile = true;
  // The file keeps the givens only: reading the puzzle back gives those.
  std::string asRead(kCells, '0');
  for (int c = 1; c <= kCells; ++c)
    if (session.grid[c].given && session.grid[c].value) asRead[std::size_t(c - 1)] = char('0' + session.grid[c].value);
  session.collection.boardAsRead = asRead;
  session.collection.setOrigin(BoardOrigin::read(*count, *count, blanks));
  return true;
}

std::string gridCode(const Session& session) {
  return padded(session.collection.CurrentPuzzleNumber, 2) + "=" + session.grid.valueCode();
}

int navigationTarget(NavButton button, bool rightButton, int n, int total, double uniform) {
  if (total <= 0) return 0;
  switch (button) {
    case NavButton::Previous:
      if (rightButton) return 1;
      return n - 1 <= 0 ? total : n - 1;
    case NavButton::Next:
      if (rightButton) return total;
      return n + 1 > total ? 1 : n + 1;
    case NavButton::Random: {
      // Kept as the program has always drawn: puzzle 1 is never chosen when there
      // are two or more, and the last one comes up twice as often.
      int k = int(uniform * total + 1) + 1;
      return k > total ? total : k;
    }
  }
  return 0;
}

std::optional<int> typedPuzzleNumber(const std::string& text, int total) {
  long long n = numericValue(text);
  if (n >= 1 && n <= total) return int(n);
  return std::nullopt;
}

}  // namespace tessaly
