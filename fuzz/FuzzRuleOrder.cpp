// The rule-order question (Rules menu). Input: byte 0 chooses the order in
// force before it; the rest is the user's answers, one a line, a line "\x01"
// standing for Cancel; when the answers run out the user cancels.
//
// Invariants: the dialog ends on the first empty, cancelled, "0" or
// acceptable answer and keeps the order it was given, a random order or that
// answer; every other answer gets "Rules are 2 to 6 only" and is asked again.
// A solve with the chosen order then ends with the puzzle's one solution or
// with a message.

#include <string>

#include "FuzzSupport.h"
#include "model/Configuration.h"
#include "model/Services.h"
#include "solver/ReadPuzzle.h"
#include "solver/SolverEngine.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

bool acceptable(const std::string& answer) {
  for (char ch : answer)
    if (ch < '1' || ch > '6') return false;
  return true;
}

struct Outcome {
  std::string order;
  std::size_t refusals = 0;
};

Outcome reference(std::string order, const std::vector<std::optional<std::string>>& answers) {
  Outcome out;
  for (const auto& answer : answers) {
    if (!answer || answer->empty()) break;
    if (*answer == "0") {
      order.clear();
      break;
    }
    if (acceptable(*answer)) {
      order = *answer;
      break;
    }
    ++out.refusals;
  }
  out.order = order;
  return out;
}

/// The easy puzzle's solution, found once with the default order.
const std::string& solution(const std::string& collection) {
  static const std::string solved = [&] {
    ScriptedUserInterface ui;
    SeededRandom random{1};
    Session s{Services{&ui, nullptr, nullptr, nullptr, &random}};
    s.folders.output = scratchFolder();
    readPuzzle(s, collection, 1);
    SolverEngine(s).solveCommand();
    return s.grid.valueCode();
  }();
  return solved;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::string collection = scratchFolder() + "easy.sud";
  static const bool made = [&] {
    std::string text = "#1\r\n";
    for (int r = 0; r < 9; ++r) text += std::string(kEasyPuzzle.substr(std::size_t(r) * 9, 9)) + "\r\n";
    writeBytes(collection, text);
    return true;
  }();
  (void)made;

  std::vector<std::optional<std::string>> answers;
  const std::string text = bytesOf(data + 1, size - 1);
  for (const std::string& line : referenceLines(text))
    answers.push_back(line == "\x01" ? std::nullopt : std::optional<std::string>(line));
  static const char* const kBefore[] = {kDefaultRuleOrder, "", "65432", "1"};
  const std::string before = kBefore[data[0] % 4];

  ScriptedUserInterface ui;
  SeededRandom random{data[0]};
  Session s{Services{&ui, nullptr, nullptr, nullptr, &random}};
  s.folders.output = scratchFolder();
  s.config.RuleOrder = before;
  ui.inputs.assign(answers.begin(), answers.end());
  ruleOrderDialog(s);

  const Outcome expected = reference(before, answers);
  FUZZ_CHECK(s.config.RuleOrder == expected.order);
  FUZZ_CHECK(ui.messages.size() == expected.refusals);
  for (const std::string& m : ui.messages) FUZZ_CHECK(m == "Rules are 2 to 6 only");

  // A solve with that order.
  ui.messages.clear();
  FUZZ_CHECK(readPuzzle(s, collection, 1));
  SolverEngine(s).solveCommand();
  FUZZ_CHECK(!ui.messages.empty() && ui.messages.back() == "Done");
  if (s.grid.filledCount() == kCells) FUZZ_CHECK(s.grid.valueCode() == solution(collection));
  return 0;
}
