// tessaly-cli create: makes new puzzles as the Create command does, appends
// each to PuzTemp.sud in the current folder (and, with --into, saves it into a
// collection), and prints each as nine rows followed by an empty line.

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <limits>
#include <vector>

#include "cli/CliSupport.h"
#include "cli/Usage.h"
#include "create/Creation.h"
#include "create/EntryDialogs.h"
#include "model/CollectionFile.h"
#include "model/FileUtil.h"
#include "solver/Techniques.h"

namespace tessaly::cli {

namespace {

/// The largest template read: nine lines of nine cells with room for blanks
/// and comments; a device or a huge file is not read into memory.
constexpr long long kMaxTemplateBytes = 64 * 1024;
/// Created puzzles written together.
constexpr long long kChunk = 1000;

int usageError(const std::string& text) {
  std::cerr << "tessaly-cli: " << text << "\nUsage: " << usageLine("create") << '\n';
  return kExitUsage;
}

std::optional<BlankDistribution> distributionNamed(const std::string& name) {
  if (name == "mirror") return BlankDistribution::Mirror;
  if (name == "box") return BlankDistribution::ByBox;
  if (name == "random") return BlankDistribution::Random;
  if (name == "manual") return BlankDistribution::Manual;
  return std::nullopt;
}

std::optional<long long> wholeNumber(const std::string& text) {
  return cli::wholeNumber(text, std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max());
}

/// The grid's nine rows (digit or ".") and an empty line.
std::string gridRows(const Session& session) {
  std::string out;
  for (int r = 1; r <= 9; ++r) {
    for (int c = 1; c <= 9; ++c) {
      const int v = session.grid[CellNumber[std::size_t(r)][std::size_t(c)]].value;
      out.push_back(v ? char('0' + v) : '.');
    }
    out.push_back('\n');
  }
  out.push_back('\n');
  return out;
}

}  // namespace

int createCommand(const Arguments& arguments) {
  Arguments args = arguments;
  std::string blanks, distribution, templateFile, count = "1", into, seed, tries, grade, gradeTries, needs;
  bool hasBlanks = false, hasDistribution = false, hasTemplate = false, hasCount = false, hasInto = false,
       hasSeed = false, hasTries = false, hasGrade = false, hasGradeTries = false, hasNeeds = false;
  const bool unique = takeFlag(args, "--unique");
  if (!takeOption(args, "--blanks", blanks, hasBlanks) ||
      !takeOption(args, "--distribution", distribution, hasDistribution) ||
      !takeOption(args, "--template", templateFile, hasTemplate) || !takeOption(args, "--count", count, hasCount) ||
      !takeOption(args, "--into", into, hasInto) || !takeOption(args, "--seed", seed, hasSeed) ||
      !takeOption(args, "--max-tries", tries, hasTries) || !takeOption(args, "--grade", grade, hasGrade) ||
      !takeOption(args, "--grade-tries", gradeTries, hasGradeTries) || !takeOption(args, "--needs", needs, hasNeeds))
    return kExitUsage;
  const bool hasTechniques = std::find(args.begin(), args.end(), "--techniques") != args.end();
  std::optional<TechniqueSet> techniques = takeTechniques(args);
  if (!techniques) return kExitUsage;
  if (!args.empty()) return usageError("unexpected argument '" + args[0] + "'");
  if (!hasBlanks || !hasDistribution) return usageError("--blanks and --distribution are needed");

  CreateSettings settings;
  // The blank count is read as the window reads its box (a number, then
  // anything); the Create command refuses a count out of range, or no number
  // at all, with its own messages.
  settings.blanks = typedBlanks(blanks);
  const auto chosen = distributionNamed(distribution);
  if (!chosen) return usageError("--distribution takes mirror, box, random or manual");
  settings.distribution = *chosen;
  settings.uniqueOnly = unique;
  if (hasGrade) {
    const auto n = wholeNumber(grade);
    if (!n || *n < 1 || *n > 5) return usageError("--grade needs a grade from 1 to 5");
    settings.targetGrade = int(*n);
  }
  if (hasNeeds) {
    // A technique asked for is graded with every technique unless a set was given.
    const std::optional<TechniqueSet> named = parseTechniqueSet(needs);
    const auto row = std::find_if(kTechniques.begin(), kTechniques.end(),
                                  [&](const TechniqueInfo& t) { return t.cliName == needs; });
    if (!named || row == kTechniques.end() || row->family == TechniqueFamily::Rules)
      return usageError("--needs takes one of: " + techniqueNameList());
    if (!hasTechniques) techniques = TechniqueSet::all();
    if (!techniques->has(row->id)) return usageError("--needs names a technique that --techniques leaves out");
    settings.targetTechnique = row->id;
  }
  if (hasGradeTries) {
    const auto n = wholeNumber(gradeTries);
    if (!hasGrade && !hasNeeds) return usageError("--grade-tries goes with --grade or --needs");
    if (!n || *n < 1 || *n > 1000000) return usageError("--grade-tries needs a whole number from 1 to 1000000");
    settings.gradeTries = int(*n);
  }

  const auto puzzles = wholeNumber(count);
  if (!puzzles || *puzzles < 1 || *puzzles > 1000000) return usageError("--count needs a whole number of 1 or more");

  PuzzleOptions options;
  if (hasSeed) {
    const auto n = wholeNumber(seed);
    if (!n || *n < 0) return usageError("--seed needs a non-negative whole number");
    options.seed = static_cast<unsigned long long>(*n);
  }
  if (hasTries) {
    const auto n = wholeNumber(tries);
    if (!n || *n < 0 || *n > 2000000000) return usageError("--max-tries needs a non-negative whole number");
    options.maxTries = int(*n);
  }
  options.techniques = *techniques;
  CliSession cli(options);
  Session& session = cli.session();

  if (hasTemplate) {
    if (settings.distribution != BlankDistribution::Manual)
      return usageError("--template goes with --distribution manual");
    if (std::string problem = readProblem(templateFile); !problem.empty())
      return usageError("cannot read template file: " + templateFile + " (" + problem + ")");
    const auto text = readWholeFile(templateFile, kMaxTemplateBytes);
    if (!text)
      return usageError("cannot read template file: " + templateFile + " (larger than " +
                        std::to_string(kMaxTemplateBytes / 1024) + " KB, or it could not be read)");
    // A template the dialog would refuse is told with the dialog's message; the
    // creation then falls back to random placement, as in the window.
    settings.manualTemplate = templateEntryOk(session, *text);
  } else if (settings.distribution == BlankDistribution::Manual) {
    settings.manualTemplate = checkTemplateEntry(defaultTemplateText()).accepted;
  }

  std::error_code ec;
  session.appDir = std::filesystem::current_path(ec).string() + "/";
  if (hasInto) session.collection.CurrentFile = into;

  // The batch is kept in memory and written in chunks: PuzTemp.sud's records
  // and the puzzles for --into each in one append, so a batch costs its
  // puzzles and not a read of the collection per puzzle. A chunk bounds what
  // an interrupted run loses.
  PuzzleCreator creator(session);
  std::string tempRecords;
  std::vector<std::string> intoPuzzles;
  creator.heldTempRecords = &tempRecords;
  const auto flush = [&]() {
    if (!tempRecords.empty()) {
      const std::string path = tempCollectionPath(session);
      if (const FileResult written = appendToFile(path, tempRecords); !written)
        session.message(couldNotWriteText(path, written));
      tempRecords.clear();
    }
    if (intoPuzzles.empty()) return true;
    FileResult written;
    const bool saved = appendPuzzles(into, intoPuzzles, &written).has_value();
    intoPuzzles.clear();
    if (!saved) session.message(couldNotWriteText(into, written));
    return saved;
  };
  bool allCreated = true;
  for (long long i = 1; i <= *puzzles; ++i) {
    const CreateResult result = creator.createCommand(settings);
    // A refused count is a usage error: the Create command's message, then the usage.
    if (result.outcome == CreateResult::Outcome::Refused) {
      flush();
      std::cerr << "Usage: " << usageLine("create") << '\n';
      return kExitUsage;
    }
    settings = result.settings;
    if (!result.created()) {
      allCreated = false;
      // A grade out of reach is told once: the puzzles after it would fail alike.
      if (result.outcome == CreateResult::Outcome::GradeNotReached) break;
      continue;
    }
    if (hasInto) intoPuzzles.push_back(givensText(session));
    if (i % kChunk == 0 && !flush()) return kExitFailure;
    if (!writeOut(gridRows(session))) {
      flush();
      return kExitFailure;
    }
  }
  if (!flush()) return kExitFailure;
  return allCreated ? kExitOk : kExitFailure;
}

}  // namespace tessaly::cli
