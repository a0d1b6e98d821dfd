#pragma once
// Puzzle creation: the Create command of the Create tab. A new puzzle is made
// by seeding one digit per box, letting the solver complete the grid silently,
// blanking cells by the chosen distribution and appending the result to the
// temporary collection PuzTemp.sud. On request, blanks that would allow a
// second solution are given back, and creation repeats until a chosen grade.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "model/Session.h"
#include "model/TechniqueStep.h"

namespace tessaly {

class Session;

/// The options of the "Distribution of Blank Cells" frame, by index.
enum class BlankDistribution { Mirror = 0, ByBox = 1, Random = 2, Manual = 3 };

inline constexpr int kMaxBlanks = 72;
inline constexpr int kMinBlanks = 9;
/// The collection every created puzzle is appended to, in the application folder.
inline constexpr const char* kTempCollectionName = "PuzTemp.sud";
/// Where created puzzles are appended: the user's data folder when the session
/// has one, else the application directory.
std::string tempCollectionPath(const Session& session);

/// The message when no puzzle of the target grade was made within the tries.
std::string gradeNotReachedText(int grade, int tries);
/// The message when no puzzle needing the technique was made within the tries.
std::string techniqueNotReachedText(Technique technique, int tries);

inline constexpr const char* kTooManyBlanks = "Cannot have more than 72 blanks";
inline constexpr const char* kTooFewBlanks = "Must have at least 9 blanks";
inline constexpr const char* kCreationFailed = "Puzzle creation failed, please try again";
inline constexpr const char* kTemplateNotAccepted = "Random placement will be used";
inline constexpr const char* kTemplateAllBlanks = "Grid is all blanks, random placement will be used";
inline constexpr int kDefaultGradeTries = 1000;
/// Seedings one puzzle may take before creation gives up on it.
inline constexpr int kFillAttempts = 20;
inline constexpr const char* kTemplateNoBlanks = "There are no blanks in this grid, random placement will be used";

/// What the Create tab holds when Create is pressed; the command hands back
/// what the tab must show afterwards in the same form.
struct CreateSettings {
  /// The number of blanks asked for (the `TotBlanks` box, read by
  /// typedBlanks); nothing when no number was typed, which is refused as too
  /// few blanks.
  std::optional<int> blanks;
  /// The selected distribution option.
  BlankDistribution distribution = BlankDistribution::Mirror;
  /// For Manual: the template the blank-pattern dialog accepted (81 characters,
  /// "X" kept, "." or a blank for a blank cell; line breaks are ignored), or
  /// nothing when the dialog was cancelled or refused the text.
  std::optional<std::string> manualTemplate;
  /// Only puzzles with one solution: after the blanks are made, every blank
  /// whose removal allows a second solution is filled again (Mirror fills both
  /// cells of a pair, so the pattern stays symmetric).
  bool uniqueOnly = false;
  /// Create until the puzzle has this grade (1..5), at most gradeTries times.
  std::optional<int> targetGrade{};
  /// Create until the puzzle needs this technique: graded with the session's
  /// techniques, it is the hardest one the solve uses (with or without a
  /// target grade), at most gradeTries times.
  std::optional<Technique> targetTechnique{};
  int gradeTries = kDefaultGradeTries;
  /// Set once Mirror or by Box has rewritten `blanks` to the count it aims at:
  /// the box then shows that number in place of the text typed.
  bool blanksRewritten = false;
};

struct CreateResult {
  enum class Outcome {
    Created,  ///< a new puzzle is on the grid and was appended to PuzTemp.sud
    Refused,  ///< the blank count was out of range; nothing changed
    Failed,   ///< no seeding could be completed, or the creation was stopped; the board is as it was
    GradeNotReached,  ///< no puzzle of the target grade within the tries; the board is as it was
  };
  Outcome outcome = Outcome::Refused;
  /// What the tab shows afterwards: `blanks` as rewritten by Mirror and by
  /// Box, and the option actually applied (Random after a Manual fallback).
  CreateSettings settings;
  /// Blank cells of the new puzzle.
  int blanks = 0;
  /// The new puzzle's grade (1..5) when it was graded (a target grade was set),
  /// else 0.
  int grade = 0;
  /// Puzzles made to reach the target grade (1 without a target).
  int tries = 0;

