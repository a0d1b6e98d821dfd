#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/EventLog.h"
#include "model/Folders.h"
#include "model/Interfaces.h"
#include "model/PuzzleGrid.h"
#include "model/SolveState.h"
#include "model/Text.h"

namespace tessaly {

/// Run states. 0 waits for the user, 1 is released, 99 runs without pauses or
/// highlighting, 100 writes nothing at all (creation).
inline constexpr int kRunWaiting = 0;
inline constexpr int kRunReleased = 1;
inline constexpr int kRunNoPause = 99;
inline constexpr int kRunSilent = 100;

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

/// What the command buttons and check boxes of the window show; the commands
/// set it, the window mirrors it.
struct Controls {
  bool solutionsEnabled = false;
  bool startEnabled = true;
  bool nextEnabled = false;
  bool editEnabled = false;
  bool clearEnabled = false;
  bool PauseCheck = false;  ///< run on without pauses
  bool Check3 = false;      ///< Start solves at once
  int currentTab = 1;       ///< 1 AutoSolve, 2 Create, 3 ManualSolve
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
    if (RunMode == kRunSilent) return;
    logEvent(style, sentence(parts...), wait);
  }
  /// Empties the log, the hint list and the rule statistics.
  void clearEventLog();
  /// Lets the user interface process pending events; throws RunStopped when it says stop.
  void processEvents();
  /// Shows a message box.
  void message(const std::string& text) { ui().message(text); }

  // --- the puzzle
  PuzzleGrid grid;
  EventLog log;
  std::array<std::string, 10> PuzzleRows{};  ///< index 0 unused
  std::array<std::array<char, 10>, 10> PuzzleCells{};
  int GivenCount = 0;
  int BlanksLeft = 81;
  std::array<int, 9> BoxMissingCount{};  ///< entry b-1 for box b

  // --- the collection
  std::string CurrentFile;
  int CurrentPuzzleNumber = 0;
  int TotalPuzzles = 0;
  std::string PuzNumNow;    ///< text of the puzzle-number box
  std::string PuzzleTitle;  ///< caption of the puzzle frame
  std::string MesLab;       ///< status label

  // --- run state and solver records
  int RunMode = 0;
  int PlacementCount = 0;
  int SavedGuessCount = 0;
  int RuleReductions = 0;
  bool CreationFlag = false;
  RuleStatistics stats;
  CandidateQueue candidateQueue;
  GuessStack guessStack;
  std::array<int, 7> RuleTable{0, 2, 3, 4, 5, 6, 7};
  int currentCell = 0;  ///< the cell the last placement coloured, 0 when none

  // --- configuration and start-up values
  Configuration config;
  std::string appDir;  ///< application directory (the shipped data), ending in "/"
  Folders folders;     ///< where the configuration, created puzzles and output go
  std::array<int, 82> CellOrder{};
  std::array<int, 10> DigitOrder{};
  std::array<int, 10> BoxPositionOrder{};
  std::vector<std::string> PermutationTable;
  /// Whether a successful read remembers the collection in Quorrel.cfg (the
  /// command line leaves the configuration alone).
  bool writesConfiguration = true;
  /// Called when a puzzle is read while the ManualSolve tab is current, to
  /// prepare manual solving.
  std::function<void()> onManualTabRead;

  // --- window state the core reads and sets
  Controls controls;
  std::vector<std::string> Hints;

  /// Recounts GivenCount from the given marks.
  void recountGivens() { GivenCount = grid.givensCount(); }
  /// Sets PuzzleTitle to "Puzzle N of T (B blanks)".
  void setPuzzleTitle(int number, int total, int blanks);

 private:
  Services m_services;
  std::unique_ptr<UserInterface> m_ownUi;
  std::unique_ptr<Display> m_ownDisplay;
  std::unique_ptr<Pacer> m_ownPacer;
  std::unique_ptr<Clock> m_ownClock;
  std::unique_ptr<RandomSource> m_ownRandom;
};

}  // namespace tessaly
