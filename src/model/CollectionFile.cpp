#include "model/CollectionFile.h"

#include <algorithm>
#include <fstream>
#include <array>

#include <sys/stat.h>

#include "model/FileUtil.h"
#include "model/LineReader.h"
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

// The grid form: nine good rows among the lines, nothing else but blank lines.
// The program's own TXT export reads as one: its "PUZZLE" line comes first and
// its "SOLUTION" line and solution rows after the nine rows are passed over.
struct GridRead {
  std::string cells;  // 81 cells when good
  int badLine = 0;
};
GridRead readGrid(const std::vector<std::string>& lines) {
  GridRead read;
  int rows = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view t = trimmedView(lines[i]);
    if (t.empty()) continue;
    if (rows == 0 && t == "PUZZLE") continue;
    if (rows == 9 && t == "SOLUTION") break;
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
// has nine cells); a file without "#" lines is one-per-line when a puzzle line
// follows a title, and a single grid (or TXT export) when its first line is a
// grid row or "PUZZLE".
CollectionForm formOf(std::string_view head, bool wholeFile) {
  bool headers = false;
  bool puzzleLine = false;
  std::optional<std::string_view> first;
  std::size_t start = 0;
  while (start < head.size()) {
    std::size_t end = head.find_first_of("\r\n", start);
    if (end == std::string_view::npos) end = head.size();
    const std::string_view line = head.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.front() == '#') headers = true;
    if (isSkippedLine(line)) continue;
    if (!first) {
      if (trimmedView(line).size() >= 40) return CollectionForm::OnePerLine;
      first = line;
    }
    if (!puzzleLine && parsePuzzleLine(trimmedView(line))) puzzleLine = true;
  }
  if (!headers && puzzleLine) return CollectionForm::OnePerLine;
  if (!headers && wholeFile && first && (parseGridRow(*first) || trimmedView(*first) == "PUZZLE"))
    return CollectionForm::SingleGrid;
  return CollectionForm::Numbered;
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

namespace {
// The identity of a file's content as far as the system tells it: its size,
// its last change and its inode. An index taken with the same identity is
// still good.
std::array<long long, 3> identityOf(const std::string& path) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) return {-1, 0, 0};
  return {static_cast<long long>(st.st_size),
          static_cast<long long>(st.st_mtim.tv_sec) * 1000000000LL + st.st_mtim.tv_nsec,
          static_cast<long long>(st.st_ino)};
}
}  // namespace

bool CollectionIndex::current() const {
  const auto now = identityOf(m_path);
  return !m_path.empty() && now[0] == m_identity[0] && now[1] == m_identity[1] && now[2] == m_identity[2];
}

