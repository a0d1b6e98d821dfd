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
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/TechniqueStep.h"
#include "solver/BitGrid.h"
#include "solver/CellSet.h"

namespace tessaly {

/// The board a finder looks at: the values placed (0 for an open cell) and
/// each open cell's candidates (0 for a placed cell).
struct TechniqueBoard {
  std::array<std::uint8_t, bitgrid::kCellCount> value{};
  bitgrid::Cands cand{};
  /// The puzzle is known to have exactly one solution: only then may the
  /// uniqueness techniques act.
  bool uniqueSolution = false;
};

struct ChainWork;
struct AlsWork;

/// Buffers finders reuse from one call to the next on the boards of one solve
/// (the step search keeps them in its StepMemory), so that a call seldom
/// allocates. Buffers only: every call fills what it reads, so a finder finds
/// the same with them as without. A copy starts with empty buffers of its own.
class FinderWork {
 public:
  FinderWork();
  ~FinderWork();
  FinderWork(const FinderWork&);
  FinderWork& operator=(const FinderWork&);
  ChainWork& chains();  ///< the chain searches' (TechChains.cpp)
  AlsWork& als();        ///< ALS-XZ's (TechAls.cpp)

 private:
  std::unique_ptr<ChainWork> m_chains;
  /// Shared only for its deleter, which it takes where AlsWork is complete;
  /// a copied FinderWork still starts without one.
  std::shared_ptr<AlsWork> m_als;
};

/// A board with what many finders read of it worked out once: where each
/// digit can go in each area and which cells hold each digit. The step search
/// makes one per board and hands it to every finder it tries; a finder called
/// with a plain board gets one made for that call.
class TechniqueContext {
 public:
  static constexpr std::uint32_t kAllAreas = (std::uint32_t(1) << 27) - 1;

  TechniqueContext(const TechniqueBoard& board);  // implicit: a board is enough to call a finder

  const TechniqueBoard& board;
  /// Bit k is set when the digit is a candidate of kAreas[area][k]: in a row
  /// k is the column, in a column the row, in a box (row % 3) * 3 + column % 3.
  std::uint16_t at(int area, int digit) const { return m_at[std::size_t(area)][std::size_t(digit - 1)]; }
  /// The digits with exactly two places in the area (a strong link each).
  std::uint16_t linked(int area) const { return m_linked[std::size_t(area)]; }
  /// The cells holding the digit as a candidate.
  const CellSet& holds(int digit) const { return m_holds[std::size_t(digit - 1)]; }
  /// The cells holding the digit that see both cell a and cell b (0..80).
  CellSet seeingBoth(int a, int b, int digit) const {
    return kPeerSets[std::size_t(a)] & kPeerSets[std::size_t(b)] & holds(digit);
  }

  /// The digits a finder that looks at each digit on its own must look at,
  /// and the areas (bit a for area a) one that looks at each area on its own
  /// must look at (see techniqueScope): all, unless the step search knows that
  /// the finder finds nothing on the others.
  std::uint16_t digits() const { return m_digits; }
  std::uint32_t areas() const { return m_areas; }
  void lookAtDigits(std::uint16_t digits) { m_digits = digits; }
  void lookAtAreas(std::uint32_t areas) { m_areas = areas; }

  /// Buffers a finder may reuse, when the caller keeps some (none by default).
  FinderWork* work() const { return m_work; }
  void useWork(FinderWork* work) { m_work = work; }

  /// The candidates an instance must bear on, per digit (every one unless
  /// some are singled out): a finder that looks at the whole board (see
  /// techniqueScope) takes the first instance that removes or places one of
  /// them, or whose placement removes one (see touches). The coach singles
  /// out what bears on one move, so that any instance on the board can
  /// justify it, not only the board's first.
  void singleOut(const std::array<CellSet, 9>& wanted) {
    m_wanted = wanted;
    m_singledOut = true;
  }
  bool singledOut() const { return m_singledOut; }
  const CellSet& wanted(int digit) const { return m_wanted[std::size_t(digit - 1)]; }
  /// Whether the step bears on a wanted candidate: always, unless some are
  /// singled out.
  bool wants(const TechniqueStep& step) const { return !m_singledOut || touches(step, m_wanted); }
  /// Whether the step removes or places one of `cells` (per digit), or
  /// places a digit where it removes one of them: the cell's other
  /// candidates and the digit from the cells that see it.
  static bool touches(const TechniqueStep& step, const std::array<CellSet, 9>& cells);

