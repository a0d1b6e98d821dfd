#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/CollectionFile.h"
#include "model/Event.h"
#include "model/EventLog.h"
#include "model/Finding.h"
#include "model/Folders.h"
#include "model/HintLine.h"
#include "model/Interfaces.h"
#include "model/RunState.h"
#include "model/PuzzleGrid.h"
#include "model/SolveState.h"
#include "model/TechniqueStep.h"
#include "model/Text.h"

namespace tessaly {

inline constexpr int kDefaultMaxTries = 250;
inline constexpr const char* kDefaultRuleOrder = "23456";

/// Log styles: colour numbers of the 16-colour palette.
inline constexpr int kStyleNormal = 0;
inline constexpr int kStyleRule = 1;
inline constexpr int kStyleWarning = 4;

/// The values kept in Quorrel.cfg.
struct Configuration {
  int MaxTries = kDefaultMaxTries;
  std::string RuleOrder = kDefaultRuleOrder;  ///< "" means a random order
  std::string ColourSchemeFile;
};

/// The window's three modes, in the order of its tab strip.
enum class Tab { AutoSolve = 1, Create, ManualSolve };

/// The choices the user makes in the window that the commands read. Which
/// commands can be given at a moment is the window's business: it follows from
/// the run under way (`SolveRun::activity`) and the board.
struct Controls {
  bool PauseCheck = false;   ///< the "No pauses" box: runs go on without pauses
  bool solveAtOnce = false;  ///< the "Solve at once" box (`Check3`): Start solves at once
  Tab currentTab = Tab::AutoSolve;  ///< the tab shown
  /// The techniques a solve may use: the six rules, and the further ones
  /// when the user turned them on (Options, "Further techniques").
  TechniqueSet techniques = TechniqueSet::rulesOnly();
};

/// One solve run's records: its state, the placement queue and guess levels,
/// the counters and the rule statistics. A new run resets them; hints save and
/// restore them around their own run.
struct SolveRun {
  RunState mode = RunState::Waiting;
  RunActivity activity = RunActivity::None;  ///< the command whose run is on the stack
  int PlacementCount = 0;   ///< placements of this run; above MaxTries the run gives up
  int SavedGuessCount = 0;  ///< guess levels saved by this run
  int RuleReductions = 0;   ///< reductions made by the rules since the last analysis
  bool CreationFlag = false;  ///< raised for good by the first creation
  RuleStatistics stats;  ///< per rule: reductions and applications, reset with the log
  CandidateQueue candidateQueue;  ///< open cells, sorted by their placement key
  GuessStack guessStack;          ///< one level per guess still open to retraction
  /// Slot i (1..6) holds the rule applied i-th; slot 0 is unused.
  std::array<int, kRuleCount + 1> RuleTable{0, 2, 3, 4, 5, 6, 7};
  int currentCell = 0;  ///< the cell the last placement coloured, 0 when none
  /// A new run: no queue, no guess levels, no placements or guesses counted.
  void begin() {
    dropPlacements();
    PlacementCount = 0;
    SavedGuessCount = 0;
  }
  /// Forgets the placement queue and the guess levels (another puzzle on the
  /// board, a hint's own run on the candidates as they stand).
  void dropPlacements() {
    candidateQueue.clear();
    guessStack.clear();
    excluded.fill(CandidateSet());
  }
  /// What the event log tells, as records: one per narrated finding, in log
  /// order, each with its line. Emptied with the log, so never longer than it.
  std::vector<Finding> findings;
  /// The board as each line of the event log saw it; emptied with the log.
  BoardHistory history;
  /// The further techniques' findings told in the log (a TechniqueFound
  /// finding holds its index here); emptied with the findings.
  std::vector<TechniqueStep> techniqueSteps;
  /// Per cell (1..81): the digits further techniques removed in this run. A
  /// new analysis recomputes the candidates from the values and takes these
  /// out again, so a finding is told once; a retracted guess takes back those
  /// found after it.
  std::array<CandidateSet, 82> excluded{};
  /// The puzzle of this run has exactly one solution (set at the start of a
  /// run that may use further techniques): the uniqueness techniques need it.
  bool uniqueSolution = false;
};

/// The collection the puzzle comes from.
struct Collection {
  std::string CurrentFile;      ///< the collection file, as shown in the File box
  int CurrentPuzzleNumber = 0;  ///< 0 before a puzzle is read
  int TotalPuzzles = 0;         ///< the file's puzzle count, 0 when it has none
  /// The board holds puzzle CurrentPuzzleNumber of CurrentFile; false once a
  /// puzzle was created or typed in, until it is saved or a puzzle is read.
  bool boardFromFile = false;
  std::string boardAsRead;  ///< the values of that puzzle as read or saved (PuzzleGrid::valueCode)
  /// Per file read: the count and first line of the lines skipped as not
  /// puzzles when the user was last told of them, so that reading another of
  /// its puzzles does not tell them again (a change to the file does).
  std::map<std::string, std::pair<int, int>> toldSkippedLines;
  /// The collection as last looked through: Previous, Next and the number box
  /// read from it while the file is unchanged.
  std::optional<CollectionIndex> index;
};

/// Creation's blanking orders: permutations it shuffles before blanking cells.
struct BlankingOrders {
  std::array<int, 82> cells{};        ///< a permutation of 1..81 (index 0 unused): the order cells are blanked in
  std::array<int, 10> boxPositions{};  ///< a permutation of 1..9: the order of positions a box is blanked in
  BlankingOrders() { reset(); }
  /// Back to the identity orders.
  void reset() {
    for (int i = 0; i <= kCells; ++i) cells[std::size_t(i)] = i;
    for (int i = 0; i <= 9; ++i) boxPositions[std::size_t(i)] = i;
  }
};

/// Where the interfaces come from. Any left null gets a do-nothing one.
struct Services {
  UserInterface* ui = nullptr;
  Display* display = nullptr;
  Pacer* pacer = nullptr;
  const Clock* clock = nullptr;
  RandomSource* random = nullptr;
};

/// All program-wide state: the puzzle, the event log, the run state, the
/// solver's counters and records, the configuration and the current collection.
class Session {
 public:
  explicit Session(Services services = {});
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // --- interfaces
  UserInterface& ui() { return *m_services.ui; }
  Display& display() { return *m_services.display; }
  Pacer& pacer() { return *m_services.pacer; }
  const Clock& clock() const { return *m_services.clock; }
  RandomSource& random() { return *m_services.random; }
  /// Replaces some interfaces (null ones are left as they are).
  void setServices(const Services& services);

