#pragma once
// The narrator: the sentence the event log shows for each finding, with its
// colour style and whether a stepped run pauses after it. The wording, odd
// blanks included, is what users of the program have always read.

#include <string>

#include "model/Finding.h"
#include "model/Session.h"
#include "model/TechniqueStep.h"

namespace tessaly {

/// The finding's sentence, exactly as the event log shows it.
std::string narrate(const Finding& finding);
/// The line that tells a further technique's finding: the technique and its
/// pattern, "X-Wing on 7: rows 2 and 6, cols 3 and 8".
std::string narrateStep(const TechniqueStep& step);
/// The log style (colour) its sentence is written in.
int narrationStyle(FindingKind kind);
/// Whether a stepped run waits for Next after its sentence.
bool narrationWaits(FindingKind kind);
/// Whether its sentence tells that the puzzle is solved.
bool announcesSolved(const Finding& finding);
/// "Tried N times, solution aborted": the message when a Solve gives up after N placements.
std::string gaveUpText(int tries);
/// The status line (`MesLab`) after a Solve ended so (after giving up, with the ways
/// on); "" when there is nothing to tell.
std::string statusLine(const RunEnd& end);
/// Whether its sentence is a "Set row R, col C, cell X to value V" line: the
/// placements and Rule 5's reductions to one digit.
bool setsCellValue(FindingKind kind);

}  // namespace tessaly
