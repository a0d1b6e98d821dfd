// Where a copy of the program reads and writes its files: beside the
// executable, or (installed) from share/tessaly and the user's own folders.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "create/Creation.h"
#include "model/Configuration.h"
#include "model/Folders.h"
#include "solver/SolverEngine.h"
#include "support/TestSupport.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

TEST(Folders, UserFoldersFollowTheXdgRules) {
  struct Case {
    std::map<std::string, std::string> env;
    UserFolders expected;
  };
  const Case cases[] = {
      {{{"HOME", "/home/ann"}}, {"/home/ann/.config/Tessaly/", "/home/ann/.local/share/Tessaly/", "/home/ann/"}},
      {{{"HOME", "/home/ann"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_DATA_HOME", "/d/"}, {"XDG_DOCUMENTS_DIR", "/docs"}},
       {"/c/Tessaly/", "/d/Tessaly/", "/docs/"}},
      // Relative or empty values are ignored, as the rules say.
      {{{"HOME", "/h"}, {"XDG_CONFIG_HOME", "rel"}, {"XDG_DATA_HOME", ""}},
       {"/h/.config/Tessaly/", "/h/.local/share/Tessaly/", "/h/"}},
      {{}, {"/tmp/.config/Tessaly/", "/tmp/.local/share/Tessaly/", "/tmp/"}},
  };
  for (const Case& c : cases) {
    const UserFolders got = xdgUserFolders([&](const char* name) -> const char* {
      const auto it = c.env.find(name);
      return it == c.env.end() ? nullptr : it->second.c_str();
    });
    EXPECT_EQ(got.config, c.expected.config);
    EXPECT_EQ(got.data, c.expected.data);
    EXPECT_EQ(got.documents, c.expected.documents);
  }
}

TEST(Folders, DataBesideTheExecutableOrInShareWhenInstalled) {
  test::TempDir root;
  const std::string bin = root.file("usr/bin"), share = root.file("usr/share/tessaly");
  fs::create_directories(bin);
  // No data anywhere: the executable's own folder, so that the missing
  // collection is reported there.
  EXPECT_EQ(findDataFolder(bin), bin + "/");
  fs::create_directories(share);
  EXPECT_EQ(findDataFolder(bin), share + "/");
  EXPECT_TRUE(isInstalledDataFolder(share + "/"));
  // A portable copy keeps its data beside the executable, whatever is around it.
  test::writeFile(bin + "/Puzzles.sud", "#1\r\n");
  EXPECT_EQ(findDataFolder(bin), bin + "/");
  EXPECT_FALSE(isInstalledDataFolder(bin + "/"));
}

TEST(Folders, WhatIsWrittenGoesWhereItCan) {
  test::TempDir portable;
  const UserFolders user{"/u/config/", "/u/data/", "/u/docs/"};
  // A writable portable copy writes beside itself, output into the working folder.
  Folders folders = chooseFolders(portable.dir(), portable.path(), user);
  EXPECT_EQ(folders.config, "");
  EXPECT_EQ(folders.userData, "");
  EXPECT_EQ(folders.output, portable.dir());
  // An installed copy never writes into share/tessaly, even when it could.
  const std::string share = portable.file("share/tessaly/");
  fs::create_directories(share);
  folders = chooseFolders(share, "/", user);
  EXPECT_EQ(folders.config, "/u/config/");
  EXPECT_EQ(folders.userData, "/u/data/");
  // Started from the root or from a folder that is gone: the user's documents.
  EXPECT_EQ(folders.output, "/u/docs/");
  EXPECT_EQ(chooseOutputFolder(portable.file("gone"), user), "/u/docs/");
  EXPECT_EQ(chooseFolders(portable.file("gone/"), portable.path(), user).config, "/u/config/");
}

TEST(Folders, TheSessionWritesIntoTheChosenFolders) {
  test::TestSession t;
  Session& s = t.session;
  test::TempDir data, user;
  s.appDir = data.dir();
  s.folders = {user.file("config/Tessaly/"), user.file("share/Tessaly/"), user.dir()};
  // The configuration folder is made on the first write and read back from there.
  s.config.MaxTries = 77;
  s.collection.CurrentFile = data.file("Puzzles.sud");
  ASSERT_TRUE(writeConfiguration(s));
  EXPECT_EQ(configurationPath(s), user.file("config/Tessaly/Quorrel.cfg"));
  s.config = Configuration{};
  readConfiguration(s);
  EXPECT_EQ(s.config.MaxTries, 77);
  EXPECT_FALSE(fs::exists(data.file("Quorrel.cfg")));
  // The Solve command's log goes to the output folder.
  test::loadGivens(s, "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..");
  SolverEngine(s).solveCommand();
  EXPECT_TRUE(fs::exists(user.file("Eventlog.txt")));
  // Created puzzles are appended in the user's data folder.
  EXPECT_EQ(tempCollectionPath(s), user.file("share/Tessaly/PuzTemp.sud"));
  // A folder that cannot be written gets a message naming the file in full.
  s.folders.output = "/nonexistent-folder/";
  t.ui.messages.clear();
  SolverEngine(s).solveCommand();
  ASSERT_FALSE(t.ui.messages.empty());
  EXPECT_EQ(t.ui.messages.front(), "Could not write file: /nonexistent-folder/Eventlog.txt");
}

}  // namespace
}  // namespace tessaly
