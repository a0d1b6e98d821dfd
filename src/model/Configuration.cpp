#include "model/Configuration.h"

#include <charconv>
#include <optional>
#include <vector>

#include "model/FileUtil.h"
#include "model/Session.h"
#include "model/Text.h"

namespace tessaly {

namespace {

constexpr const char* kCrLf = "\r\n";

std::string_view trimBlanks(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && (text[b] == ' ' || text[b] == '\t')) ++b;
  while (e > b && (text[e - 1] == ' ' || text[e - 1] == '\t')) --e;
  return text.substr(b, e - b);
}

// Line 1 is written as " 250 ", so blanks around the number are part of the
// format. What is left must be a whole number (optional sign, digits only) that
// fits an int and is not negative. Anything else (an empty line, letters, a
// fraction, a number too large, a negative one) counts as garbled: reading
// stops there and, as it is the first line, every value keeps its default. A
// garbled count must not turn into 0 or less, which would make every solve
// give up at once.
std::optional<int> readMaxTries(std::string_view line) {
  std::string_view t = trimBlanks(line);
  if (!t.empty() && t[0] == '+') t.remove_prefix(1);
  if (t.empty()) return std::nullopt;
  int value = 0;
  auto [ptr, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
  if (ec != std::errc() || ptr != t.data() + t.size() || value < 0) return std::nullopt;
  return value;
}

}  // namespace

std::string configurationPath(const Session& session) {
  return session.folders.configFolder(session.appDir) + kConfigurationFileName;
}

void readConfiguration(Session& session) {
  std::string name;  // the remembered collection; "" when the file ends before line 4
  if (auto content = readWholeFile(configurationPath(session))) {
    std::vector<std::string> lines = splitLines(*content);
    // Each step needs its line; a missing or unusable line ends the reading and
    // keeps what was read so far.
    do {
      if (lines.size() < 1) break;
      auto maxTries = readMaxTries(lines[0]);
      if (!maxTries) break;
      session.config.MaxTries = *maxTries;
      if (lines.size() < 2) break;
      session.config.RuleOrder = std::string(trimBlanks(lines[1]));
      if (lines.size() < 3) break;
      session.config.ColourSchemeFile = std::string(trimBlanks(lines[2]));
      if (lines.size() < 4) break;
      name = std::string(trimBlanks(lines[3]));
      // No file name holds a NUL byte; the system would take the name only up
      // to it, and the name written back would not be the one read.
      if (name.find('\0') != std::string::npos) name.clear();
    } while (false);
  }
  // The collection is always taken from the application directory; an empty
  // name gives the directory itself, which has no file length, so the default
  // collection is used.
  session.collection.CurrentFile = session.appDir + name;
  if (fileLength(session.collection.CurrentFile) <= 0) session.collection.CurrentFile = session.appDir + kDefaultPuzzleFileName;
}

std::string configurationText(const Session& session) {
  std::string text;
  text += num(session.config.MaxTries) + " " + kCrLf;
  text += session.config.RuleOrder + kCrLf;
  text += session.config.ColourSchemeFile + kCrLf;
  text += fileNamePart(session.collection.CurrentFile) + kCrLf;
  return text;
}

bool writeConfiguration(Session& session) {
  std::string path = configurationPath(session);
  if (!session.folders.config.empty()) makeFolder(session.folders.config);
  const FileResult written = writeFileAtomically(path, configurationText(session));
  if (written) return true;
  session.message(couldNotWriteText(path, written));
  return false;
}

bool isAcceptableRuleOrder(std::string_view answer) {
  for (char ch : answer) {
    int rule = digitValue(ch);
    if (rule < 1 || rule > 6) return false;
  }
  return true;
}

void ruleOrderDialog(Session& session) {
  for (;;) {
    const std::string& order = session.config.RuleOrder;
    std::string setting = order.empty() ? std::string("RANDOM") : order;
    std::string prompt = std::string("Specify the order in which to apply the rules, default=23456") + "\n" +
                         "Enter 0 for a random sequence" + "\n\n" + "Current setting=" + setting;
    std::optional<std::string> answer = session.ui().textInput("How to apply Rules", prompt, "");
    if (!answer || answer->empty()) return;
    if (*answer == "0") {
      session.config.RuleOrder.clear();
      return;
    }
    if (isAcceptableRuleOrder(*answer)) {
      session.config.RuleOrder = *answer;
      return;
    }
    session.message("Rules are 2 to 6 only");
  }
}

void attemptLimitDialog(Session& session) {
  for (;;) {
    const std::string prompt = "Placements a solve may make before it gives up (" + std::to_string(kLeastMaxTries) +
                               " to " + std::to_string(kMostMaxTries) + ")";
    const std::optional<std::string> answer =
        session.ui().textInput("Attempt limit", prompt, std::to_string(session.config.MaxTries));
    if (!answer || trimBlanks(*answer).empty()) return;
    const std::optional<int> limit = readMaxTries(*answer);
    if (limit && *limit >= kLeastMaxTries && *limit <= kMostMaxTries) {
      session.config.MaxTries = *limit;
      writeConfiguration(session);
      return;
    }
    session.message("The attempt limit is a whole number from " + std::to_string(kLeastMaxTries) + " to " +
                    std::to_string(kMostMaxTries));
  }
}

}  // namespace tessaly
