// Simple colouring: on one digit, the cells joined by conjugate pairs (areas
// where the digit has exactly two places) form clusters, each coloured in two
// colours so that the two ends of every pair differ. In each cluster one
// colour holds the digit everywhere and the other nowhere.
// - Trap: a cell outside the cluster that sees both colours loses the digit.
// - Wrap: a colour that sees itself is the false one; it loses the digit.

#include <bit>

#include "solver/CellSet.h"
#include "solver/Techniques.h"

namespace tessaly {

using namespace bitgrid;

namespace {

/// One cluster of a digit: its cells of each colour and the cells that see them.
struct Cluster {
  std::array<CellSet, 2> colour;
  std::array<CellSet, 2> seen;
};

/// Calls `look(digit, cells with the digit, cluster)` for each two-coloured
/// cluster, digits ascending and clusters by their lowest cell, until it
/// returns a step. A cluster whose pairs cannot be two-coloured (only on a
/// board with no solution) is passed over.
template <typename Look>
std::optional<TechniqueStep> eachCluster(const TechniqueContext& ctx, Look look) {
  std::array<std::uint8_t, kCellCount> queue;
  for (int d = 1; d <= 9; ++d) {
    if (!(ctx.digits() & bitOf(d))) continue;
    // The conjugate pairs, as up to three partners per cell (row, column, box).
    std::array<std::array<std::uint8_t, 3>, kCellCount> partner;
    std::array<std::uint8_t, kCellCount> partners{};
    bool anyPair = false;
    for (std::size_t area = 0; area < 27; ++area) {
      if (!(ctx.linked(int(area)) & bitOf(d))) continue;
      const std::uint16_t at = ctx.at(int(area), d);
      const std::uint8_t a = kAreas[area][std::size_t(std::countr_zero(unsigned(at)))];
      const std::uint8_t b = kAreas[area][std::size_t(15 - std::countl_zero(at))];
      partner[a][partners[a]++] = b;
      partner[b][partners[b]++] = a;
      anyPair = true;
    }
    if (!anyPair) continue;
    const CellSet& holders = ctx.holds(d);
    std::array<std::int8_t, kCellCount> colourOf{};  // 0 not yet coloured, else 1 or 2
    for (int start = 0; start < kCellCount; ++start) {
      if (!partners[std::size_t(start)] || colourOf[std::size_t(start)]) continue;
      Cluster cluster;
      bool twoColoured = true;
      int head = 0, tail = 0;
      queue[std::size_t(tail++)] = std::uint8_t(start);
      colourOf[std::size_t(start)] = 1;
      while (head < tail) {
        const int cell = queue[std::size_t(head++)];
        const int own = colourOf[std::size_t(cell)];
        cluster.colour[std::size_t(own - 1)].add(cell);
        cluster.seen[std::size_t(own - 1)] |= kPeerSets[std::size_t(cell)];
        for (int k = 0; k < partners[std::size_t(cell)]; ++k) {
          const int next = partner[std::size_t(cell)][std::size_t(k)];
          if (colourOf[std::size_t(next)] == own) twoColoured = false;
          if (colourOf[std::size_t(next)]) continue;
          colourOf[std::size_t(next)] = std::int8_t(3 - own);
          queue[std::size_t(tail++)] = std::uint8_t(next);
        }
      }
      if (!twoColoured) continue;
      if (auto step = look(d, holders, cluster)) return step;
    }
  }
  return std::nullopt;
}

std::vector<int> cellsOf(const CellSet& set) {
  std::vector<int> cells;
  set.forEach([&](int c) { cells.push_back(c); });
  return cells;
}

TechniqueStep colourStep(Technique technique, int digit, const CellSet& first, const CellSet& second) {
  TechniqueStep step;
  step.technique = technique;
  step.digits = bitOf(digit);
  step.groups = {CellGroup{cellsOf(first), bitOf(digit)}, CellGroup{cellsOf(second), bitOf(digit)}};
  return step;
}

}  // namespace

std::optional<TechniqueStep> findColourTrap(const TechniqueContext& ctx) {
  return eachCluster(ctx, [](int digit, const CellSet& holders, const Cluster& cluster) -> std::optional<TechniqueStep> {
    CellSet coloured = cluster.colour[0];
    coloured |= cluster.colour[1];
    const CellSet trapped = (holders & cluster.seen[0] & cluster.seen[1]) - coloured;
    if (!trapped.any()) return std::nullopt;
    TechniqueStep step = colourStep(Technique::ColourTrap, digit, cluster.colour[0], cluster.colour[1]);
    trapped.forEach([&](int c) { step.eliminations.push_back({c, digit}); });
    return step;
  });
}

std::optional<TechniqueStep> findColourWrap(const TechniqueContext& ctx) {
  return eachCluster(ctx, [](int digit, const CellSet&, const Cluster& cluster) -> std::optional<TechniqueStep> {
    const bool wrapped[2] = {(cluster.colour[0] & cluster.seen[0]).any(), (cluster.colour[1] & cluster.seen[1]).any()};
    // Both colours seeing themselves happens only on a board with no solution.
    if (wrapped[0] == wrapped[1]) return std::nullopt;
    const std::size_t bad = wrapped[0] ? 0 : 1;
    TechniqueStep step = colourStep(Technique::ColourWrap, digit, cluster.colour[bad], cluster.colour[1 - bad]);
    cluster.colour[bad].forEach([&](int c) { step.eliminations.push_back({c, digit}); });
    return step;
  });
}

}  // namespace tessaly
