#pragma once
// Quorrel.cfg, the rule-order and attempt-limit dialogs and Permu.txt.
//
// Quorrel.cfg lives in the application directory and holds four lines, CR LF
// ended, in this order:
//   1. MaxTries, written with one blank before and one after (" 250 ")
//   2. RuleOrder, e.g. 23456; an empty line means a random order
//   3. ColourSchemeFile, or an empty line
//   4. the current collection's file name, without its folder
// The collection on line 4 is always looked for in the application directory.

#include <string>
#include <string_view>

namespace tessaly {

class Session;

inline constexpr const char* kConfigurationFileName = "Quorrel.cfg";
inline constexpr const char* kDefaultPuzzleFileName = "Puzzles.sud";
inline constexpr const char* kPermutationFileName = "Permu.txt";

/// appDir + "Quorrel.cfg".
std::string configurationPath(const Session& session);

/// Reads Quorrel.cfg into session.config and sets CurrentFile to appDir + the
/// remembered name, or appDir + "Puzzles.sud" when that file is missing or
/// empty. A missing, short or garbled file is not reported: reading stops at the
/// first line that cannot be used, values read before it are kept and the rest
/// keep the values they had (the defaults at start-up).
void readConfiguration(Session& session);

/// Writes Quorrel.cfg from session.config and the name part of CurrentFile.
/// On failure shows "Could not write file: " + path with the reason and returns false.
bool writeConfiguration(Session& session);

/// The text of Quorrel.cfg for the session's values (what writeConfiguration writes).
std::string configurationText(const Session& session);

/// True when every character of the answer reads as 1..6 (a non-digit reads as 0).
/// Repeats, any length and the digit 1 all pass; the solve step decides what they mean.
bool isAcceptableRuleOrder(std::string_view answer);

/// The rule-order dialog (menu entry `mnuRules`): asks until the answer is empty
/// (or cancelled: RuleOrder unchanged), "0" (random order: RuleOrder "") or a
/// text that passes isAcceptableRuleOrder (stored as typed). Any other answer
/// shows "Rules are 2 to 6 only" and asks again. The new order reaches
/// Quorrel.cfg with the next writeConfiguration.
void ruleOrderDialog(Session& session);

/// The attempt limits the attempt-limit dialog takes.
inline constexpr int kLeastMaxTries = 1;
inline constexpr int kMostMaxTries = 100000000;

/// The attempt-limit dialog (Options, "Attempt limit..."): asks for MaxTries,
/// showing the present one, until the answer is empty (or cancelled: nothing
/// changes) or a whole number from kLeastMaxTries to kMostMaxTries, which
/// becomes MaxTries and is written to Quorrel.cfg at once. Any other answer
/// is told and asked again.
void attemptLimitDialog(Session& session);

}  // namespace tessaly
