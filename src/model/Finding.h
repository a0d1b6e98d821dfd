#pragma once
// What the solver found, as a record: every rule finding, deletion, placement,
// retraction and outcome the event log tells about. The solver's narrator
// (src/solver/Narrator.h) turns a finding into its sentence; readers such as
// the hints read the records instead of the sentences.

#include <cstdint>

#include "model/CandidateSet.h"
#include "model/GridTables.h"

namespace tessaly {

/// One kind per sentence form. The fields a kind uses are named beside it;
/// the row and column of `cell` come from the grid tables.
enum class FindingKind : std::uint8_t {
  BlankCount,          ///< count: the blanks of a puzzle just read
  RuleStart,           ///< rule
  RuleEnd,             ///< rule, count: its reductions (at least one)
  RuleNoReduction,     ///< rule
  DuplicateRemoved,    ///< Rule 1: areaKind, digit, before, cell
  NoSingles,           ///< Rule 1 found no single value
  SinglesFound,        ///< Rule 1: count of singles, solved when they fill every blank
  RuleReason,          ///< a rule's reason for the removal that follows (per rule below)
  RuleRemoval,         ///< rule, removed (the digits the sentence names), before, cell
  HiddenSingleSet,     ///< Rule 5 reduces cell to digit (a reduction, not a placement)
  Placement,           ///< cell, digit: a single value placed
  GuessPlacement,      ///< cell, digit, before: a guess among `before`, digit tried first
  GuessSaved,          ///< the grid is kept for a later retraction
  MultipleSolutions,   ///< the first placement of a run is a drawn guess
  Solved,              ///< every cell holds a value
  SolvedPlaceRemaining,  ///< count: every blank has one candidate left
  RulesAppliedGuessing,  ///< the rules found no new single, a guess follows
  RulesAppliedSingles,   ///< count: new singles the rules left
  RulesAppliedSolved,    ///< count: the rules left every blank one candidate
  NotValid,            ///< a placement broke the grid, the last guess is retracted
  NoSolution,          ///< nothing is left to retract
  CheckPlacements,     ///< the advice that follows NoSolution
  DeadCell,            ///< cell: a blank left without candidates, the last guess is retracted
  Retry,               ///< cell, digit: the next untried digit of the retracted guess
  Outcome,             ///< count: the guesses saved by the run (0: none)
  StatisticsRow,       ///< rule, count: times applied, reductions: total reductions
  TechniqueFound,      ///< a further technique's finding: count is its index in SolveRun::techniqueSteps
  TechniqueRemoval,    ///< technique, cell, removed, before: a digit the finding removes
  TechniqueSetValue,   ///< technique, cell, digit, before: the finding reduces the cell to the digit
  TechniqueStatisticsRow,  ///< technique, count: findings, reductions: total reductions
};

/// A rule's reason (RuleReason) by rule:
///  2: in `box`, `digit` appears in one line only (areaKind Row/Col, area);
///  3: area (areaKind, area) holds a pair of equal two-digit cells;
///  4: along a line (areaKind Col/Row, area) `digit` is possible in `box` only;
///  5: `digit` occurs once in its area (areaKind, area), at `cell` holding `before`;
///  6: `count` cells of area (areaKind, area) hold the same `removed` digits.
struct Finding {
  FindingKind kind = FindingKind::RuleStart;
  int rule = 0;                       ///< user-facing rule number 1..6
  AreaKind areaKind = AreaKind::Row;  ///< the kind of `area`
  int area = 0;                       ///< row, column or box number, as areaKind says
  int box = 0;                        ///< Rules 2 and 4: the box of the finding
  int cell = 0;                       ///< 1..81
  int digit = 0;                      ///< the digit placed, retried or reasoned about
  CandidateSet removed{};             ///< the digits a removal names
  CandidateSet before{};              ///< the cell's candidates before the finding
  int count = 0;                      ///< as the kind says
  bool solved = false;                ///< SinglesFound: the singles fill every blank
  int reductions = 0;                 ///< StatisticsRow: total reductions
  int logLine = 0;                    ///< the event-log line (1-based) it was written at
  std::uint8_t technique = 0;         ///< the further technique (Technique) of its kinds

  friend bool operator==(const Finding&, const Finding&) = default;
};

}  // namespace tessaly
