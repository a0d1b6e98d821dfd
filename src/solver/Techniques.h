#pragma once
// The further techniques: the named patterns a person uses when the six rules
// stall, each found on a plain candidate board and reported as a record
// (`TechniqueStep`) that the narrator alone turns into sentences. One table
// (`kTechniques`) lists them all, the six rules first, in their order of
// difficulty; the narrated run, the hints and the grader all go through it.
//
// Cells are numbered 0..80 row by row and areas 0..26 as in BitGrid.h (rows
// 0..8, columns 9..17, boxes 18..26); digits are 1..9 and digit sets are
// 9-bit masks (bit d-1 for digit d). The narrator turns them into the numbers
// users see (cell 1..81, row 1..9, ...).

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "solver/BitGrid.h"

namespace tessaly {

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

/// The board a finder looks at: the values placed (0 for an open cell) and
/// each open cell's candidates (0 for a placed cell).
struct TechniqueBoard {
  std::array<std::uint8_t, bitgrid::kCellCount> value{};
  bitgrid::Cands cand{};
  /// The puzzle is known to have exactly one solution: only then may the
  /// uniqueness techniques act.
  bool uniqueSolution = false;
};

/// A finder: the first instance of its technique on the board that removes or
/// places something, found in a fixed order (lowest area, digit and cells
/// first), or nothing. It never changes the board and never runs past it: a
/// board with no solution gets nothing or a step that is sound for it.
using TechniqueFinder = std::optional<TechniqueStep> (*)(const TechniqueBoard&);

/// Which group of techniques a row belongs to (the help page's sections and
/// the grade).
enum class TechniqueFamily : std::uint8_t {
  Rules, Subsets, Fish, SingleDigit, Wings, Uniqueness, Colouring, Chains, Als, Forcing,
};

struct TechniqueInfo {
  Technique id;
  TechniqueFamily family;
  std::string_view name;     ///< as the log and the help page name it
  std::string_view cliName;  ///< as --techniques names it
  /// The finder; null for the six rules (the rules run themselves) and for a
  /// variant found by the row before it (sashimi fish).
  TechniqueFinder find;
  /// The grade a puzzle gets when this is the hardest technique it needs.
  int grade;
};

// The finders, one per technique row (implemented in TechSubsets.cpp,
// TechFish.cpp, TechPatterns.cpp, TechWings.cpp, TechUniqueness.cpp,
// TechColouring.cpp, TechChains.cpp, TechAls.cpp, TechForcing.cpp).
std::optional<TechniqueStep> findHiddenPair(const TechniqueBoard&);
std::optional<TechniqueStep> findNakedTriple(const TechniqueBoard&);
std::optional<TechniqueStep> findHiddenTriple(const TechniqueBoard&);
std::optional<TechniqueStep> findNakedQuad(const TechniqueBoard&);
std::optional<TechniqueStep> findHiddenQuad(const TechniqueBoard&);
std::optional<TechniqueStep> findXWing(const TechniqueBoard&);
std::optional<TechniqueStep> findSwordfish(const TechniqueBoard&);
std::optional<TechniqueStep> findJellyfish(const TechniqueBoard&);
std::optional<TechniqueStep> findFinnedXWing(const TechniqueBoard&);      ///< finned or sashimi
std::optional<TechniqueStep> findFinnedSwordfish(const TechniqueBoard&);  ///< finned or sashimi
std::optional<TechniqueStep> findSkyscraper(const TechniqueBoard&);
std::optional<TechniqueStep> findTwoStringKite(const TechniqueBoard&);
std::optional<TechniqueStep> findEmptyRectangle(const TechniqueBoard&);
std::optional<TechniqueStep> findXYWing(const TechniqueBoard&);
std::optional<TechniqueStep> findXYZWing(const TechniqueBoard&);
std::optional<TechniqueStep> findWWing(const TechniqueBoard&);
std::optional<TechniqueStep> findUniqueRectangle1(const TechniqueBoard&);
std::optional<TechniqueStep> findUniqueRectangle2(const TechniqueBoard&);
std::optional<TechniqueStep> findUniqueRectangle4(const TechniqueBoard&);
std::optional<TechniqueStep> findBugPlus1(const TechniqueBoard&);
std::optional<TechniqueStep> findColourTrap(const TechniqueBoard&);
std::optional<TechniqueStep> findColourWrap(const TechniqueBoard&);
std::optional<TechniqueStep> findXChain(const TechniqueBoard&);
std::optional<TechniqueStep> findXYChain(const TechniqueBoard&);
std::optional<TechniqueStep> findAIC(const TechniqueBoard&);
std::optional<TechniqueStep> findAlsXz(const TechniqueBoard&);
std::optional<TechniqueStep> findCellForcingChain(const TechniqueBoard&);
std::optional<TechniqueStep> findUnitForcingChain(const TechniqueBoard&);

inline constexpr std::array<TechniqueInfo, kTechniqueCount> kTechniques{{
    {Technique::Rule1, TechniqueFamily::Rules, "Rule 1: naked singles", "rule1", nullptr, 1},
    {Technique::Rule5, TechniqueFamily::Rules, "Rule 5: hidden singles", "rule5", nullptr, 1},
    {Technique::Rule2, TechniqueFamily::Rules, "Rule 2: box-line reduction (pointing)", "rule2", nullptr, 2},
    {Technique::Rule4, TechniqueFamily::Rules, "Rule 4: line-box reduction (claiming)", "rule4", nullptr, 2},
    {Technique::Rule3, TechniqueFamily::Rules, "Rule 3: naked pairs", "rule3", nullptr, 2},
    {Technique::Rule6, TechniqueFamily::Rules, "Rule 6: naked subsets of two to five cells", "rule6", nullptr, 2},
    {Technique::HiddenPair, TechniqueFamily::Subsets, "Hidden pair", "hidden-pair", findHiddenPair, 3},
    {Technique::NakedTriple, TechniqueFamily::Subsets, "Naked triple", "naked-triple", findNakedTriple, 3},
    {Technique::HiddenTriple, TechniqueFamily::Subsets, "Hidden triple", "hidden-triple", findHiddenTriple, 3},
    {Technique::NakedQuad, TechniqueFamily::Subsets, "Naked quad", "naked-quad", findNakedQuad, 3},
    {Technique::HiddenQuad, TechniqueFamily::Subsets, "Hidden quad", "hidden-quad", findHiddenQuad, 3},
    {Technique::XWing, TechniqueFamily::Fish, "X-Wing", "x-wing", findXWing, 3},
    {Technique::Swordfish, TechniqueFamily::Fish, "Swordfish", "swordfish", findSwordfish, 3},
    {Technique::Jellyfish, TechniqueFamily::Fish, "Jellyfish", "jellyfish", findJellyfish, 3},
    {Technique::FinnedXWing, TechniqueFamily::Fish, "Finned X-Wing", "finned-x-wing", findFinnedXWing, 3},
    {Technique::SashimiXWing, TechniqueFamily::Fish, "Sashimi X-Wing", "sashimi-x-wing", nullptr, 3},
    {Technique::FinnedSwordfish, TechniqueFamily::Fish, "Finned Swordfish", "finned-swordfish", findFinnedSwordfish, 3},
    {Technique::SashimiSwordfish, TechniqueFamily::Fish, "Sashimi Swordfish", "sashimi-swordfish", nullptr, 3},
    {Technique::Skyscraper, TechniqueFamily::SingleDigit, "Skyscraper", "skyscraper", findSkyscraper, 3},
    {Technique::TwoStringKite, TechniqueFamily::SingleDigit, "Two-String Kite", "two-string-kite", findTwoStringKite, 3},
    {Technique::EmptyRectangle, TechniqueFamily::SingleDigit, "Empty Rectangle", "empty-rectangle", findEmptyRectangle, 3},
    {Technique::XYWing, TechniqueFamily::Wings, "XY-Wing", "xy-wing", findXYWing, 4},
    {Technique::XYZWing, TechniqueFamily::Wings, "XYZ-Wing", "xyz-wing", findXYZWing, 4},
    {Technique::WWing, TechniqueFamily::Wings, "W-Wing", "w-wing", findWWing, 4},
    {Technique::UniqueRectangle1, TechniqueFamily::Uniqueness, "Unique Rectangle type 1", "unique-rectangle-1", findUniqueRectangle1, 4},
    {Technique::UniqueRectangle2, TechniqueFamily::Uniqueness, "Unique Rectangle type 2", "unique-rectangle-2", findUniqueRectangle2, 4},
    {Technique::UniqueRectangle4, TechniqueFamily::Uniqueness, "Unique Rectangle type 4", "unique-rectangle-4", findUniqueRectangle4, 4},
    {Technique::BugPlus1, TechniqueFamily::Uniqueness, "BUG+1", "bug-plus-1", findBugPlus1, 4},
    {Technique::ColourTrap, TechniqueFamily::Colouring, "Colour trap", "colour-trap", findColourTrap, 4},
    {Technique::ColourWrap, TechniqueFamily::Colouring, "Colour wrap", "colour-wrap", findColourWrap, 4},
    {Technique::XChain, TechniqueFamily::Chains, "X-Chain", "x-chain", findXChain, 5},
    {Technique::XYChain, TechniqueFamily::Chains, "XY-Chain", "xy-chain", findXYChain, 5},
    {Technique::AIC, TechniqueFamily::Chains, "Alternating inference chain", "aic", findAIC, 5},
    {Technique::AlsXz, TechniqueFamily::Als, "ALS-XZ", "als-xz", findAlsXz, 5},
    {Technique::CellForcingChain, TechniqueFamily::Forcing, "Cell forcing chain", "cell-forcing-chain", findCellForcingChain, 5},
    {Technique::UnitForcingChain, TechniqueFamily::Forcing, "Unit forcing chain", "unit-forcing-chain", findUnitForcingChain, 5},
}};

/// The table row of a technique.
constexpr const TechniqueInfo& techniqueInfo(Technique t) { return kTechniques[std::size_t(t)]; }

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
  static constexpr std::uint64_t kRuleBits = (std::uint64_t(1) << 6) - 1;
  constexpr explicit TechniqueSet(std::uint64_t bits) : m_bits(bits) {}
  std::uint64_t m_bits = kRuleBits;
};

