// Permu.txt, read at start-up. Input: the file.
//
// Invariants: the table holds the file's first lines, at most 84, each as it
// stands; start-up goes on to count the default collection whatever the table
// holds.

#include <string>

#include "FuzzSupport.h"
#include "model/Configuration.h"
#include "model/FileUtil.h"
#include "model/Services.h"
#include "model/Startup.h"

using namespace tessaly;
using namespace tessaly::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string appDir = scratchFolder() + "app/";
  static const bool made = [&] {
    makeFolder(appDir);
    writeBytes(appDir + kDefaultPuzzleFileName, "#1\r\n#2\r\n");
    return true;
  }();
  (void)made;
  const std::string text = bytesOf(data, size);
  writeBytes(appDir + kPermutationFileName, text);

  ScriptedUserInterface ui;
  Session s{Services{&ui}};
  s.writesConfiguration = false;
  startUp(s, appDir);

  std::vector<std::string> lines = referenceLines(text);
  if (lines.size() > std::size_t(kPermutationItems)) lines.resize(std::size_t(kPermutationItems));
  FUZZ_CHECK(s.PermutationTable == lines);
  FUZZ_CHECK(ui.messages.empty());
  FUZZ_CHECK(s.collection.CurrentFile == appDir + kDefaultPuzzleFileName);
  FUZZ_CHECK(s.collection.TotalPuzzles == 2);
  FUZZ_CHECK(s.PuzzleTitle == "Total Puzzles 2");
  return 0;
}
