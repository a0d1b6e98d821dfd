#pragma once
// What the subcommands share: a session wired to standard error, option parsing
// and the printing of the log and the grid.

#include <memory>
#include <optional>
#include <string>

#include "cli/Commands.h"
#include "model/Services.h"
#include "model/Session.h"

namespace tessaly::cli {

/// Message boxes become "message: TEXT" lines on standard error (a line break
/// inside a message written as \n); questions are answered Yes.
class StderrUserInterface : public UserInterface {
 public:
  void message(const std::string& text) override;
  bool question(const std::string& text) override;
  std::optional<std::string> textInput(const std::string&, const std::string&, const std::string&) override {
    return std::nullopt;
  }
  std::string chooseFile(const FileRequest&) override { return {}; }
};

/// Options shared by the subcommands that read a puzzle.
struct PuzzleOptions {
  std::string file;
  int number = 0;
  bool raw = false;
  std::optional<unsigned long long> seed;
  std::optional<std::string> ruleOrder;
  std::optional<int> maxTries;
  TechniqueSet techniques = TechniqueSet::rulesOnly();
};

/// A session for the command line: default configuration (Quorrel.cfg is neither
/// read nor written), messages to standard error, the real clock, and a fixed
/// random source when a seed is given.
class CliSession {
 public:
  explicit CliSession(const PuzzleOptions& options);
  Session& session() { return *m_session; }

 private:
  StderrUserInterface m_ui;
  SystemClock m_clock;
  std::unique_ptr<RandomSource> m_random;
  std::unique_ptr<Session> m_session;
};

/// Takes "--name value" out of args; false with a message on stderr when the
/// value is missing.
bool takeOption(Arguments& args, const std::string& name, std::string& value, bool& present);
bool takeFlag(Arguments& args, const std::string& name);
/// Reads a whole decimal number: digits only, after a "-" when `negative` is
/// allowed; no "+", blanks or anything else, nor a number too large to hold. The one number
/// reader of every subcommand.
bool parseInt(const std::string& text, long long& out, bool negative = true);
/// A number from `lowest` to `highest` written as parseInt takes it (no sign
/// unless lowest is negative).
std::optional<long long> wholeNumber(const std::string& text, long long lowest, long long highest);
/// Takes "--techniques six|all|NAME,NAME,...": the six rules when absent;
/// nothing, with the valid names on standard error, when a name is unknown.
std::optional<TechniqueSet> takeTechniques(Arguments& args);
/// Parses FILE N and the shared options (--raw, --seed, --rule-order,
/// --max-tries, --techniques); the rest stays in args. Nothing on a usage error (told on stderr).
std::optional<PuzzleOptions> parsePuzzleOptions(Arguments& args, const char* usage);
/// Prints every stored log line (with its two-digit prefix when raw), then
/// "grid:" and the 81 values.
void printLogAndGrid(Session& session, bool raw);
/// Prints the board as log line `line` saw it: "values: " and the 81 values
/// (0 for an empty cell), then "choices:" and each cell's candidates after a
/// blank ("-" for none). False, with a message on standard error, when the log
/// has no such line.
bool printBoardAtLine(const Session& session, long long line);
/// True when the file is a regular file that can be opened; otherwise says
/// why on standard error ("no such file: PATH" when it is missing).
bool requireFile(const std::string& path);
/// Takes "--rule-order S": nothing when absent; "" (a random order) for 0;
/// S when the window would take it; false after a message when it would not.
bool takeRuleOrder(Arguments& args, std::optional<std::string>& order);
/// Writes the text to standard output; false after a message on standard
/// error when it could not be written (a full disk, a closed pipe).
bool writeOut(const std::string& text);
/// True when the grid is complete and no area repeats a digit.
bool gridSolved(Session& session);

}  // namespace tessaly::cli