  // --- the event log
  /// Appends a line unless the run is silent, yields to the user interface and,
  /// for a pause point while stepping, waits for the user. Throws EventLogFull
  /// when the log is full and RunStopped when the user interface ends the run.
  void logEvent(int style, std::string_view text, bool wait = false);
  /// Builds the sentence only when it will be written.
  template <class... Parts>
  void say(int style, bool wait, const Parts&... parts) {
    if (run.mode == RunState::Silent) return;
    logEvent(style, sentence(parts...), wait);
  }
  /// Empties the log, its findings and board history, the hint list and the
  /// rule statistics.
  void clearEventLog();
  /// Lets the user interface process pending events; throws RunStopped when it says stop.
  void processEvents();
  /// Shows a message box.
  void message(const std::string& text) { ui().message(text); }

  // --- the puzzle
  PuzzleGrid grid;  ///< the 81 cells: value, given mark, candidates
  EventLog log;     ///< at most 5,000 lines, each a style and a text
  int BlanksLeft = 81;                   ///< blank cells, as the last candidate computation counted them
  std::array<int, 9> BoxMissingCount{};  ///< entry b-1 for box b, likewise
  /// The givens: the cells with the given mark.
  int givenCount() const { return grid.givensCount(); }

  // --- the collection and the run
  Collection collection;
  SolveRun run;
  std::string PuzNumNow;    ///< text of the puzzle-number box
  std::string PuzzleTitle;  ///< caption of the puzzle frame
  std::string statusText;   ///< the status label (`MesLab`)

  // --- configuration and start-up values
  Configuration config;
  std::string appDir;  ///< application directory (the shipped data), ending in "/"
  Folders folders;     ///< where the configuration, created puzzles and output go
  BlankingOrders blankingOrders;  ///< creation's, reset at start-up
  /// Whether a successful read remembers the collection in Quorrel.cfg (the
  /// command line leaves the configuration alone).
  bool writesConfiguration = true;
  /// Told whenever another puzzle takes the board: read, created or typed in
  /// (manual play forgets its moves, and starts afresh when its tab is current).
  Event puzzleLoaded;

  // --- the window's choices the core reads
  Controls controls;
  std::vector<HintLine> hints;  ///< the last hint's report, emptied with the log and by each hint

  /// Sets PuzzleTitle to "Puzzle N of T (B blanks)".
  void setPuzzleTitle(int number, int total, int blanks);

 private:
  struct OwnServices;
  Services m_services;
  std::unique_ptr<OwnServices> m_own;  ///< the do-nothing interfaces given for those left out
};

}  // namespace tessaly
