#pragma once
// What a further technique found, as a record: the technique, its pattern
// (areas, cells, digits, chains, forcing branches) and what it removes or
// places. The finders (src/solver/Techniques.h) make them, the solver's
// narrator turns them into sentences, and the hints read them. Cells are
// numbered 0..80 row by row and areas 0..26 (rows 0..8, columns 9..17, boxes
// 18..26); digits are 1..9 and digit sets 9-bit masks (bit d-1 for digit d).

#include <cstdint>
#include <vector>

namespace tessaly {

/// The six numbered rules: the first techniques, always on.
inline constexpr int kRuleCount = 6;

/// Every technique the program knows, from the easiest to the hardest. The
/// six rules come first (their finders are the rules themselves).
enum class Technique : std::uint8_t {
  // the six rules, as users know them
  Rule1, Rule5, Rule2, Rule4, Rule3, Rule6,
  // 1. subsets
  HiddenPair, NakedTriple, HiddenTriple, NakedQuad, HiddenQuad,
  // 2. fish
  XWing, Swordfish, Jellyfish, FinnedXWing, SashimiXWing, FinnedSwordfish, SashimiSwordfish,
  // 3. single-digit patterns
  Skyscraper, TwoStringKite, EmptyRectangle,
  // 4. wings
  XYWing, XYZWing, WWing,
  // 5. uniqueness (only on a puzzle with exactly one solution)
  UniqueRectangle1, UniqueRectangle2, UniqueRectangle4, BugPlus1,
  // 6. colouring
  ColourTrap, ColourWrap,
  // 7. chains
  XChain, XYChain, AIC,
  // 8. almost locked sets
  AlsXz,
  // 9. the last logical resort before a guess
  CellForcingChain, UnitForcingChain,
};
inline constexpr int kTechniqueCount = int(Technique::UnitForcingChain) + 1;

/// One candidate: digit `digit` in cell `cell` (0..80).
struct Candidate {
  int cell = 0;
  int digit = 0;
  friend bool operator==(const Candidate&, const Candidate&) = default;
  friend auto operator<=>(const Candidate&, const Candidate&) = default;
};

/// Cells that act together in a pattern, with the digits they hold in it.
struct CellGroup {
  std::vector<int> cells;    ///< ascending
  std::uint16_t digits = 0;  ///< mask
  friend bool operator==(const CellGroup&, const CellGroup&) = default;
};

/// A node of a chain: `digit` in one cell, or in a group of two or three cells
/// of one box that also share a row or column (a grouped node: "one of these
/// cells is the digit").
struct ChainNode {
  std::vector<int> cells;  ///< ascending, 1 to 3 cells
  int digit = 0;
  friend bool operator==(const ChainNode&, const ChainNode&) = default;
};

/// One conclusion inside a forcing chain: cell `cell` is `digit` (placed) or
/// is not `digit` (!placed), and the step it follows from.
struct Implication {
  int cell = 0;
  int digit = 0;
  bool placed = true;
  friend bool operator==(const Implication&, const Implication&) = default;
};

/// One branch of a forcing chain: the assumption `cell` is `digit`, then what
/// follows from it in order, each implication forced by those before it (a
/// naked or hidden single). The last implication is the branch's conclusion;
/// a contradiction branch ends where `deadCell` has no candidate left or
/// `deadDigit` has no place in area `deadArea` (`deadCell` -1 otherwise).
struct Branch {
  int cell = 0;
  int digit = 0;
  std::vector<Implication> steps;
  bool contradiction = false;
  int deadCell = -1;
  int deadArea = -1;
  int deadDigit = 0;
  friend bool operator==(const Branch&, const Branch&) = default;
};

/// What a technique found: the pattern and what it removes or places. Each
/// technique fills the fields named for it below, and leaves the others empty.
/// `eliminations` are ascending (cell, then digit) and never empty unless
/// `placements` is not; every eliminated digit is a candidate of its cell on
/// the board the step was found on.
///
/// Fields by technique:
/// - HiddenPair/Triple/Quad: units {the area}, digits {the n digits}, cells {the
///   n cells that hold them}; eliminations: the cells' other digits.
/// - NakedTriple/Quad: units {the area}, digits {the n digits}, cells {the n
///   cells}; eliminations: those digits in the area's other cells.
/// - XWing, Swordfish, Jellyfish: digits {d}, units {the n base lines},
///   coverUnits {the n cover lines}, cells {the base lines' cells holding d};
///   eliminations: d in the cover lines outside the base lines.
/// - Finned/Sashimi X-Wing and Swordfish: as the fish, and fins {the fin
///   cells} (all in one box); eliminations: d in cover-line cells that see
///   every fin. Sashimi when a base line has one cell left besides its fins.
/// - Skyscraper, TwoStringKite: digits {d}, chain {four nodes: the first two
///   joined by a strong link, the middle two sharing an area, the last two
///   joined by a strong link}; eliminations: d in cells that see both ends.
/// - EmptyRectangle: digits {d}, units {the box}, chain {the nodes of the
///   conjugate pair and the box's group as a chain of three or four nodes};
///   eliminations: the cell that sees both ends.
/// - XYWing, XYZWing: cells {pivot, pincer, pincer}, digits {the pivot's
///   digits}, zDigit {z}; eliminations: z in cells seeing both pincers (and
///   the pivot, for XYZ).
/// - WWing: cells {the two bivalue cells}, digits {their two digits},
///   restricted {x, the linking digit}, zDigit {z}, chain {x in the strong
///   link's two cells}; eliminations: z in cells seeing both bivalue cells.
/// - UniqueRectangle1/2/4: cells {the four corners}, digits {the pair};
///   eliminations as the type says.
/// - BugPlus1: cells {the cell with three candidates}, digits {the digit it
///   must hold}; placements {that cell and digit}.
/// - ColourTrap, ColourWrap: digits {d}, groups {colour one, colour two} (the
///   cells of each colour, digits {d}); trap eliminations: d in uncoloured
///   cells seeing both colours; wrap: d in every cell of the colour that sees
///   itself (groups[0] is that colour).
/// - XChain, XYChain, AIC: chain {the nodes from one end to the other, the
///   links alternating strong (first), weak, strong, ..., strong (last)};
///   digits {the digits of the two ends}; eliminations: what sees both ends.
/// - AlsXz: groups {ALS A, ALS B} (cells and all their digits), restricted
///   {x, the restricted common digit}, zDigit {z}; eliminations: z in cells
///   seeing every z of both sets.
/// - CellForcingChain: cells {the cell}, branches {one per candidate};
///   UnitForcingChain: units {the area}, digits {d}, branches {one per place of
///   d in the area}. Eliminations or placements: what every branch not ending
///   in a contradiction concludes (when every branch but one is a
///   contradiction, that one's assumption).
struct TechniqueStep {
  Technique technique = Technique::HiddenPair;
  std::uint16_t digits = 0;
  int restricted = 0;  ///< WWing, AlsXz: the linking (restricted common) digit
  int zDigit = 0;      ///< XYWing, XYZWing, WWing, AlsXz: the digit removed
  std::vector<int> units;
  std::vector<int> coverUnits;
  std::vector<int> cells;
  std::vector<int> fins;
  std::vector<CellGroup> groups;
  std::vector<ChainNode> chain;
  std::vector<Branch> branches;
  std::vector<Candidate> eliminations;
  std::vector<Candidate> placements;
  friend bool operator==(const TechniqueStep&, const TechniqueStep&) = default;
};

/// A set of techniques turned on (bit i for Technique i); the six rules are
/// always on.
class TechniqueSet {
 public:
  constexpr TechniqueSet() = default;
  static constexpr TechniqueSet rulesOnly() { return TechniqueSet(kRuleBits); }
  static constexpr TechniqueSet all() { return TechniqueSet((std::uint64_t(1) << kTechniqueCount) - 1); }
  constexpr bool has(Technique t) const { return (m_bits >> unsigned(t)) & 1u; }
  constexpr void add(Technique t) { m_bits |= std::uint64_t(1) << unsigned(t); }
  /// Any technique beyond the six rules.
  constexpr bool any() const { return (m_bits & ~kRuleBits) != 0; }
  friend constexpr bool operator==(TechniqueSet, TechniqueSet) = default;

 private:
  static constexpr std::uint64_t kRuleBits = (std::uint64_t(1) << kRuleCount) - 1;
  constexpr explicit TechniqueSet(std::uint64_t bits) : m_bits(bits) {}
  std::uint64_t m_bits = kRuleBits;
};

}  // namespace tessaly
