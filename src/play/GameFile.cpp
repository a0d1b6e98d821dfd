#include "play/GameFile.h"

#include <array>
#include <sstream>
#include <vector>

#include "model/FileUtil.h"
#include "model/GridTables.h"
#include "solver/BitGrid.h"

namespace tessaly {

namespace {

constexpr std::array<std::pair<CommandKind, const char*>, 6> kKindNames{{
    {CommandKind::Place, "place"},
    {CommandKind::Clear, "clear"},
    {CommandKind::Note, "note"},
    {CommandKind::FillNotes, "fill-notes"},
    {CommandKind::Apply, "apply"},
    {CommandKind::UndoButton, "undo-button"},
}};

std::string kindName(CommandKind kind) {
  for (const auto& [k, name] : kKindNames)
    if (k == kind) return name;
  return "place";
}

std::string notesText(std::uint16_t notes) {
  std::string text;
  for (int d = 1; d <= 9; ++d)
    if (notes & (1u << (d - 1))) text.push_back(char('0' + d));
  return text.empty() ? "-" : text;
}

std::string movesText(const std::vector<ManualPlay::Move>& moves) {
  if (moves.empty()) return "-";
  std::string text;
  for (const ManualPlay::Move& m : moves)
    text += (text.empty() ? "" : ",") + std::to_string(m.cell) + "=" + std::to_string(m.after);
  return text;
}

/// A whole number from 0 to `highest`: digits only.
std::optional<long long> number(std::string_view text, long long highest) {
  if (text.empty() || text.size() > 12) return std::nullopt;
  long long n = 0;
  for (char ch : text) {
    if (ch < '0' || ch > '9') return std::nullopt;
    n = n * 10 + (ch - '0');
  }
  if (n > highest) return std::nullopt;
  return n;
}

std::optional<std::uint16_t> notesValue(std::string_view text) {
  if (text == "-") return std::uint16_t(0);
  std::uint16_t notes = 0;
  int last = 0;
  for (char ch : text) {
    if (ch < '1' || ch > '9' || ch - '0' <= last) return std::nullopt;  // digits ascending, each once
    last = ch - '0';
    notes = std::uint16_t(notes | (1u << (last - 1)));
  }
  return text.empty() ? std::nullopt : std::optional<std::uint16_t>(notes);
}

std::optional<std::vector<ManualPlay::Move>> movesValue(std::string_view text) {
  std::vector<ManualPlay::Move> moves;
  if (text == "-") return moves;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::string_view item = text.substr(0, comma);
    const std::size_t eq = item.find('=');
    if (eq == std::string_view::npos) return std::nullopt;
    const auto cell = number(item.substr(0, eq), kCells);
    const auto digit = number(item.substr(eq + 1), 9);
    if (!cell || !digit || *cell < 1 || *digit < 1) return std::nullopt;
    moves.push_back({int(*cell), int(*digit)});
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return moves;
}

std::vector<std::string_view> words(std::string_view line) {
  std::vector<std::string_view> out;
  std::size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && line[i] == ' ') ++i;
    const std::size_t start = i;
    while (i < line.size() && line[i] != ' ') ++i;
    if (i > start) out.push_back(line.substr(start, i - start));
  }
  return out;
}

/// Whether an area holds a given digit twice.
bool givensRepeat(const std::string& givens) {
  for (const auto& area : bitgrid::kAreas) {
    int seen = 0;
    for (std::uint8_t c : area) {
      const char ch = givens[c];
      if (ch < '1' || ch > '9') continue;
      const int b = 1 << (ch - '1');
      if (seen & b) return true;
      seen |= b;
    }
  }
  return false;
}

GameRead failed(std::string problem) { return {std::nullopt, std::move(problem)}; }

}  // namespace

std::string gameText(const GameRecord& r) {
  std::ostringstream out;
  out << kGameFileHeader << '\n';
  if (!r.source.empty()) out << "source " << r.source << '\n';
  if (r.number > 0) out << "number " << r.number << '\n';
  out << "givens " << r.givens << '\n';
  out << "elapsed " << r.elapsedSeconds << '\n';
  out << "done " << r.done << '\n';
  for (const GameCommand& command : r.commands) {
    out << "command " << kindName(command.kind) << '\n';
    for (const CellChange& c : command.cells)
      out << "cell " << c.cell << ' ' << c.valueBefore << ' ' << notesText(c.notesBefore) << ' ' << c.valueAfter << ' '
          << notesText(c.notesAfter) << '\n';
    if (!command.moves.removed.empty() || !command.moves.added.empty())
      out << "moves " << command.moves.at << ' ' << movesText(command.moves.removed) << ' '
          << movesText(command.moves.added) << '\n';
  }
  return out.str();
}

