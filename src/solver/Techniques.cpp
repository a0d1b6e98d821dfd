#include "solver/Techniques.h"

#include <algorithm>
#include <bit>
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

TechniqueContext::TechniqueContext(const TechniqueBoard& b) : board(b) {
  for (int c = 0; c < kCellCount; ++c)
    for (unsigned m = board.cand[std::size_t(c)]; m; m &= m - 1) m_holds[std::size_t(std::countr_zero(m))].add(c);
  // Each digit's rows are nine-bit slices of its cells; its columns and boxes
  // are read off the rows.
  for (std::size_t i = 0; i < 9; ++i) {
    const CellSet& h = m_holds[i];
    for (int r = 0; r < 9; ++r) {
      const int start = 9 * r;
      const std::uint64_t bits = start + 9 <= 64 ? h.lo >> start : start >= 64 ? h.hi >> (start - 64)
                                                                                 : (h.lo >> start) | (h.hi << (64 - start));
      const auto row = std::uint16_t(bits & kAll);
      m_at[std::size_t(r)][i] = row;
      for (unsigned m = row; m; m &= m - 1) m_at[std::size_t(9 + std::countr_zero(m))][i] |= std::uint16_t(1u << r);
      for (int stack = 0; stack < 3; ++stack)
        m_at[std::size_t(18 + (r / 3) * 3 + stack)][i] |= std::uint16_t(((row >> (3 * stack)) & 7u) << (3 * (r % 3)));
    }
  }
  for (std::size_t a = 0; a < 27; ++a)
    for (std::size_t i = 0; i < 9; ++i)
      if (count(m_at[a][i]) == 2) m_linked[a] |= std::uint16_t(1u << i);
}

bool TechniqueContext::touches(const TechniqueStep& step, const std::array<CellSet, 9>& cells) {
  for (const Candidate& e : step.eliminations)
    if (cells[std::size_t(e.digit - 1)].has(e.cell)) return true;
  for (const Candidate& p : step.placements) {
    if ((kPeerSets[std::size_t(p.cell)] & cells[std::size_t(p.digit - 1)]).any()) return true;
    for (const CellSet& digitCells : cells)
      if (digitCells.has(p.cell)) return true;
  }
  return false;
}

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

namespace {
/// The areas of each cell, as a mask.
constexpr std::array<std::uint32_t, kCellCount> kCellAreas = [] {
  std::array<std::uint32_t, kCellCount> t{};
  for (int c = 0; c < kCellCount; ++c)
    t[std::size_t(c)] = (1u << rowOf(c)) | (1u << (9 + colOf(c))) | (1u << (18 + boxOf(c)));
  return t;
}();
}  // namespace

void StepMemory::moveTo(const TechniqueBoard& board) {
  std::uint32_t digits = 0, areas = 0;
  bool bivalueKept = true;
  for (int c = 0; c < kCellCount; ++c) {
    const std::uint16_t was = m_cand[std::size_t(c)], is = board.cand[std::size_t(c)];
    if (was == is) continue;
    digits |= std::uint32_t(was ^ is);
    areas |= kCellAreas[std::size_t(c)];
    if ((is & ~was) || count(was) == 2 || count(is) == 2) bivalueKept = false;
  }
  if (!areas) return;
  m_cand = board.cand;
  for (int t = 0; t < kTechniqueCount; ++t) {
    const TechniqueScope scope = techniqueScope(Technique(t));
    if (scope != TechniqueScope::Board) m_nothingOn[std::size_t(t)] &= ~(scope == TechniqueScope::EachDigit ? digits : areas);
    else if (!bivalueKept) m_nothingOn[std::size_t(t)] = 0;
  }
}

std::optional<TechniqueStep> findEasiestStep(const TechniqueBoard& board, TechniqueSet enabled, bool withRules,
                                             StepMemory* memory) {
  TechniqueContext context(board);
  if (memory) {
    memory->moveTo(board);
    context.useWork(&memory->work());
  }
  for (const TechniqueInfo& t : kTechniques) {
    if (!t.find || !enabled.has(t.id) || (!withRules && t.family == TechniqueFamily::Rules)) continue;
    const TechniqueScope scope = memory ? techniqueScope(t.id) : TechniqueScope::Board;
    const bool onBivalues = memory && standsOnBivalueCells(t.id);
    if (onBivalues && memory->nothingOn(t.id)) continue;
    if (scope == TechniqueScope::EachDigit) {
      const auto look = std::uint16_t(kAll & ~memory->nothingOn(t.id));
      if (!look) continue;
      context.lookAtDigits(look);
    } else if (scope == TechniqueScope::EachArea) {
      const std::uint32_t look = TechniqueContext::kAllAreas & ~memory->nothingOn(t.id);
      if (!look) continue;
      context.lookAtAreas(look);
    }
    std::optional<TechniqueStep> step = t.find(context);
    context.lookAtDigits(kAll);
    context.lookAtAreas(TechniqueContext::kAllAreas);
    if (step) return step;
    if (scope != TechniqueScope::Board || onBivalues) memory->foundNothing(t.id);
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