 private:
  FinderWork* m_work = nullptr;
  std::array<CellSet, 9> m_wanted{};
  bool m_singledOut = false;
  std::uint16_t m_digits = bitgrid::kAll;
  std::uint32_t m_areas = kAllAreas;
  std::array<std::array<std::uint16_t, 9>, 27> m_at{};
  std::array<std::uint16_t, 27> m_linked{};
  std::array<CellSet, 9> m_holds{};
};

/// A finder: the first instance of its technique on the board that removes or
/// places something, found in a fixed order (lowest area, digit and cells
/// first), or nothing. It never changes the board and never runs past it: a
/// board with no solution gets nothing or a step that is sound for it.
using TechniqueFinder = std::optional<TechniqueStep> (*)(const TechniqueContext&);

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
  /// The finder; null for a variant found by the row before it (sashimi
  /// fish). The narrated run applies the six rules through the engine, not
  /// through their finders.
  TechniqueFinder find;
  /// The grade a puzzle gets when this is the hardest technique it needs.
  int grade;
};

// The six rules as finders (TechRules.cpp), for the hints.
/// Called with each instance of a rule; true to stop.
using RuleVisitor = std::function<bool(const TechniqueStep&)>;
/// Every instance of one of the six rules on the board that places or
/// removes something, in the order its finder looks: the finder's step is
/// the first.
void forEachRuleInstance(Technique rule, const TechniqueBoard& board, const RuleVisitor& visit);
std::optional<TechniqueStep> findNakedSingle(const TechniqueContext&);
std::optional<TechniqueStep> findHiddenSingle(const TechniqueContext&);
std::optional<TechniqueStep> findPointing(const TechniqueContext&);
std::optional<TechniqueStep> findClaiming(const TechniqueContext&);
std::optional<TechniqueStep> findNakedPair(const TechniqueContext&);
std::optional<TechniqueStep> findEqualGroup(const TechniqueContext&);

// The finders, one per technique row (implemented in TechSubsets.cpp,
// TechFish.cpp, TechPatterns.cpp, TechWings.cpp, TechUniqueness.cpp,
// TechColouring.cpp, TechChains.cpp, TechAls.cpp, TechForcing.cpp).
std::optional<TechniqueStep> findHiddenPair(const TechniqueContext&);
std::optional<TechniqueStep> findNakedTriple(const TechniqueContext&);
std::optional<TechniqueStep> findHiddenTriple(const TechniqueContext&);
std::optional<TechniqueStep> findNakedQuad(const TechniqueContext&);
std::optional<TechniqueStep> findHiddenQuad(const TechniqueContext&);
std::optional<TechniqueStep> findXWing(const TechniqueContext&);
std::optional<TechniqueStep> findSwordfish(const TechniqueContext&);
std::optional<TechniqueStep> findJellyfish(const TechniqueContext&);
std::optional<TechniqueStep> findFinnedXWing(const TechniqueContext&);      ///< finned or sashimi
std::optional<TechniqueStep> findFinnedSwordfish(const TechniqueContext&);  ///< finned or sashimi
std::optional<TechniqueStep> findSkyscraper(const TechniqueContext&);
std::optional<TechniqueStep> findTwoStringKite(const TechniqueContext&);
std::optional<TechniqueStep> findEmptyRectangle(const TechniqueContext&);
std::optional<TechniqueStep> findXYWing(const TechniqueContext&);
std::optional<TechniqueStep> findXYZWing(const TechniqueContext&);
std::optional<TechniqueStep> findWWing(const TechniqueContext&);
std::optional<TechniqueStep> findUniqueRectangle1(const TechniqueContext&);
std::optional<TechniqueStep> findUniqueRectangle2(const TechniqueContext&);
std::optional<TechniqueStep> findUniqueRectangle4(const TechniqueContext&);
std::optional<TechniqueStep> findBugPlus1(const TechniqueContext&);
std::optional<TechniqueStep> findColourTrap(const TechniqueContext&);
std::optional<TechniqueStep> findColourWrap(const TechniqueContext&);
std::optional<TechniqueStep> findXChain(const TechniqueContext&);
std::optional<TechniqueStep> findXYChain(const TechniqueContext&);
std::optional<TechniqueStep> findAIC(const TechniqueContext&);
std::optional<TechniqueStep> findAlsXz(const TechniqueContext&);
std::optional<TechniqueStep> findCellForcingChain(const TechniqueContext&);
std::optional<TechniqueStep> findUnitForcingChain(const TechniqueContext&);

