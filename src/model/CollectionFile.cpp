#include "model/CollectionFile.h"

#include <algorithm>

#include "model/FileUtil.h"
#include "model/Session.h"
#include "model/Text.h"

namespace tessaly {

int countPuzzles(const std::string& path) {
  auto content = readWholeFile(path);
  if (!content) return 0;
  int count = 0;
  for (const std::string& line : splitLines(*content))
    if (!line.empty() && line[0] == '#') ++count;
  return count;
}

PuzzleRowsRead readPuzzleRows(const std::string& path, int n) {
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

std::optional<int> appendPuzzle(const std::string& path, const std::string& text) {
  int count = 0;
  std::string out;
  if (fileLength(path) > 0) {
    count = countPuzzles(path);
    out += "\r\n";
  }
  ++count;
  out += '#';
  out += std::to_string(count);
  out += "\r\n";
  for (int r = 0; r < 9; ++r) {
    out += text.substr(std::size_t(r) * 9, 9);
    out += "\r\n";
  }
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
  session.PuzNumNow = std::to_string(*count);
  session.setPuzzleTitle(*count, *count, blanks);
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