/// Reads "six", "all" or a comma-separated list of cliNames (the six rules are
/// always on); nothing when a name is unknown.
std::optional<TechniqueSet> parseTechniqueSet(std::string_view text);
/// The cliNames of the further techniques, comma-separated, for messages.
std::string techniqueNameList();

/// The easiest technique of `enabled` beyond the six rules that finds
/// something on the board.
std::optional<TechniqueStep> findEasiestStep(const TechniqueBoard& board, TechniqueSet enabled);

/// Applies a step to the board: removes its eliminations, and places its
/// placements (taking the digit from the placed cell's peers).
void applyStep(TechniqueBoard& board, const TechniqueStep& step);

// --- helpers the finders share

/// Whether two cells (0..80) share a row, column or box (a cell does not see itself).
bool sees(int a, int b);
/// The area (0..26) of a cell: its row, column (9 + c) or box (18 + b).
constexpr int rowArea(int cell) { return bitgrid::rowOf(cell); }
constexpr int colArea(int cell) { return 9 + bitgrid::colOf(cell); }
constexpr int boxArea(int cell) { return 18 + bitgrid::boxOf(cell); }

/// A board from an 81-character puzzle: the givens placed and every open
/// cell's candidates those the givens leave (no rule applied).
TechniqueBoard boardFromPuzzle(std::string_view puzzle81);
/// A board from 81 whitespace-separated tokens: "=5" for a placed 5, "147" for
/// an open cell with candidates 1, 4 and 7. Used to build boards by hand.
TechniqueBoard boardFromCandidates(std::string_view text);

}  // namespace tessaly
