#include "solver/Techniques.h"

#include <algorithm>
#include <sstream>

namespace tessaly {

using namespace bitgrid;

namespace {
constexpr std::array<std::array<bool, kCellCount>, kCellCount> makeSeeTable() {
  std::array<std::array<bool, kCellCount>, kCellCount> t{};
  for (int c = 0; c < kCellCount; ++c)
    for (std::uint8_t p : kPeers[std::size_t(c)]) t[std::size_t(c)][p] = true;
  return t;
}
constexpr auto kSees = makeSeeTable();

std::string_view trimmed(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}
}  // namespace

bool sees(int a, int b) { return kSees[std::size_t(a)][std::size_t(b)]; }

std::optional<TechniqueSet> parseTechniqueSet(std::string_view text) {
  text = trimmed(text);
  if (text == "six") return TechniqueSet::rulesOnly();
  if (text == "all") return TechniqueSet::all();
  TechniqueSet set = TechniqueSet::rulesOnly();
  if (text.empty()) return std::nullopt;
  while (true) {
    const std::size_t comma = text.find(',');
    const std::string_view name = trimmed(text.substr(0, comma));
    const auto row = std::find_if(kTechniques.begin(), kTechniques.end(),
                                  [&](const TechniqueInfo& t) { return t.cliName == name; });
    if (row == kTechniques.end()) return std::nullopt;
    set.add(row->id);
    // A variant found by the row before it comes with that row, and the other way round.
    const std::size_t i = std::size_t(row - kTechniques.begin());
    if (!row->find) set.add(kTechniques[i - 1].id);
    if (i + 1 < kTechniques.size() && !kTechniques[i + 1].find) set.add(kTechniques[i + 1].id);
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return set;
}

std::string techniqueNameList() {
  std::string out;
  for (const TechniqueInfo& t : kTechniques)
    if (t.family != TechniqueFamily::Rules) {
      if (!out.empty()) out += ", ";
      out += t.cliName;
    }
  return out;
}

std::optional<TechniqueStep> findEasiestStep(const TechniqueBoard& board, TechniqueSet enabled, bool withRules) {
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find || !enabled.has(t.id) || (!withRules && t.family == TechniqueFamily::Rules)) continue;
    if (auto step = t.find(board)) return step;
  }
  return std::nullopt;
}

void applyStep(TechniqueBoard& board, const TechniqueStep& step) {
  for (const Candidate& e : step.eliminations) board.cand[std::size_t(e.cell)] &= std::uint16_t(~bitOf(e.digit));
  for (const Candidate& p : step.placements) {
    board.value[std::size_t(p.cell)] = std::uint8_t(p.digit);
    board.cand[std::size_t(p.cell)] = 0;
    for (std::uint8_t peer : kPeers[std::size_t(p.cell)]) board.cand[peer] &= std::uint16_t(~bitOf(p.digit));
  }
}

TechniqueBoard boardFromPuzzle(std::string_view puzzle81) {
  TechniqueBoard board;
  for (int c = 0; c < kCellCount; ++c) {
    const char ch = std::size_t(c) < puzzle81.size() ? puzzle81[std::size_t(c)] : '.';
    board.value[std::size_t(c)] = ch >= '1' && ch <= '9' ? std::uint8_t(ch - '0') : 0;
  }
  for (int c = 0; c < kCellCount; ++c) {
    if (board.value[std::size_t(c)]) continue;
    std::uint16_t set = kAll;
    for (std::uint8_t peer : kPeers[std::size_t(c)])
      if (int v = board.value[peer]) set &= std::uint16_t(~bitOf(v));
    board.cand[std::size_t(c)] = set;
  }
  return board;
}

TechniqueBoard boardFromCandidates(std::string_view text) {
  TechniqueBoard board;
  std::istringstream in{std::string(text)};
  std::string token;
  for (int c = 0; c < kCellCount && in >> token; ++c) {
    if (token[0] == '=') {
      board.value[std::size_t(c)] = std::uint8_t(token.size() > 1 ? token[1] - '0' : 0);
      continue;
    }
    std::uint16_t set = 0;
    for (char ch : token)
      if (ch >= '1' && ch <= '9') set |= bitOf(ch - '0');
    board.cand[std::size_t(c)] = set;
  }
  return board;
}

}  // namespace tessaly
