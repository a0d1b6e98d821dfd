#include "cli/Batch.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <thread>
#include <vector>

#include "cli/CliSupport.h"
#include "cli/Commands.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "model/LineReader.h"
#include "solver/SolutionCounter.h"
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

// Splits the source into puzzles: one-per-line puzzles and grids of nine row
// lines (a collection's "#" headers and blank lines pass by, and so do the
// "PUZZLE" line of the program's TXT export and its "SOLUTION" grid).
class PuzzleReader {
 public:
  explicit PuzzleReader(std::istream& in) : m_lines(in, kLongestLine) {}
  const LineReader& lines() const { return m_lines; }

  // The next puzzle or bad line; false at the end of the input.
  bool next(Item& item) {
    while (m_lines.next()) {
      const int number = m_lines.number();
      const std::string_view line = m_lines.line();
      const std::string_view t = trimmedView(line);
      if (m_skipRows > 0) {
        if (parseGridRow(t)) {
          --m_skipRows;
          continue;
        }
        m_skipRows = 0;
      }
      if (t.empty() || t.front() == '#' || (m_rows.empty() && t == "PUZZLE")) {
        if (!m_rows.empty()) return incompleteGrid(item);
        continue;
      }
      if (t == "SOLUTION" && m_rows.empty()) {
        m_skipRows = 9;
        continue;
      }
      if (auto puzzle = parsePuzzleLine(t)) {
        if (!m_rows.empty()) {
          m_pending = Item{std::move(*puzzle), {}, number, {}};
          return incompleteGrid(item);
        }
        item = Item{std::move(*puzzle), {}, number, {}};
        return true;
      }
      if (auto row = parseGridRow(t)) {
        if (m_rows.empty()) m_gridLine = number;
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
      // A line cut at kLongestLine is told by its whole length.
      const std::size_t leading = line.find_first_not_of(" \t\r\f");
      const std::uint64_t whole = m_lines.length() > line.size() ? m_lines.length() - leading : t.size();
      item = Item{{}, inGrid ? "a grid row has nine cells" : puzzleLineProblem(t, whole), number, {}};
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

  LineReader m_lines;
  std::string m_rows;
  int m_gridLine = 0;
  int m_skipRows = 0;
  Item m_pending;
};

void work(std::vector<Item>& items, int jobs, TechniqueSet techniques, BatchOutput output) {
  std::atomic<std::size_t> nextItem{0};
  auto worker = [&] {
    for (std::size_t i = nextItem++; i < items.size(); i = nextItem++) {
      Item& item = items[i];
      if (item.puzzle.empty()) continue;
      if (!bitgrid::givens(item.puzzle)) {
        item.problem = "a given repeats in a row, column or box";
        continue;
      }
      if (output == BatchOutput::Grades) {
        item.output = batchLine(item.puzzle, techniques);
      } else {
        item.output.reserve(item.puzzle.size() + 3);
        item.output = item.puzzle;
        item.output += '\t';
        item.output += char('0' + countSolutions(item.puzzle, 2));
        item.output += '\n';
      }
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

int runBatch(const std::string& source, int jobs, TechniqueSet techniques, BatchOutput output) {
  const bool fromStdin = source == "-";
  const std::string name = fromStdin ? std::string("standard input") : source;
  std::ifstream file;
  if (!fromStdin) {
    if (std::string problem = readProblem(source); !problem.empty()) {
      std::cerr << "tessaly-cli: " << couldNotReadText(source, problem) << '\n';
      return kExitUsage;
    }
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
    if (reader.lines().encoding() == LineReader::Encoding::Utf16) {
      std::cerr << "tessaly-cli: " << name << " is UTF-16 text; puzzle files are read as ASCII or UTF-8\n";
      return kExitUsage;
    }
    if (reader.lines().encoding() == LineReader::Encoding::Binary) {
      std::cerr << "tessaly-cli: " << name << " is not a text file of puzzles\n";
      return kExitUsage;
    }
    work(items, jobs, techniques, output);
    std::string out;
    for (const Item& done : items) {
      if (!done.problem.empty()) {
        if (!writeOut(out)) return kExitFailure;
        out.clear();
        std::cerr << "tessaly-cli: " << name << ':' << done.line << ": " << done.problem << "; skipped\n";
        bad = true;
        continue;
      }
      out += done.output;
      ++puzzles;
    }
    if (!writeOut(out)) return kExitFailure;
  }
  if (puzzles == 0 && !bad) {
    std::cerr << "tessaly-cli: " << name << " holds no puzzles\n";
    return kExitUsage;
  }
  return bad ? kExitUsage : kExitOk;
}

}  // namespace tessaly::cli
