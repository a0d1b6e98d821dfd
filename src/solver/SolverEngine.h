#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "model/Session.h"
#include "solver/Techniques.h"

namespace tessaly {

/// True when some digit 1..9 occurs more than once; other characters are ignored.
bool hasRepeatedDigit(std::string_view values);

/// True when no row, column or box holds a digit twice, where `digitBit(c)`
/// is cell c's digit (1..81) as one bit, or 0 for none.
template <class DigitBit>
bool eachDigitOnceInItsAreas(DigitBit digitBit) {
  std::array<std::uint16_t, 10> rows{}, cols{}, boxes{};
  for (int c = 1; c <= kCells; ++c) {
    const std::uint16_t bit = digitBit(c);
    if (!bit) continue;
    std::uint16_t& r = rows[std::size_t(CellRow[c])];
    std::uint16_t& k = cols[std::size_t(CellCol[c])];
    std::uint16_t& b = boxes[std::size_t(CellBox[c])];
    if ((r | k | b) & bit) return false;
    r |= bit;
    k |= bit;
    b |= bit;
  }
  return true;
}

/// The solver: candidates, the six rules, placement, the solve step with its
/// retraction, and the solve runs. It works on the session's grid and narrates
/// into the session's event log.
class SolverEngine {
 public:
  explicit SolverEngine(Session& session) : s(session) {}

  // --- candidates
  /// Recomputes every non-given cell's candidates from the values, the boxes'
  /// missing counts and BlanksLeft. With `analyse` it then runs Rule 1 and returns
  /// the first empty cell left without candidates (-1 when none).
  int computeCandidates(bool analyse);
  /// Deletes the digit from the other cells of the cell's row, column and box that
  /// hold it among two or more candidates, narrating each deletion.
  void removeDuplicates(int cell, int digit, int& counter);
  /// True when no row, column or box holds a digit twice.
  bool givensAreValid() const;
  void highlightArea(int cell, int row, int col, int box);
  void restoreHighlight(int cell);

  // --- narration
  /// Records the finding, with the line it is written at, in the run's list
  /// and writes its sentence into the event log (pausing a stepped run where
  /// the narrator says so). A silent run does neither.
  void report(const Finding& finding) {
    if (s.run.mode != RunState::Silent) write(finding);
  }
  /// Writes a line that tells no finding (fixed texts, the statistics table's
  /// heading), keeping the board history like every line the solver writes.
  void writeLine(int style, std::string_view text, bool wait = false);
  /// Builds the line only when it will be written.
  template <class... Parts>
  void say(int style, bool wait, const Parts&... parts) {
    if (s.run.mode != RunState::Silent) writeLine(style, sentence(parts...), wait);
  }

  // --- the rules (kRules below names each one's technique)
  void applyRule1();
  /// Rule 1's removals for a silent run, by whole areas; false (and nothing
  /// changed) where the cell-by-cell order would decide the outcome.
  bool removeSinglesDigitsAtOnce();
  void applyRule2();
  void applyRule3();
  void applyRule4();
  void applyRule5();
  void applyRule6();

  // --- placement and the solve step
  /// Places the value; with more than one candidate it is a guess among them
  /// that can be retracted later.
  void placeValue(int cell, int value, CandidateSet candidates);
  /// How much of the analysis runs: everything, or the plain candidates only.
  enum class AnalysisMode { Full, CandidatesOnly };
  /// What the analysis found.
  struct Analysis {
    enum class Kind {
      Open,           ///< cells are left to place (or the grid is full)
      DeadCell,       ///< a blank cell has no candidate left: deadCell
      AllDetermined,  ///< every cell holds a value or exactly one candidate
    };
    Kind kind = Kind::Open;
    int deadCell = 0;
  };
  Analysis analyseGrid(AnalysisMode mode);
  void applyRulesInOrder();
  /// When the rules leave no cell with one candidate, tells and applies the
  /// easiest further technique turned on that finds something, lets the rules
  /// go on, and repeats; does nothing with the six rules alone or silently.
  void applyFurtherTechniques();
  /// Tells a further technique's finding and applies it to the candidates.
  void tellStep(const TechniqueStep& step);
  /// The grid as the techniques' finders see it (cells 0..80).
  TechniqueBoard techniqueBoard() const;
  void shuffleRuleTable();
  void placeNext();

  // --- runs and commands
  void solveAll();
  /// The Solve command: a run without pauses, Eventlog.txt, "Done".
  void solveCommand();
  /// The Start command: the approach text, then a run that pauses for Next.
  void startCommand();
  /// The Next command; the secondary button runs on without pauses.
  void nextCommand(bool secondaryButton);
  /// The Pause box changed.
  void setPauseCheck(bool checked);


 private:
  void write(Finding finding);
  void finishRule(int rule);
  int firstDeadCell() const;
  void rebuildQueue(int& singleCells);
  void retractInvalidPlacement();
  void retractInvalidCompletion();
  void retractDeadCell(int cell);
  void retry();
  void reportOutcome();
  void finalCleanUp();
  bool hasBlankCell() const;
  void beginRun();
  /// Forgets what further techniques removed and, when they are on, learns
  /// whether the givens have exactly one solution.
  void prepareFurtherTechniques();
  /// Runs a command body, turning a full log or a stopped run into a message.
  template <class F>
  void guarded(F&& body);

  Session& s;
  /// What the further techniques' finders learnt on this engine's earlier boards.
  StepMemory m_stepMemory;
};

/// One of the six rules: the number users know it by, its technique and the
/// member that applies it.
struct RuleInfo {
  int number;
  std::string_view technique;
  void (SolverEngine::*apply)();
  /// Whether it takes a place in the configured rule order and has statistics;
  /// Rule 1 runs before the others and after every rule that reduced.
  bool ordered;
};

inline constexpr std::array<RuleInfo, kRuleCount> kRules{{
    {1, "Rule 1: naked singles", &SolverEngine::applyRule1, false},
    {2, "Rule 2: box-line reduction (pointing)", &SolverEngine::applyRule2, true},
    {3, "Rule 3: naked pairs", &SolverEngine::applyRule3, true},
    {4, "Rule 4: line-box reduction (claiming)", &SolverEngine::applyRule4, true},
    {5, "Rule 5: hidden singles", &SolverEngine::applyRule5, true},
    {6, "Rule 6: naked subsets of two to five cells", &SolverEngine::applyRule6, true},
}};

/// The rule users know by this number; null for any other number.
constexpr const RuleInfo* ruleNumbered(int number) {
  for (const RuleInfo& rule : kRules)
    if (rule.number == number) return &rule;
  return nullptr;
}

}  // namespace tessaly