inline constexpr std::array<TechniqueInfo, kTechniqueCount> kTechniques{{
    {Technique::Rule1, TechniqueFamily::Rules, "Rule 1: naked singles", "rule1", findNakedSingle, 1},
    {Technique::Rule5, TechniqueFamily::Rules, "Rule 5: hidden singles", "rule5", findHiddenSingle, 1},
    {Technique::Rule2, TechniqueFamily::Rules, "Rule 2: box-line reduction (pointing)", "rule2", findPointing, 2},
    {Technique::Rule4, TechniqueFamily::Rules, "Rule 4: line-box reduction (claiming)", "rule4", findClaiming, 2},
    {Technique::Rule3, TechniqueFamily::Rules, "Rule 3: naked pairs", "rule3", findNakedPair, 2},
    {Technique::Rule6, TechniqueFamily::Rules, "Rule 6: naked subsets of two to five cells", "rule6", findEqualGroup, 2},
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
    {Technique::XYWing, TechniqueFamily::Wings, "XY-Wing", "xy-wing", findXYWing, 3},
    {Technique::XYZWing, TechniqueFamily::Wings, "XYZ-Wing", "xyz-wing", findXYZWing, 3},
    {Technique::WWing, TechniqueFamily::Wings, "W-Wing", "w-wing", findWWing, 3},
    {Technique::UniqueRectangle1, TechniqueFamily::Uniqueness, "Unique Rectangle type 1", "unique-rectangle-1", findUniqueRectangle1, 3},
    {Technique::UniqueRectangle2, TechniqueFamily::Uniqueness, "Unique Rectangle type 2", "unique-rectangle-2", findUniqueRectangle2, 3},
    {Technique::UniqueRectangle4, TechniqueFamily::Uniqueness, "Unique Rectangle type 4", "unique-rectangle-4", findUniqueRectangle4, 3},
    {Technique::BugPlus1, TechniqueFamily::Uniqueness, "BUG+1", "bug-plus-1", findBugPlus1, 3},
    {Technique::ColourTrap, TechniqueFamily::Colouring, "Colour trap", "colour-trap", findColourTrap, 3},
    {Technique::ColourWrap, TechniqueFamily::Colouring, "Colour wrap", "colour-wrap", findColourWrap, 3},
    {Technique::XChain, TechniqueFamily::Chains, "X-Chain", "x-chain", findXChain, 4},
    {Technique::XYChain, TechniqueFamily::Chains, "XY-Chain", "xy-chain", findXYChain, 4},
    {Technique::AIC, TechniqueFamily::Chains, "Alternating inference chain", "aic", findAIC, 4},
    {Technique::AlsXz, TechniqueFamily::Als, "ALS-XZ", "als-xz", findAlsXz, 5},
    {Technique::CellForcingChain, TechniqueFamily::Forcing, "Cell forcing chain", "cell-forcing-chain", findCellForcingChain, 5},
    {Technique::UnitForcingChain, TechniqueFamily::Forcing, "Unit forcing chain", "unit-forcing-chain", findUnitForcingChain, 5},
}};

