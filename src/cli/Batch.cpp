#include "cli/Batch.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>
#include <vector>

#include "cli/Commands.h"
#include "model/CollectionFile.h"
#include "solver/BitGrid.h"
#include "solver/Grader.h"
#include "solver/Techniques.h"

namespace tessaly::cli {

namespace {

constexpr std::size_t kChunk = 4096;          ///< puzzles worked on together
constexpr std::size_t kLongestLine = 4096;    ///< longer lines are cut (and are bad anyway)

struct Item {
  std::string puzzle;   // 81 cells, "." for blanks; empty for a bad line
  std::string problem;  // what is wrong with a bad line
  int line = 0;
  std::string output;
};

std::string_view trimmedView(std::string_view line) {
  const auto first = line.find_first_not_of(" \t\r\f");
  if (first == std::string_view::npos) return {};
  const auto last = line.find_last_not_of(" \t\r\f");
  return line.substr(first, last - first + 1);
}

// Why a line is not a puzzle line.
std::string lineProblem(std::string_view line) {
  const std::string_view cells = line.substr(0, line.find_first_of(" \t,;#"));
  if (cells.size() != 81)
    return "a puzzle line has 81 cells, this one has " + std::to_string(cells.size());
  for (char ch : cells)
    if (!((ch >= '0' && ch <= '9') || ch == '.' || ch == '-'))
      return std::string("'") + ch + "' is not a cell (1 to 9 for a given; '.', '0' or '-' for a blank)";
  return "not a puzzle line";
}

// Splits the source into puzzles: one-per-line puzzles and grids of nine row
// lines (a collection's "#" headers and blank lines pass by).
class PuzzleReader {
 public:
  explicit PuzzleReader(std::istream& in) : m_in(in) {}
  bool binary() const { return m_binary; }

  // The next puzzle or bad line; false at the end of the input.
  bool next(Item& item) {
    std::string line;
    while (readLine(line)) {
      ++m_number;
      if (m_binary) return false;
      const std::string_view t = trimmedView(line);
      if (t.empty() || t.front() == '#') {
        if (!m_rows.empty()) return incompleteGrid(item);
        continue;
      }
      if (auto puzzle = parsePuzzleLine(t)) {
        if (!m_rows.empty()) {
          m_pending = Item{*puzzle, {}, m_number, {}};
          return incompleteGrid(item);
        }
        item = Item{*puzzle, {}, m_number, {}};
        return true;
      }
      if (auto row = parseGridRow(t)) {
        if (m_rows.empty()) m_gridLine = m_number;
        m_rows += *row;
        if (m_rows.size() == 81) {
          item = Item{m_rows, {}, m_gridLine, {}};
          m_rows.clear();
          return true;
        }
        continue;
      }
      const bool inGrid = !m_rows.empty();
      m_rows.clear();
      item = Item{{}, inGrid ? "a grid row has nine cells" : lineProblem(t), m_number, {}};
      return true;
    }
    if (!m_rows.empty()) return incompleteGrid(item);
    return false;
  }

  bool takePending(Item& item) {
    if (m_pending.line == 0) return false;
    item = std::move(m_pending);
    m_pending = Item{};
    return true;
  }

 private:
  bool incompleteGrid(Item& item) {
    item = Item{{}, "a grid of " + std::to_string(m_rows.size() / 9) + " rows; a puzzle grid has nine", m_gridLine, {}};
    m_rows.clear();
    return true;
  }

  // One line of at most kLongestLine characters (the rest is dropped); CR LF,
  // LF and CR end a line. A NUL byte marks the input as binary.
  bool readLine(std::string& line) {
    line.clear();
    int ch = m_in.get();
    if (ch == EOF) return false;
    for (; ch != EOF; ch = m_in.get()) {
      if (ch == '\n') break;
      if (ch == '\r') {
        if (m_in.peek() == '\n') m_in.get();
        break;
      }
      if (ch == 0) m_binary = true;
      if (line.size() < kLongestLine) line.push_back(char(ch));
    }
    return true;
  }

  std::istream& m_in;
  std::string m_rows;
  int m_gridLine = 0;
  int m_number = 0;
  bool m_binary = false;
  Item m_pending;
};

void work(std::vector<Item>& items, int jobs, TechniqueSet techniques) {
  std::atomic<std::size_t> nextItem{0};
  auto worker = [&] {
    for (std::size_t i = nextItem++; i < items.size(); i = nextItem++) {
      Item& item = items[i];
      if (item.puzzle.empty()) continue;
      if (!bitgrid::givens(item.puzzle)) {
        item.problem = "a given repeats in a row, column or box";
        continue;
      }
      item.output = batchLine(item.puzzle, techniques);
    }
  };
  const std::size_t threads = std::min<std::size_t>(std::size_t(jobs), (items.size() + 63) / 64);
  std::vector<std::thread> pool;
  for (std::size_t t = 1; t < threads; ++t) pool.emplace_back(worker);
  worker();
  for (std::thread& thread : pool) thread.join();
}

}  // namespace

std::string batchLine(const std::string& puzzle81, TechniqueSet techniques) {
  // The grading search runs to its end or to a second solution, so it counts
  // the solutions as it goes.
  const PuzzleGrade grade = gradePuzzle(puzzle81, techniques);
  std::string out = puzzle81;
  out += '\t';
  out += char('0' + grade.solutions);
  out += '\t';
  out += grade.graded() ? char('0' + grade.grade) : '-';
  out += '\t';
  out += gradeName(grade.grade);
  if (techniques.any()) {
    out += '\t';
    out += grade.graded() ? techniqueInfo(grade.hardestTechnique).name : "-";
    out += '\t';
    out += grade.graded() ? std::to_string(grade.guesses) : "-";
  }
  out += '\n';
  return out;
}

int runBatch(const std::string& source, int jobs, TechniqueSet techniques) {
  const bool fromStdin = source == "-";
  const std::string name = fromStdin ? std::string("standard input") : source;
  std::ifstream file;
  if (!fromStdin) {
    file.open(source, std::ios::binary);
    if (!file) {
      std::cerr << "tessaly-cli: cannot read " << source << '\n';
      return kExitUsage;
    }
  }
  std::istream& in = fromStdin ? std::cin : file;
  if (jobs <= 0) jobs = int(std::max(1u, std::thread::hardware_concurrency()));

  PuzzleReader reader(in);
  bool bad = false;
  long long puzzles = 0;
  std::vector<Item> items;
  for (bool more = true; more;) {
    items.clear();
    Item item;
    while (items.size() < kChunk) {
      if (!reader.takePending(item) && !reader.next(item)) {
        more = false;
        break;
      }
      items.push_back(std::move(item));
    }
    if (reader.binary()) {
      std::cerr << "tessaly-cli: " << name << " is not a text file of puzzles\n";
      return kExitUsage;
    }
    work(items, jobs, techniques);
    std::string out;
    for (const Item& done : items) {
      if (!done.problem.empty()) {
        std::cout << out << std::flush;
        out.clear();
        std::cerr << "tessaly-cli: " << name << ':' << done.line << ": " << done.problem << "; skipped\n";
        bad = true;
        continue;
      }
      out += done.output;
      ++puzzles;
    }
    std::cout << out << std::flush;
  }
  if (puzzles == 0 && !bad) {
    std::cerr << "tessaly-cli: " << name << " holds no puzzles\n";
    return kExitUsage;
  }
  return bad ? kExitUsage : kExitOk;
}

}  // namespace tessaly::cli
