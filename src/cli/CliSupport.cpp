#include "cli/CliSupport.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <limits>

#include "model/Configuration.h"
#include "model/FileUtil.h"

#include "solver/BoardHistory.h"
#include "solver/SolverEngine.h"
#include "solver/Techniques.h"

namespace tessaly::cli {

void StderrUserInterface::message(const std::string& text) {
  std::string escaped;
  for (char ch : text) {
    if (ch == '\n')
      escaped += "\\n";
    else
      escaped.push_back(ch);
  }
  std::cerr << "message: " << escaped << '\n';
}

bool StderrUserInterface::question(const std::string& text) {
  message(text);
  return true;
}

CliSession::CliSession(const PuzzleOptions& options) {
  if (options.seed)
    m_random = std::make_unique<SeededRandom>(*options.seed);
  else
    m_random = std::make_unique<ClockMixedRandom>(m_clock);
  Services services;
  services.ui = &m_ui;
  services.clock = &m_clock;
  services.random = m_random.get();
  m_session = std::make_unique<Session>(services);
  m_session->writesConfiguration = false;
  // The event log goes to the working folder, or to the user's documents when
  // the working folder cannot take it.
  std::error_code ec;
  m_session->folders.output = chooseOutputFolder(std::filesystem::current_path(ec).string(),
                                                 xdgUserFolders([](const char* name) { return std::getenv(name); }));
  if (options.ruleOrder) m_session->config.RuleOrder = *options.ruleOrder;
  if (options.maxTries) m_session->config.MaxTries = *options.maxTries;
  m_session->controls.techniques = options.techniques;
}

std::optional<TechniqueSet> takeTechniques(Arguments& args) {
  std::string names;
  bool present = false;
  if (!takeOption(args, "--techniques", names, present)) return std::nullopt;
  if (!present) return TechniqueSet::rulesOnly();
  const std::optional<TechniqueSet> set = parseTechniqueSet(names);
  if (!set)
    std::cerr << "tessaly-cli: --techniques takes six, all or a comma-separated list of: " << techniqueNameList()
              << '\n';
  return set;
}

bool takeOption(Arguments& args, const std::string& name, std::string& value, bool& present) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (args[i] != name) continue;
    if (i + 1 >= args.size()) {
      std::cerr << "tessaly-cli: " << name << " needs a value\n";
      return false;
    }
    value = args[i + 1];
    present = true;
    args.erase(args.begin() + long(i), args.begin() + long(i) + 2);
    return true;
  }
  return true;
}

bool takeFlag(Arguments& args, const std::string& name) {
  for (std::size_t i = 0; i < args.size(); ++i)
    if (args[i] == name) {
      args.erase(args.begin() + long(i));
      return true;
    }
  return false;
}

bool parseInt(const std::string& text, long long& out, bool negative) {
  const bool minus = negative && !text.empty() && text[0] == '-';
  const std::string_view digits = std::string_view(text).substr(minus ? 1 : 0);
  if (digits.empty()) return false;
  long long n = 0;
  for (char ch : digits) {
    if (ch < '0' || ch > '9') return false;
    if (n > (std::numeric_limits<long long>::max() - (ch - '0')) / 10) return false;
    n = n * 10 + (ch - '0');
  }
  out = minus ? -n : n;
  return true;
}

std::optional<long long> wholeNumber(const std::string& text, long long lowest, long long highest) {
  long long n = 0;
  if (!parseInt(text, n, lowest < 0) || n < lowest || n > highest) return std::nullopt;
  return n;
}

bool takeRuleOrder(Arguments& args, std::optional<std::string>& order) {
  std::string text;
  bool present = false;
  if (!takeOption(args, "--rule-order", text, present)) return false;
  if (!present) return true;
  if (text == "0") {
    order = std::string();
    return true;
  }
  if (!isAcceptableRuleOrder(text)) {
    std::cerr << "tessaly-cli: --rule-order takes the rules' numbers, digits 1 to 6 (0 for a random order)\n";
    return false;
  }
  order = text;
  return true;
}

bool writeOut(const std::string& text) {
  std::cout << text;
  std::cout.flush();
  if (std::fflush(stdout) == 0 && !std::ferror(stdout) && std::cout) return true;
  const int error = errno;
  std::cerr << "tessaly-cli: cannot write standard output: " << systemReason(error ? error : EIO) << '\n';
  return false;
}

std::optional<PuzzleOptions> parsePuzzleOptions(Arguments& args, const char* usage) {
  PuzzleOptions options;
  options.raw = takeFlag(args, "--raw");
  std::string seed, tries;
  bool hasSeed = false, hasTries = false;
  if (!takeOption(args, "--seed", seed, hasSeed) || !takeRuleOrder(args, options.ruleOrder) ||
      !takeOption(args, "--max-tries", tries, hasTries))
    return std::nullopt;
  long long n = 0;
  if (hasSeed) {
    if (!parseInt(seed, n) || n < 0) {
      std::cerr << "tessaly-cli: --seed needs a non-negative whole number\n";
      return std::nullopt;
    }
    options.seed = static_cast<unsigned long long>(n);
  }
  const std::optional<TechniqueSet> techniques = takeTechniques(args);
  if (!techniques) return std::nullopt;
  options.techniques = *techniques;
  if (hasTries) {
    if (!parseInt(tries, n) || n < 0 || n > 2000000000) {
      std::cerr << "tessaly-cli: --max-tries needs a non-negative whole number\n";
      return std::nullopt;
    }
    options.maxTries = int(n);
  }
  if (args.size() < 2) {
    std::cerr << "Usage: " << usage << '\n';
    return std::nullopt;
  }
  options.file = args[0];
  if (!parseInt(args[1], n) || (n < 1 && n != -1) || n > 2000000000) {
    std::cerr << "tessaly-cli: the puzzle number must be 1 or more, or -1 for the last\n";
    return std::nullopt;
  }
  options.number = int(n);
  args.erase(args.begin(), args.begin() + 2);
  return options;
}

void printLogAndGrid(Session& session, bool raw) {
  std::string out;
  for (int n = 1; n <= session.log.TotalLines(); ++n) {
    if (raw)
      out += session.log.listed(n);
    else
      out += session.log.text(n);
    out += '\n';
  }
  out += "grid:\n";
  out += session.grid.valueCode();
  out += '\n';
  std::cout << out;
}

bool printBoardAtLine(const Session& session, long long line) {
  const int lines = session.log.TotalLines();
  if (line < 1 || line > lines) {
    std::cerr << "tessaly-cli: --board-at " << line << " is not a line of the log (1 to " << lines << ")\n";
    return false;
  }
  const PuzzleGrid board = boardAtLine(session.run.history, int(line));
  std::string values = "values: ", choices = "choices:";
  for (int c = 1; c <= kCells; ++c) {
    values += char('0' + board[c].value);
    choices += ' ';
    if (board[c].candidates.empty())
      choices += '-';
    else
      board[c].candidates.appendText(choices);
  }
  std::cout << values << '\n' << choices << '\n';
  return true;
}

bool requireFile(const std::string& path) {
  const std::string problem = readProblem(path);
  if (problem.empty()) return true;
  if (problem == "no such file")
    std::cerr << "tessaly-cli: no such file: " << path << '\n';
  else
    std::cerr << "tessaly-cli: " << couldNotReadText(path, problem) << '\n';
  return false;
}

bool gridSolved(Session& session) {
  return session.grid.filledCount() == kCells && SolverEngine(session).givensAreValid();
}

}  // namespace tessaly::cli