static_assert([] {
  for (int i = 0; i < kTechniqueCount; ++i)
    if (int(kTechniques[std::size_t(i)].id) != i ||
        (kTechniques[std::size_t(i)].family == TechniqueFamily::Rules) != (i < kRuleCount))
      return false;
  return true;
}(), "the table lists every technique in the enum's order, the six rules first");

/// The table row of a technique.
constexpr const TechniqueInfo& techniqueInfo(Technique t) { return kTechniques[std::size_t(t)]; }

/// What a finder's instances depend on. EachDigit: what it finds on a digit
/// depends on nothing but the cells holding that digit (the fish, the
/// single-digit patterns, colouring and X-Chains); it looks only at the digits
/// of TechniqueContext::digits(). EachArea: what it finds in an area depends
/// on nothing but the candidates of the area's cells (the hidden and naked
/// subsets); it looks only at the areas of TechniqueContext::areas().
enum class TechniqueScope : std::uint8_t { Board, EachDigit, EachArea };

constexpr TechniqueScope techniqueScope(Technique t) {
  const TechniqueFamily family = techniqueInfo(t).family;
  if (family == TechniqueFamily::Fish || family == TechniqueFamily::SingleDigit ||
      family == TechniqueFamily::Colouring || t == Technique::XChain)
    return TechniqueScope::EachDigit;
  if (family == TechniqueFamily::Subsets) return TechniqueScope::EachArea;
  return TechniqueScope::Board;
}

/// Whether what the finder finds stands on the bivalue cells alone and removes
/// a digit only from cells that see some of them (XY-Wing, XY-Chain): on a
/// board with the same bivalue cells and no candidate that an earlier board
/// lacked, it finds nothing where it found nothing on the earlier one.
constexpr bool standsOnBivalueCells(Technique t) { return t == Technique::XYWing || t == Technique::XYChain; }

/// What the step search keeps between its calls on the boards of one solve:
/// the candidates at the last call, and for each finder that looks at each
/// digit or each area on its own the digits or areas on which it found
/// nothing then. On the next board such a finder looks only at the digits or
/// areas whose cells have changed or on which it was not asked: it would find
/// nothing on the others again. A finder that stands on the bivalue cells is
/// skipped while they stay as they were when it found nothing and no
/// candidate comes back. Any sequence of boards may share one memory.
class StepMemory {
 public:
  /// Forgets what was found on the digits and areas whose cells differ on
  /// this board, and by the finders that stand on the bivalue cells unless
  /// those stay as they were and no candidate comes back.
  void moveTo(const TechniqueBoard& board);
  /// The digits or areas on which the finder of `t` is known to find nothing.
  std::uint32_t nothingOn(Technique t) const { return m_nothingOn[std::size_t(t)]; }
  void foundNothing(Technique t) { m_nothingOn[std::size_t(t)] = ~std::uint32_t(0); }
  /// Buffers for the finders, kept across the boards.
  FinderWork& work() { return m_work; }

 private:
  FinderWork m_work;
  bitgrid::Cands m_cand{};
  std::array<std::uint32_t, kTechniqueCount> m_nothingOn{};
};

/// Reads "six", "all" or a comma-separated list of cliNames (the six rules are
/// always on); nothing when a name is unknown.
std::optional<TechniqueSet> parseTechniqueSet(std::string_view text);
/// The cliNames of the further techniques, comma-separated, for messages.
std::string techniqueNameList();

/// The easiest technique of `enabled` that finds something on the board; the
/// six rules' rows only when `withRules` (the solver applies those itself).
/// With a memory of earlier calls (on any boards), the finders that look at
/// each digit on their own skip the digits on which they are known to find
/// nothing; the step is the same.
std::optional<TechniqueStep> findEasiestStep(const TechniqueBoard& board, TechniqueSet enabled,
                                             bool withRules = false, StepMemory* memory = nullptr);

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