CollectionIndex indexCollection(const std::string& path) {
  CollectionIndex index;
  index.m_path = path;
  CollectionScan& scan = index.scan;
  const auto identity = identityOf(path);
  std::copy(identity.begin(), identity.end(), index.m_identity);
  if (std::string problem = readProblem(path); !problem.empty()) {
    // A missing file is "no collection"; anything else is told with its reason.
    if (problem != "no such file") {
      scan.problem = CollectionScan::Problem::NotAFile;
      scan.reason = problem;
    }
    return index;
  }
  const long long length = fileLength(path);
  if (length < 0) return index;
  if (length > kMaxCollectionBytes) {
    scan.problem = CollectionScan::Problem::TooLarge;
    return index;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return index;
  std::string head(kHeadBytes, '\0');
  in.read(head.data(), std::streamsize(head.size()));
  head.resize(std::size_t(in.gcount()));
  const bool wholeFile = std::size_t(length) == head.size();
  if (head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF")) {
    scan.problem = CollectionScan::Problem::Utf16;
    return index;
  }
  if (head.starts_with("\xEF\xBB\xBF")) head.erase(0, 3);
  if (looksBinary(head)) {
    scan.problem = CollectionScan::Problem::Binary;
    return index;
  }
  scan.problem = CollectionScan::Problem::None;
  scan.form = formOf(head, wholeFile);
  if (scan.form == CollectionForm::SingleGrid) {
    const GridRead grid = readGrid(splitLines(head));
    if (grid.cells.empty()) {
      scan.badLines = 1;
      scan.firstBadLine = grid.badLine;
    } else {
      scan.puzzles = 1;
      index.starts.push_back(0);
    }
    return index;
  }
  in.clear();
  in.seekg(0);
  LineReader lines(in, 128);
  while (lines.next()) {
    const std::string_view line = lines.line();
    if (scan.form == CollectionForm::Numbered) {
      if (!line.empty() && line.front() == '#') index.starts.push_back(lines.offset());
      continue;
    }
    if (isSkippedLine(line)) continue;
    if (parsePuzzleLine(line)) {
      index.starts.push_back(lines.offset());
    } else if (scan.badLines++ == 0) {
      scan.firstBadLine = lines.number();
    }
  }
  if (!lines.isText()) {
    // A NUL byte past the head.
    scan = CollectionScan{};
    scan.problem = CollectionScan::Problem::Binary;
    index.starts.clear();
    return index;
  }
  scan.puzzles = int(index.starts.size());
  return index;
}

CollectionScan scanCollection(const std::string& path) { return indexCollection(path).scan; }

std::string collectionProblemText(const CollectionScan& scan, const std::string& path) {
  switch (scan.problem) {
    case CollectionScan::Problem::TooLarge:
      return path + " is too large to read as a puzzle collection (more than " +
             std::to_string(kMaxCollectionBytes / (1024 * 1024)) + " MB)";
    case CollectionScan::Problem::Binary: return path + " is not a text file of puzzles";
    case CollectionScan::Problem::Utf16:
      return path + " is UTF-16 text; puzzle files are read as ASCII or UTF-8";
    case CollectionScan::Problem::NotAFile: return couldNotReadText(path, scan.reason);
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

PuzzleRowsRead readPuzzleRows(const CollectionIndex& index, int n) {
  PuzzleRowsRead result;
  if (index.scan.problem != CollectionScan::Problem::None) return result;
  if (n < 1 || std::size_t(n) > index.starts.size()) {
    result.status = PuzzleRowsRead::Status::NotFound;
    return result;
  }
  std::ifstream in(index.path(), std::ios::binary);
  if (!in) return result;
  if (index.scan.form == CollectionForm::SingleGrid) {
    std::string content(std::size_t(kHeadBytes), '\0');
    in.read(content.data(), std::streamsize(content.size()));
    content.resize(std::size_t(in.gcount()));
    if (content.starts_with("\xEF\xBB\xBF")) content.erase(0, 3);
    GridRead grid = readGrid(splitLines(content));
    if (grid.cells.empty()) {
      result.status = PuzzleRowsRead::Status::NotFound;
      return result;
    }
    result.rows = rowsOf(grid.cells);
    result.status = PuzzleRowsRead::Status::Found;
    return result;
  }
  in.seekg(std::streamoff(index.starts[std::size_t(n - 1)]));
  LineReader lines(in, 128);
  if (!lines.next()) {
    // The file was cut after it was indexed.
    result.status = PuzzleRowsRead::Status::NotFound;
    return result;
  }
  if (index.scan.form == CollectionForm::OnePerLine) {
    const auto cells = parsePuzzleLine(lines.line());
    if (!cells) {
      result.status = PuzzleRowsRead::Status::NotFound;
      return result;
    }
    result.rows = rowsOf(*cells);
    result.status = PuzzleRowsRead::Status::Found;
    return result;
  }
  if (lines.line().empty() || lines.line().front() != '#') {
    result.status = PuzzleRowsRead::Status::NotFound;
    return result;
  }
  for (int k = 1; k <= 9; ++k) {
    if (!lines.next()) {
      result.rows.clear();
      result.status = PuzzleRowsRead::Status::Incomplete;
      return result;
    }
    std::string row(lines.line());
    std::replace(row.begin(), row.end(), '.', '0');
    std::replace(row.begin(), row.end(), ' ', '0');
    result.rows.push_back(std::move(row));
  }
  result.status = PuzzleRowsRead::Status::Found;
  return result;
}

std::string PuzzleRowsRead::cells() const {
  std::string text;
  for (const std::string& row : rows) {
    std::string part = row.substr(0, 9);
    part.resize(9, '0');
    text += part;
  }
  return text;
}

PuzzleRowsRead readPuzzleRows(const std::string& path, int n) { return readPuzzleRows(indexCollection(path), n); }

namespace {

// The problems of one puzzle's 81 cells: a given repeated in a row, column or box.
bool givensRepeat(const std::string& cells) {
  for (int i = 0; i < 81; ++i) {
    if (cells[std::size_t(i)] < '1' || cells[std::size_t(i)] > '9') continue;
    for (int j = i + 1; j < 81; ++j) {
      if (cells[std::size_t(j)] != cells[std::size_t(i)]) continue;
      const bool row = i / 9 == j / 9, column = i % 9 == j % 9;
      const bool box = (i / 27 == j / 27) && ((i % 9) / 3 == (j % 9) / 3);
      if (row || column || box) return true;
    }
  }
  return false;
}

constexpr const char* kRepeatText = "a given repeats in a row, column or box";

// What is wrong with one row line of the numbered form, as the read takes it
// (the first nine characters; digits are givens, anything else a blank).
std::string rowProblem(std::string_view row, std::uint64_t length) {
  if (length < 9) return "has " + std::to_string(length) + " characters, a row has nine (padded with blanks)";
  if (length > 9) return "has " + std::to_string(length) + " characters, a row has nine (the rest is not read)";
  for (char ch : row)
    if (!((ch >= '0' && ch <= '9') || ch == '.' || ch == ' '))
      return std::string("holds '") + ch + "', read as a blank";
  return {};
}

}  // namespace

std::string puzzleLineProblem(std::string_view line, std::uint64_t length) {
  const auto cut = line.find_first_of(" \t,;#");
  const std::uint64_t cells = cut == std::string_view::npos ? length : cut;
  if (cells != 81) return "a puzzle line has 81 cells, this one has " + std::to_string(cells);
  for (char ch : line.substr(0, 81))
    if (!isCell(ch)) return std::string("'") + ch + "' is not a cell (1 to 9 for a given; '.', '0' or '-' for a blank)";
  return "not a puzzle line";
}

CollectionCheck checkCollection(const std::string& path) {
  CollectionCheck check;
  check.scan = scanCollection(path);
  if (check.scan.problem != CollectionScan::Problem::None) return check;
  const auto add = [&](int line, int puzzle, std::string text) {
    check.problems.push_back(RecordProblem{line, puzzle, std::move(text)});
  };
  std::ifstream in(path, std::ios::binary);
  LineReader lines(in, 128);
  if (check.scan.form == CollectionForm::SingleGrid) {
    if (check.scan.puzzles == 0) {
      add(check.scan.firstBadLine, 0, "does not fit a grid of nine lines of nine cells");
    } else if (const PuzzleRowsRead read = readPuzzleRows(path, 1); read.status == PuzzleRowsRead::Status::Found) {
      if (givensRepeat(read.cells())) add(1, 1, kRepeatText);
    }
    return check;
  }
  if (check.scan.form == CollectionForm::OnePerLine) {
    int puzzle = 0;
    while (lines.next()) {
      const std::string_view line = lines.line();
      if (isSkippedLine(line)) continue;
      const auto cells = parsePuzzleLine(line);
      if (!cells) {
        add(lines.number(), 0, puzzleLineProblem(trimmedView(line), lines.length()));
        continue;
      }
      ++puzzle;
      if (givensRepeat(*cells)) add(lines.number(), puzzle, kRepeatText);
    }
    return check;
  }
  // Numbered: each "#" line and the nine lines the read takes after it.
  int puzzle = 0;
  bool haveLine = lines.next();
  while (haveLine) {
    if (lines.line().empty() || lines.line().front() != '#') {
      haveLine = lines.next();
      continue;
    }
    ++puzzle;
    const int header = lines.number();
    std::string cells;
    int rows = 0;
    bool nextHeaderRead = false;
    while (rows < 9 && (haveLine = lines.next())) {
      const std::string_view row = lines.line();
      if (!row.empty() && row.front() == '#') {
        // The next puzzle's "#" line is read as a row of this one.
        add(lines.number(), puzzle, "has only " + std::to_string(rows) + " rows before the next \"#\" line");
        nextHeaderRead = true;
        break;
      }
      if (std::string problem = rowProblem(row, lines.length()); !problem.empty())
        add(lines.number(), puzzle, "row " + std::to_string(rows + 1) + " " + problem);
      std::string cellsOfRow(row.substr(0, 9));
      cellsOfRow.resize(9, '0');
      for (char& ch : cellsOfRow)
        if (ch < '1' || ch > '9') ch = '0';
      cells += cellsOfRow;
      ++rows;
    }
    if (nextHeaderRead) continue;
    if (rows < 9) {
      add(header, puzzle, "has only " + std::to_string(rows) + " rows; the file ends");
      break;
    }
    if (givensRepeat(cells)) add(header, puzzle, kRepeatText);
    haveLine = lines.next();
  }
  return check;
}

namespace {
// The numbered form's record of a puzzle: its "#" line and nine rows.
std::string numberedRecord(int number, const std::string& text) {
  std::string out = "#" + std::to_string(number) + "\r\n";
  for (int r = 0; r < 9; ++r) {
    out += text.substr(std::size_t(r) * 9, 9);
    out += "\r\n";
  }
  return out;
}

// The last byte of the file and the line end its first line uses.
struct FileEnd {
  bool empty = true;
  bool endsWithLineEnd = true;
  std::string lineEnd = "\n";
};
// Whether the file holds nothing but white space (after a UTF-8 byte-order mark).
bool onlyBlankLines(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::string chunk(1 << 16, '\0');
  bool first = true;
  while (in) {
    in.read(chunk.data(), std::streamsize(chunk.size()));
    std::string_view read(chunk.data(), std::size_t(in.gcount()));
    if (first && read.substr(0, 3) == "\xEF\xBB\xBF") read.remove_prefix(3);
    first = false;
    if (read.find_first_not_of(" \t\r\f\n") != std::string_view::npos) return false;
  }
  return true;
}

FileEnd fileEndOf(const std::string& path) {
  FileEnd end;
  std::ifstream in(path, std::ios::binary);
  if (!in) return end;
  LineReader lines(in, 0);
  if (lines.next()) {
    end.empty = false;
    end.lineEnd = std::string(lines.firstLineEnd());
  }
  in.clear();
  in.seekg(-1, std::ios::end);
  char last = '\n';
  if (in.get(last)) end.endsWithLineEnd = last == '\n' || last == '\r';
  return end;
}
}  // namespace

std::optional<int> appendPuzzle(const std::string& path, const std::string& text, FileResult* why) {
  return appendPuzzles(path, {text}, why);
}

std::optional<int> appendPuzzles(const std::string& path, const std::vector<std::string>& texts, FileResult* why) {
  FileResult ignored;
  FileResult& result = why ? *why : ignored;
  if (texts.empty()) return std::nullopt;
  // The lock is held from the count to the write, so two programs appending
  // at once number their puzzles one after the other.
  LockedAppendFile file(path);
  if (!file.opened()) {
    result = file.opened();
    return std::nullopt;
  }
  const CollectionScan scan = scanCollection(path);
  // A file no read would take (binary, UTF-16, too large) is not made a
  // collection by a record added to its end: the puzzle could never be read.
  if (scan.refused()) {
    result = FileResult::failure(collectionProblemText(scan, path));
    return std::nullopt;
  }
  const FileEnd end = fileEndOf(path);
  // Nor is a file of something else (an export, a saved log, a letter): a
  // record after its text would mix puzzles into it.
  if (!end.empty && scan.problem == CollectionScan::Problem::None && scan.puzzles == 0 && !onlyBlankLines(path)) {
    result = FileResult::failure("it holds text but no puzzles; puzzles are added only to a collection or a new file");
    return std::nullopt;
  }
  const int added = int(texts.size());
  if (!end.empty && scan.problem == CollectionScan::Problem::None && scan.form == CollectionForm::OnePerLine) {
    // A one-per-line file takes each puzzle as one more line of 81 cells, so
    // it keeps its form and the new puzzles are its last.
    std::string out = end.endsWithLineEnd ? "" : end.lineEnd;
    for (const std::string& text : texts) {
      out += text.substr(0, std::size_t(kCells));
      out += end.lineEnd;
    }
    result = file.append(out);
    if (!result) return std::nullopt;
    return scan.puzzles + added;
  }
  if (!end.empty && scan.problem == CollectionScan::Problem::None && scan.form == CollectionForm::SingleGrid &&
      scan.puzzles == 1) {
    // More puzzles turn the grid into a numbered collection; a "#" record
    // after the bare grid would hide the grid from every read.
    const PuzzleRowsRead grid = readPuzzleRows(path, 1);
    if (grid.status != PuzzleRowsRead::Status::Found) {
      result = FileResult::failure("the grid in the file could not be read again");
      return std::nullopt;
    }
    std::string rows;
    for (const std::string& row : grid.rows) rows += row;
    std::replace(rows.begin(), rows.end(), '0', '.');
    std::string out = numberedRecord(1, rows);
    for (int k = 0; k < added; ++k) out += "\r\n" + numberedRecord(k + 2, texts[std::size_t(k)]);
    result = writeFileAtomically(path, out);
    if (!result) return std::nullopt;
    return 1 + added;
  }
  // A numbered collection (or a file that is empty, missing or damaged: its
  // records are not counted): the next numbers, an empty line before each
  // record unless the file is empty.
  int count = !end.empty && scan.problem == CollectionScan::Problem::None ? scan.puzzles : 0;
  std::string out;
  for (const std::string& text : texts) {
    if (!end.empty || !out.empty()) out += "\r\n";
    out += numberedRecord(++count, text);
  }
  result = file.append(out);
  if (!result) return std::nullopt;
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

FileResult saveGridToFile(Session& session, const std::string& path) {
  std::string text = givensText(session);
  int blanks = int(std::count(text.begin(), text.end(), '.'));
  FileResult written;
  auto count = appendPuzzle(path, text, &written);
  if (!count) return written;
  session.collection.TotalPuzzles = *count;
  session.collection.CurrentPuzzleNumber = *count;
  session.collection.boardFromFile = true;
  // The file keeps the givens only: reading the puzzle back gives those.
  std::string asRead(kCells, '0');
  for (int c = 1; c <= kCells; ++c)
    if (session.grid[c].given && session.grid[c].value) asRead[std::size_t(c - 1)] = char('0' + session.grid[c].value);
  session.collection.boardAsRead = asRead;
  session.collection.setOrigin(BoardOrigin::read(*count, *count, blanks));
  return {};
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
