// The collection reader: counting, reading puzzle N, navigation and
// appending. Input: byte 0 chooses the puzzle number, byte 1 the navigation
// button and draw, the rest is the file.
//
// Invariants, for every file: a file refused as a whole (binary, too large)
// counts no puzzle; a read either loads a puzzle or tells the user and leaves
// the puzzle before it in place; navigation stays within 1..count. For the
// numbered form (.sud) besides: the count is the number of lines beginning
// with "#"; a read
// either loads a puzzle whose givens are the file's digits or tells the user
// and leaves the puzzle before it in place; navigation stays within 1..count;
// an appended puzzle keeps the file's bytes before it and reads back as written.

#include <string>
#include <string_view>

#include "FuzzSupport.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "model/Services.h"
#include "solver/ReadPuzzle.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

struct Reference {
  std::vector<std::string> lines;
  int count = 0;
  explicit Reference(const std::string& text) : lines(referenceLines(text)) {
    for (const std::string& line : lines)
      if (!line.empty() && line[0] == '#') ++count;
  }
  /// The index of the line heading puzzle n, or -1.
  long header(int n) const {
    int seen = 0;
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (!lines[i].empty() && lines[i][0] == '#' && ++seen == n) return long(i);
    return -1;
  }
};

/// A session showing puzzle 3 of some collection, before a read.
struct Reader {
  ScriptedUserInterface ui;
  FixedClock clock;
  SeededRandom random{1};
  Session s{Services{&ui, nullptr, nullptr, &clock, &random}};
  Reader() {
    putGivens(s, kEasyPuzzle);
    s.collection.CurrentPuzzleNumber = 3;
    s.collection.setOrigin(BoardOrigin::read(3, 3, 0));
  }
};

void checkRead(const std::string& path, const Reference& ref, int n) {
  Reader reader;
  Session& s = reader.s;
  const ScriptedUserInterface& ui = reader.ui;
  const GridSnapshot before(s);

  const bool ready = readPuzzle(s, path, n).ready;
  FUZZ_CHECK(s.collection.TotalPuzzles == ref.count);
  const int target = n == -1 ? ref.count : n;
  const long at = ref.header(target);
  if (ref.count == 0 || at < 0 || ref.lines.size() - std::size_t(at) - 1 < 9) {
    // Not read: told once, and the puzzle before it is still there.
    FUZZ_CHECK(!ready);
    FUZZ_CHECK(ui.messages.size() == 1);
    FUZZ_CHECK(GridSnapshot(s) == before);
    FUZZ_CHECK(s.collection.CurrentPuzzleNumber == 3 && puzzleNumberText(s.collection.origin()) == "3");
    return;
  }
  // Read: the givens are the file's digits, row by row.
  FUZZ_CHECK(s.collection.CurrentPuzzleNumber == target);
  for (int r = 1; r <= 9; ++r) {
    const std::string& row = ref.lines[std::size_t(at) + std::size_t(r)];
    for (int c = 1; c <= 9; ++c) {
      const char ch = std::size_t(c - 1) < row.size() ? row[std::size_t(c - 1)] : '0';
      const int digit = ch >= '1' && ch <= '9' ? ch - '0' : 0;
      const Cell& cell = s.grid[CellNumber[r][c]];
      FUZZ_CHECK(cell.given == (digit != 0));
      if (digit) FUZZ_CHECK(cell.value == digit);
    }
  }
  // A puzzle that is not ready to solve is always explained.
  if (!ready) FUZZ_CHECK(!ui.messages.empty());
}

/// Any form: a read loads a puzzle, or tells why and keeps the one before.
void checkReadAnyForm(const std::string& path, int n) {
  Reader reader;
  Session& s = reader.s;
  const ScriptedUserInterface& ui = reader.ui;
  const GridSnapshot before(s);
  const bool ready = readPuzzle(s, path, n).ready;
  if (s.collection.CurrentPuzzleNumber == 3 && GridSnapshot(s) == before) {
    FUZZ_CHECK(!ready || n == 3);
    if (!ready) FUZZ_CHECK(!ui.messages.empty());
  }
  FUZZ_CHECK(s.collection.TotalPuzzles == countPuzzles(path));
}

void checkAppend(const std::string& path, const std::string& original, const Reference& ref) {
  const std::string puzzle(kEasyPuzzle);
  // A file of other text (no puzzle, not only white space) takes no puzzle
  // and stays as it was.
  std::string_view text = original;
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  if (ref.count == 0 && text.find_first_not_of(" \t\r\f\n") != std::string_view::npos) {
    FUZZ_CHECK(!appendPuzzle(path, puzzle).has_value());
    FUZZ_CHECK(readWholeFile(path).value_or("") == original);
    return;
  }
  const auto number = appendPuzzle(path, puzzle);
  FUZZ_CHECK(number && *number == ref.count + 1);
  const std::string after = readWholeFile(path).value_or("");
  FUZZ_CHECK(after.compare(0, original.size(), original) == 0);
  FUZZ_CHECK(countPuzzles(path) == ref.count + 1);
  const PuzzleRowsRead read = readPuzzleRows(path, *number);
  FUZZ_CHECK(read.status == PuzzleRowsRead::Status::Found);
  std::string rows;
  for (const std::string& row : read.rows) rows += row;
  std::string expected = puzzle;
  for (char& ch : expected)
    if (ch == '.') ch = '0';
  FUZZ_CHECK(rows == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string content = bytesOf(data + 2, size - 2);
  const std::string path = scratchFolder() + "collection.sud";
  writeBytes(path, content);
  const CollectionScan scan = scanCollection(path);
  if (scan.problem != CollectionScan::Problem::None || scan.form != CollectionForm::Numbered) {
    const int count = countPuzzles(path);
    if (scan.problem != CollectionScan::Problem::None) FUZZ_CHECK(count == 0);
    checkReadAnyForm(path, data[0] == 255 ? -1 : 1 + data[0] % (count + 1));
    const int target = navigationTarget(NavButton(data[1] % 3), (data[1] & 4) != 0, 1, count, 0.5);
    FUZZ_CHECK(count == 0 ? target == 0 : target >= 1 && target <= count);
    return 0;
  }
  // A UTF-8 byte-order mark before the first line is not part of it.
  const std::string_view bom = "\xEF\xBB\xBF";
  const Reference ref(content.rfind(bom, 0) == 0 ? content.substr(bom.size()) : content);

  FUZZ_CHECK(countPuzzles(path) == ref.count);

  // Puzzle numbers a user can reach: 1..count+1 (one past the end) and -1 (the last).
  const int n = data[0] == 255 ? -1 : 1 + data[0] % (ref.count + 1);
  checkRead(path, ref, n);

  const auto button = NavButton(data[1] % 3);
  const bool right = (data[1] & 4) != 0;
  const double uniform = double(data[1] >> 3) / 32.0;
  const int target = navigationTarget(button, right, n == -1 ? ref.count : n, ref.count, uniform);
  if (ref.count == 0)
    FUZZ_CHECK(target == 0);
  else
    FUZZ_CHECK(target >= 1 && target <= ref.count);
  if (const auto typed = typedPuzzleNumber(content.substr(0, 12), ref.count))
    FUZZ_CHECK(*typed >= 1 && *typed <= ref.count);

  checkAppend(path, content, ref);
  return 0;
}