GameRead parseGameText(std::string_view text) {
  const std::vector<std::string> lines = splitLines(std::string(text));
  if (lines.empty() || lines[0] != kGameFileHeader) return failed("it is not a Tessaly game file");

  GameRecord r;
  bool hasGivens = false, hasDone = false, hasElapsed = false, hasSource = false, hasNumber = false;
  std::vector<int> commandLines;  // the line each command starts at, for messages
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::string at = "line " + std::to_string(i + 1) + ": ";
    const std::string_view line = lines[i];
    if (line.empty() || line[0] == '#') continue;
    const std::vector<std::string_view> w = words(line);
    const std::string_view key = w[0];
    auto once = [&](bool& seen) {
      const bool first = !seen;
      seen = true;
      return first;
    };
    if (key == "source") {
      if (!once(hasSource) || line.size() <= 7) return failed(at + "a second or empty source");
      r.source = std::string(line.substr(7));
    } else if (key == "number") {
      const auto n = w.size() == 2 ? number(w[1], 1000000000) : std::nullopt;
      if (!once(hasNumber) || !n || *n < 1) return failed(at + "the puzzle number must be a whole number from 1");
      r.number = int(*n);
    } else if (key == "givens") {
      if (!once(hasGivens) || w.size() != 2 || w[1].size() != std::size_t(kCells) ||
          w[1].find_first_not_of(".123456789") != std::string_view::npos)
        return failed(at + "the givens must be 81 characters, digits 1 to 9 and '.'");
      r.givens = std::string(w[1]);
    } else if (key == "elapsed") {
      const auto n = w.size() == 2 ? number(w[1], 1000000000) : std::nullopt;
      if (!once(hasElapsed) || !n) return failed(at + "the elapsed time must be a whole number of seconds");
      r.elapsedSeconds = int(*n);
    } else if (key == "done") {
      const auto n = w.size() == 2 ? number(w[1], 1000000000) : std::nullopt;
      if (!once(hasDone) || !n) return failed(at + "the number of commands done must be a whole number");
      r.done = std::size_t(*n);
    } else if (key == "command") {
      GameCommand command;
      bool known = false;
      for (const auto& [k, name] : kKindNames)
        if (w.size() == 2 && w[1] == name) {
          command.kind = k;
          known = true;
        }
      if (!known) return failed(at + "unknown command");
      r.commands.push_back(std::move(command));
      commandLines.push_back(int(i + 1));
    } else if (key == "cell") {
      if (r.commands.empty()) return failed(at + "a cell before any command");
      if (w.size() != 6) return failed(at + "a cell needs its number, value and notes before and after");
      const auto cell = number(w[1], kCells);
      const auto vb = number(w[2], 9), va = number(w[4], 9);
      const auto nb = notesValue(w[3]), na = notesValue(w[5]);
      if (!cell || *cell < 1 || !vb || !va || !nb || !na) return failed(at + "a cell's number, value or notes cannot be read");
      std::vector<CellChange>& cells = r.commands.back().cells;
      if (!cells.empty() && cells.back().cell >= int(*cell)) return failed(at + "cells must be listed in ascending order");
      cells.push_back({int(*cell), int(*vb), int(*va), *nb, *na});
    } else if (key == "moves") {
      if (r.commands.empty()) return failed(at + "moves before any command");
      const auto where = w.size() == 4 ? number(w[1], 100000) : std::nullopt;
      const auto removed = w.size() == 4 ? movesValue(w[2]) : std::nullopt;
      const auto added = w.size() == 4 ? movesValue(w[3]) : std::nullopt;
      if (!where || !removed || !added) return failed(at + "the change of the move list cannot be read");
      r.commands.back().moves = {int(*where), *removed, *added};
    } else {
      return failed(at + "unknown entry '" + std::string(key) + "'");
    }
  }
  if (!hasGivens) return failed("the givens are missing");
  if (givensRepeat(r.givens)) return failed("the givens repeat a digit in a row, column or box");
  if (!hasDone) r.done = r.commands.size();
  if (r.done > r.commands.size()) return failed("more commands done than listed");

  // Replay every command on the givens: each must find the board as it left it.
  std::array<int, 82> value{};
  std::array<std::uint16_t, 82> notes{};
  for (int c = 1; c <= kCells; ++c) {
    const char ch = r.givens[std::size_t(c - 1)];
    value[std::size_t(c)] = ch == '.' ? 0 : ch - '0';
  }
  std::vector<ManualPlay::Move> moves;
  for (std::size_t k = 0; k < r.commands.size(); ++k) {
    const std::string at = "line " + std::to_string(commandLines[k]) + ": ";
    const GameCommand& command = r.commands[k];
    for (const CellChange& c : command.cells) {
      const auto i = std::size_t(c.cell);
      if (r.givens[i - 1] != '.') return failed(at + "the command changes a given");
      if (value[i] != c.valueBefore || notes[i] != c.notesBefore)
        return failed(at + "the command does not follow from the board before it");
      value[i] = c.valueAfter;
      notes[i] = c.notesAfter;
    }
    const MoveListChange& m = command.moves;
    bool follows = std::size_t(m.at) + m.removed.size() <= moves.size();
    for (std::size_t j = 0; follows && j < m.removed.size(); ++j)
      follows = moves[std::size_t(m.at) + j].cell == m.removed[j].cell &&
                moves[std::size_t(m.at) + j].after == m.removed[j].after;
    if (!follows) return failed(at + "the command's change of the move list does not follow from the list before it");
    moves.erase(moves.begin() + m.at, moves.begin() + m.at + std::ptrdiff_t(m.removed.size()));
    moves.insert(moves.begin() + m.at, m.added.begin(), m.added.end());
  }
  return {std::move(r), {}};
}

GameRead readGameFile(const std::string& path) {
  const std::string prefix = "The game file " + path + " cannot be used: ";
  if (const std::string problem = readProblem(path); !problem.empty()) return failed(prefix + problem);
  if (fileLength(path) > kGameFileLimit) return failed(prefix + "it is too large to be a game file");
  const std::optional<std::string> text = readWholeFile(path, kGameFileLimit);
  if (!text) return failed(prefix + "it cannot be read");
  GameRead read = parseGameText(*text);
  if (!read.record) read.problem = prefix + read.problem;
  return read;
}

std::string saveGameFile(const std::string& path, const GameRecord& record) {
  const FileResult result = writeFileAtomically(path, gameText(record));
  return result ? std::string() : couldNotWriteText(path, result);
}

}  // namespace tessaly
