#include "solver/Narrator.h"

#include <algorithm>

#include "model/Session.h"
#include "model/Text.h"
#include "solver/BoardHistory.h"
#include "solver/SolverEngine.h"
#include "solver/Techniques.h"

namespace tessaly {

namespace {

constexpr char digitChar(int digit) { return char('0' + digit); }

const char* areaWord(AreaKind kind) {
  return kind == AreaKind::Row ? "row" : kind == AreaKind::Col ? "col" : "box";
}

std::string ruleReason(const Finding& f) {
  const int row = CellRow[f.cell], col = CellCol[f.cell];
  switch (f.rule) {
    case 2:
      return sentence("Rule 2: in box", Num{f.box}, ", choice", Num{f.digit}, " appears once in ", areaWord(f.areaKind),
                      ' ', digitChar(f.area));
    case 3:
      return sentence("Rule 3: ", areaWord(f.areaKind), Num{f.area}, " has duplicate pair");
    case 4:
      return sentence("Rule 4: box ", digitChar(f.box), ", choice", Num{f.digit}, " occurs in ", areaWord(f.areaKind),
                      Num{f.area}, " of this box only");
    case 5:
      // Every area says "occurs only once in row", and the box sentence joins
      // ",cell" without a blank.
      return sentence("Rule 5: in ", areaWord(f.areaKind), Num{f.area}, ", choice", Num{f.digit},
                      " occurs only once in row", Num{row}, ", col", Num{col},
                      f.areaKind == AreaKind::Box ? ",cell" : ", cell", Num{f.cell}, " (", f.before.text(), ")");
    case 6:
      return sentence("Rule 6:", Num{f.count}, " choice ", f.removed.text(), " found", Num{f.count}, " times in ",
                      areaWord(f.areaKind), Num{f.area});
    default:
      return {};
  }
}

std::string setCellValue(const Finding& f) {
  return sentence("Set row", Num{CellRow[f.cell]}, ", col", Num{CellCol[f.cell]}, ", cell", Num{f.cell}, " to value",
                  Num{f.digit});
}

}  // namespace

std::string narrate(const Finding& f) {
  using K = FindingKind;
  const int row = CellRow[f.cell], col = CellCol[f.cell];
  switch (f.kind) {
    case K::BlankCount:
      return sentence("There are", Num{f.count}, " blank cells in the puzzle");
    case K::RuleStart:
      return sentence("Apply Rule", Num{f.rule});
    case K::RuleEnd:
      return sentence("End Rule ", digitChar(f.rule), ": made", Num{f.count}, " reductions");
    case K::RuleNoReduction:
      return sentence("End Rule ", digitChar(f.rule), ": no reductions");
    case K::DuplicateRemoved:
      return sentence("Remove ", areaWord(f.areaKind), " duplicate ", digitChar(f.digit), " from choice ",
                      f.before.text(), " in row", Num{row}, ", col", Num{col}, ", cell", Num{f.cell});
    case K::NoSingles:
      return "No additional single values found";
    case K::SinglesFound:
      return sentence("Place additional", Num{f.count}, " single values generated",
                      f.solved ? ", the puzzle appears to have been solved" : "");
    case K::RuleReason:
      return ruleReason(f);
    case K::RuleRemoval:
      // Rule 2 names the cell's row and column, each after two blanks.
      if (f.rule == 2)
        return sentence("Remove ", f.removed.text(), " from choice ", f.before.text(), " in row ", Num{row}, ", col ",
                        Num{col}, ", cell", Num{f.cell});
      return sentence("Remove ", f.removed.text(), " from choice ", f.before.text(), " in cell", Num{f.cell});
    case K::HiddenSingleSet:
    case K::Placement:
      return setCellValue(f);
    case K::GuessPlacement: {
      // The digit tried first leads, the untried ones follow in ascending order.
      CandidateSet untried = f.before;
      untried.remove(f.digit);
      return sentence(setCellValue(f), ", multiple choice=", digitChar(f.digit), untried.text());
    }
    case K::GuessSaved:
      return "Current solution saved in case we revert back to other choices";
    case K::MultipleSolutions:
      return "This puzzle might have multiple solutions";
    case K::Solved:
      return "The puzzle is solved";
    case K::SolvedPlaceRemaining:
      return sentence("The puzzle is solved, will place remaining", Num{f.count}, " known values in grid");
    case K::RulesAppliedGuessing:
      return "All rules applied, no new singular choices were found, must resort to guesswork now";
    case K::RulesAppliedSingles:
      return sentence("All rules applied,", Num{f.count}, " new singular choices found");
    case K::RulesAppliedSolved:
      return sentence("All rules applied, the puzzle is solved, will place remaining", Num{f.count},
                      " known values in grid");
    case K::NotValid:
      return "Solution not valid, must retract and redo the last guess with a different choice";
    case K::NoSolution:
      return "There appears to be no possible solution to this puzzle.";
    case K::CheckPlacements:
      return "Please check you number placements.";
    case K::DeadCell:
      return sentence("OOPs, this placement will leave cell", Num{f.cell}, " in box", Num{CellBox[f.cell]},
                      " with no valid options, must retract");
    case K::Retry:
      return sentence("Retry row", Num{row}, ", col", Num{col}, ", cell", Num{f.cell}, " with value", Num{f.digit},
                      " instead");
    case K::Outcome:
      return f.count > 0 ? sentence("Solved with", Num{f.count}, " retries") : std::string("Solved with no re-tries");
    case K::StatisticsRow:
      return sentence("   Rule ", digitChar(f.rule), ' ', padded(f.count, 3), std::string(29, ' '),
                      padded(f.reductions, 3));
    case K::TechniqueFound:
      return {};  // told by narrateStep, from the run's record of the finding
    case K::TechniqueRemoval:
      return sentence("Remove ", f.removed.text(), " from choice ", f.before.text(), " in row", Num{row}, ", col",
                      Num{col}, ", cell", Num{f.cell});
    case K::TechniqueSetValue:
      return setCellValue(f);
    case K::TechniqueStatisticsRow: {
      // The counts stand under the rules' columns: the reductions start where
      // the rules' rows have theirs.
      std::string text = sentence("   ", techniqueInfo(Technique(f.technique)).name, ' ', padded(f.count, 3));
      text.resize(std::max<std::size_t>(text.size() + 2, 42), ' ');
      return text + padded(f.reductions, 3);
    }
  }
  return {};
}

int narrationStyle(FindingKind kind) {
  using K = FindingKind;
  switch (kind) {
    case K::RuleStart:
    case K::RuleEnd:
    case K::RuleNoReduction:
    case K::NoSingles:
    case K::RuleReason:
    case K::RuleRemoval:
    case K::HiddenSingleSet:
    case K::TechniqueFound:
    case K::TechniqueRemoval:
    case K::TechniqueSetValue:
      return kStyleRule;
    case K::MultipleSolutions:
    case K::RulesAppliedGuessing:
    case K::NotValid:
    case K::NoSolution:
    case K::CheckPlacements:
    case K::DeadCell:
    case K::Retry:
      return kStyleWarning;
    default:
      return kStyleNormal;
  }
}

bool narrationWaits(FindingKind kind) {
  using K = FindingKind;
  return kind == K::DuplicateRemoved || kind == K::RuleRemoval || kind == K::HiddenSingleSet ||
         kind == K::Placement || kind == K::GuessPlacement || kind == K::TechniqueFound ||
         kind == K::TechniqueRemoval || kind == K::TechniqueSetValue;
}

bool announcesSolved(const Finding& f) {
  using K = FindingKind;
  return f.kind == K::Solved || f.kind == K::SolvedPlaceRemaining || f.kind == K::RulesAppliedSolved ||
         (f.kind == K::SinglesFound && f.solved);
}

bool setsCellValue(FindingKind kind) {
  return kind == FindingKind::HiddenSingleSet || kind == FindingKind::Placement ||
         kind == FindingKind::GuessPlacement || kind == FindingKind::TechniqueSetValue;
}

void SolverEngine::write(Finding finding) {
  std::vector<Finding>& findings = s.run.findings;
  const int line = s.log.TotalLines() + 1;
  // A full log takes no line: logEvent throws before writing, and the finding
  // is not kept either.
  if (line <= EventLog::kCapacity) {
    // Findings are kept only for the lines of the log as it stands.
    if (!findings.empty() && findings.back().logLine >= line) {
      findings.clear();
      if (finding.kind != FindingKind::TechniqueFound) s.run.techniqueSteps.clear();
    }
    finding.logLine = line;
    findings.push_back(finding);
  }
  const std::string text = finding.kind == FindingKind::TechniqueFound
                               ? narrateStep(s.run.techniqueSteps.at(std::size_t(finding.count)))
                               : narrate(finding);
  writeLine(narrationStyle(finding.kind), text, narrationWaits(finding.kind));
}

void SolverEngine::writeLine(int style, std::string_view text, bool wait) {
  if (s.run.mode == RunState::Silent) return;
  const int line = s.log.TotalLines() + 1;
  if (line <= EventLog::kCapacity) recordBoard(s.run.history, s.grid, line);
  s.logEvent(style, text, wait);
}

std::string gaveUpText(int tries) { return "Tried" + num(tries) + " times, solution aborted"; }

std::string statusLine(const RunEnd& end) {
  switch (end.kind) {
    case RunEnd::Kind::None: return {};
    case RunEnd::Kind::GaveUp:
      // The ways on: a higher limit, and the further techniques while they are off.
      return gaveUpText(end.count) + (end.withTechniques
                                          ? ". To go on, raise Options > Attempt limit..."
                                          : ". To go on, raise Options > Attempt limit... or turn on Options > "
                                            "Further techniques");
    case RunEnd::Kind::NoSolution: return "There appears to be no possible solution to this puzzle.";
    case RunEnd::Kind::Solved: return narrate({.kind = FindingKind::Outcome, .count = end.count});
  }
  return {};
}

}  // namespace tessaly
