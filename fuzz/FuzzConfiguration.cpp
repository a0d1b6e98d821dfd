// Quorrel.cfg. Input: the file.
//
// Invariants: the try count is the first line's whole number when it reads as
// one within range, else every value keeps its default; the texts are single
// lines without blanks around them; the collection is a file of the
// application folder or the default one; what is written reads back the same.

#include <charconv>
#include <string>

#include "FuzzSupport.h"
#include "model/Configuration.h"
#include "model/FileUtil.h"
#include "model/Services.h"

using namespace tessaly;
using namespace tessaly::fuzz;

namespace {

namespace fs = std::filesystem;

bool isBlank(char ch) { return ch == ' ' || ch == '\t'; }

bool singleTrimmedLine(const std::string& text) {
  if (text.find_first_of("\r\n") != std::string::npos) return false;
  return text.empty() || (!isBlank(text.front()) && !isBlank(text.back()));
}

/// The first line's count: blanks around it, an optional "+", then a whole
/// number (a sign and digits only) within 0..INT_MAX; "-0" is 0.
std::optional<int> referenceCount(const std::vector<std::string>& lines) {
  if (lines.empty()) return std::nullopt;
  std::string_view t = lines[0];
  while (!t.empty() && isBlank(t.front())) t.remove_prefix(1);
  while (!t.empty() && isBlank(t.back())) t.remove_suffix(1);
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);
  int value = 0;
  auto [ptr, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
  if (ec != std::errc() || ptr != t.data() + t.size() || value < 0) return std::nullopt;
  return value;
}

struct Reading {
  ScriptedUserInterface ui;
  Session s{Services{&ui}};
  explicit Reading(const std::string& appDir) {
    s.appDir = appDir;
    readConfiguration(s);
  }
};

bool sameFile(const std::string& a, const std::string& b) {
  std::error_code ec;
  return fs::weakly_canonical(a, ec) == fs::weakly_canonical(b, ec);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string appDir = scratchFolder() + "app/";
  static const bool made = [&] {
    makeFolder(appDir);
    // A collection the configuration may name.
    writeBytes(appDir + "mine.sud", "#1\r\n");
    return true;
  }();
  (void)made;
  const std::string text = bytesOf(data, size);
  writeBytes(appDir + kConfigurationFileName, text);

  Reading first(appDir);
  const Configuration& c = first.s.config;
  FUZZ_CHECK(first.ui.messages.empty());
  const auto count = referenceCount(referenceLines(text));
  if (count) {
    FUZZ_CHECK(c.MaxTries == *count);
  } else {
    FUZZ_CHECK(c.MaxTries == kDefaultMaxTries);
    FUZZ_CHECK(c.RuleOrder == kDefaultRuleOrder);
    FUZZ_CHECK(c.ColourSchemeFile.empty());
  }
  FUZZ_CHECK(c.MaxTries >= 0);
  FUZZ_CHECK(singleTrimmedLine(c.RuleOrder));
  FUZZ_CHECK(singleTrimmedLine(c.ColourSchemeFile));
  const std::string& file = first.s.collection.CurrentFile;
  FUZZ_CHECK(file.rfind(appDir, 0) == 0);
  FUZZ_CHECK(file == appDir + kDefaultPuzzleFileName || fileLength(file) > 0);

  // Written and read again: the same values.
  FUZZ_CHECK(writeConfiguration(first.s));
  FUZZ_CHECK(readWholeFile(appDir + kConfigurationFileName) == configurationText(first.s));
  Reading second(appDir);
  FUZZ_CHECK(second.s.config.MaxTries == c.MaxTries);
  FUZZ_CHECK(second.s.config.RuleOrder == c.RuleOrder);
  FUZZ_CHECK(second.s.config.ColourSchemeFile == c.ColourSchemeFile);
  FUZZ_CHECK(sameFile(second.s.collection.CurrentFile, file));
  return 0;
}