  bool created() const { return outcome == Outcome::Created; }
};

/// The Create command and its steps. Works on the session's grid; every random
/// draw comes from the session's random source.
class PuzzleCreator {
 public:
  explicit PuzzleCreator(Session& session) : s(session) {}

  /// The Create command (`CreateCommand`): checks the blank count, completes a
  /// seeded grid, blanks it, appends it to PuzTemp.sud and makes it the new,
  /// unnumbered puzzle.
  CreateResult createCommand(const CreateSettings& settings);

  /// Steps 2 to 6 of the command: empties the grid and the solver's records,
  /// seeds it and lets the solver complete it in a silent run, which is not
  /// held to the attempt limit. True when the grid was completed; false when
  /// the search ran out of guesses (nothing is told).
  bool completeGrid();
  /// completeGrid, seeded afresh until a grid is complete, at most
  /// kFillAttempts times.
  bool fillGrid();

  /// Places the nine seeds: digit d at the randomDigit-th cell of box d, as a given.
  void seedGrid();
  /// Blanks cells of the completed grid by the selected option, `wanted`
  /// being the count asked for. Rewrites `blanks` for Mirror and by Box; a
  /// Manual template that cannot be used is reported and the option becomes
  /// Random. Returns the blank cell count.
  int applyBlankDistribution(CreateSettings& settings, int wanted);
  /// Fills again, unit by unit in cell order, every blank whose removal lets
  /// the grid's puzzle have a second solution; `solution` holds the completed
  /// grid (81 digits). Mirror units are the pairs through the centre. Returns
  /// the blank cell count.
  int keepOneSolution(const std::string& solution, BlankDistribution distribution);
  /// The grid as 81 characters, "." for a blank.
  std::string gridText() const;
  /// Random permutation of `blankingOrders.cells` (entries 1..81).
  void shuffleCellOrder();
  /// Random permutation of `blankingOrders.boxPositions` (entries 1..9).
  void shuffleBoxPositionOrder();
  /// A digit 1..9 drawn at random.
  int randomDigit();

  /// The PuzTemp.sud record of the grid: "#001" and nine rows of digits and ".".
  std::string tempRecord() const;

  /// When set, the PuzTemp.sud records are added here instead of written one
  /// by one: a batch writes them together (appendToFile of the whole text).
  std::string* heldTempRecords = nullptr;

 private:
  /// What a creation that makes nothing gives back: the board and its run.
  struct BoardBefore {
    PuzzleGrid grid;
    std::array<int, 9> boxMissing{};
    int blanksLeft = 0;
    bool boardFromFile = false;
    SolveRun run;
  };
  /// The command once the blank count passed, while the creation is the run
  /// under way; returns what to tell the user afterwards ("" for nothing).
  std::string createWithin(const CreateSettings& settings, CreateResult& result);
  BoardBefore keepBoard() const;
  void restoreBoard(const BoardBefore& before);
  void blankCell(int cell);
  int blankCount() const;
  void blankMirror(CreateSettings& settings, int wanted);
  void blankByBox(CreateSettings& settings, int wanted);
  void blankRandom(int wanted);
  /// Blanks by the template; false (after telling the user) when it cannot be used.
  bool blankByTemplate(const std::optional<std::string>& manualTemplate);
  void makeKeptCellsGivens();
  void finishView();

  Session& s;
};

/// The blank count a `TotBlanks` text asks for: the number it starts with
/// (leadingNumber), held to -1..1000 since a count far out of range only needs
/// to stay out of range; nothing when the text does not start with a number.
std::optional<int> typedBlanks(std::string_view text);

}  // namespace tessaly
