// The game on the ManualSolve tab: notes, moves as commands with undo and
// redo beside the move list, nudges and Apply, game files.

#include <gtest/gtest.h>

#include <functional>

#include "play/Game.h"
#include "play/GameFile.h"
#include "play/PlayTestSupport.h"
#include "solver/Narrator.h"

namespace tessaly {
namespace {

std::string notesText(std::uint16_t notes) {
  std::string text;
  for (int d = 1; d <= 9; ++d)
    if (notes & (1u << (d - 1))) text += char('0' + d);
  return text.empty() ? "-" : text;
}

struct GameSession {
  test::ManualSession m;
  Game game{m.play};
  GameSession() { EXPECT_TRUE(m.read(test::kPe96, 1)); }
  /// The move list, cells 1, 2, 6 and 8 as "value/notes", and done/listed commands.
  std::string summary() const {
    std::string text = m.moves() + " |";
    for (int c : {1, 2, 6, 8})
      text += " " + std::to_string(m.session.grid[c].value) + "/" + notesText(game.notes()[std::size_t(c)]);
    return text + " | " + std::to_string(game.done()) + "/" + std::to_string(game.commands().size());
  }
  std::string verdict(const std::optional<Verdict>& v) const { return v ? v->text : "-"; }
  /// Selects the cell and types the digit through the game.
  std::optional<Verdict> type(int cell, int value) {
    m.play.selectCell(cell);
    return game.typed(value);
  }
};

TEST(Game, EveryChangeIsOneCommandUndoneAndRedoneWithTheMoveList) {
  GameSession g;
  Game& game = g.game;
  game.options.tellWrongMoves = true;
  struct Step {
    const char* what;
    std::function<std::string()> act;  // the verdict or "-"
    std::string verdict;
    std::string summary;
  };
  const Step steps[] = {
      {"fill in notes", [&] { return std::string(game.fillInNotes() ? "-" : "nothing"); }, "-",
       " | 0/45 0/4578 0/147 0/5789 | 1/1"},
      {"place 1 in cell 6", [&] { g.m.play.selectCell(6); return g.verdict(game.typed(1)); },
       "Right: hidden single, 1 can only go in cell 6 in box 2", "C06 = 1 | 0/45 0/4578 1/- 0/5789 | 2/2"},
      {"a swallowed key records nothing", [&] { g.m.play.selectCell(1); return g.verdict(game.typed(9)); }, "-",
       "C06 = 1 | 0/45 0/4578 1/- 0/5789 | 2/2"},
      {"note 4 out of cell 1", [&] { return g.verdict(game.typedNote(4)); }, "Careful: 4 is this cell's solution",
       "C06 = 1 | 0/5 0/4578 1/- 0/5789 | 3/3"},
      {"undo", [&] { return std::string(game.undo() ? "-" : "refused"); }, "-", "C06 = 1 | 0/45 0/4578 1/- 0/5789 | 2/3"},
      {"undo the placement", [&] { return std::string(game.undo() ? "-" : "refused"); }, "-",
       " | 0/45 0/4578 0/147 0/5789 | 1/3"},
      {"redo", [&] { return std::string(game.redo() ? "-" : "refused"); }, "-", "C06 = 1 | 0/45 0/4578 1/- 0/5789 | 2/3"},
      {"a new command drops the redo tail", [&] { return g.verdict(game.toggleNote(8, 8)); },
       "Right: hidden single, 8 can only go in cell 16 in column 7, which removes it",
       "C06 = 1 | 0/45 0/4578 1/- 0/579 | 3/3"},
      {"place 4 in cell 1", [&] { g.m.play.selectCell(1); return g.verdict(game.typed(4)); },
       "Right, but nothing forces it yet: a lucky guess", "C06 = 1, C01 = 4 | 4/- 0/578 1/- 0/579 | 4/4"},
      {"the UndoManual button is a command", [&] { game.undoButton(); return std::string("-"); }, "-",
       "C06 = 1 | 0/- 0/578 1/- 0/579 | 5/5"},
      {"undo brings the placement and its entry back", [&] { return std::string(game.undo() ? "-" : "refused"); },
       "-", "C06 = 1, C01 = 4 | 4/- 0/578 1/- 0/579 | 4/5"},
      {"Delete clears the cell", [&] { g.m.play.selectCell(1); return g.verdict(game.typed(ManualPlay::kClear)); },
       "-", "C06 = 1 | 0/- 0/578 1/- 0/579 | 5/5"},
      {"a wrong digit", [&] { return g.verdict(g.type(1, 5)); }, "This 5 is not in the solution",
       "C06 = 1, C01 = 5 | 5/- 0/78 1/- 0/79 | 6/6"},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.what);
    EXPECT_EQ(step.act(), step.verdict);
    EXPECT_EQ(g.summary(), step.summary);
  }
  EXPECT_TRUE(g.m.recorder.messages.empty());
  // Undo runs back to the start: the board is the puzzle as read.
  while (game.undo()) {
  }
  EXPECT_EQ(g.summary(), " | 0/- 0/- 0/- 0/- | 0/6");
  EXPECT_EQ(g.m.session.grid.valueCode(), g.m.session.collection.boardAsRead);
  EXPECT_FALSE(game.undo());
  game.undoButton();  // the Part's message, and nothing recorded
  EXPECT_EQ(g.m.recorder.messages, (std::vector<std::string>{"nothing to undo"}));
  EXPECT_EQ(g.summary(), " | 0/- 0/- 0/- 0/- | 0/6");
}

TEST(Game, NotesLeaveThePlacedDigitsNeighboursUnlessAskedNotTo) {
  for (bool clear : {true, false}) {
    GameSession g;
    g.game.options.clearNotesOnPlace = clear;
    g.game.fillInNotes();
    g.game.toggleNote(8, 1);  // a note the values do not rule out
    g.type(6, 1);
    EXPECT_EQ(g.summary(), clear ? "C06 = 1 | 0/45 0/4578 1/- 0/5789 | 3/3" : "C06 = 1 | 0/45 0/4578 1/- 0/15789 | 3/3");
  }
}

TEST(Game, ANudgeRisesToApplyWhichIsOneCommand) {
  GameSession g;
  Game& game = g.game;
  std::vector<int> levels;
  for (int i = 0; i < 5; ++i) levels.push_back(game.nudge().level);
  EXPECT_EQ(levels, (std::vector<int>{1, 2, 3, 4, 4}));
  EXPECT_TRUE(game.apply());
  EXPECT_EQ(g.m.moves(), "C42 = 4");
  EXPECT_FALSE(game.apply());  // Apply is offered once
  EXPECT_EQ(game.nudge().level, 1);  // the next step starts again

  // An elimination goes into the notes; a cell without notes gets the rest of its candidates.
  test::ManualSession m;
  m.load(std::string(81, '.'));
  Game fish(m.play);
  m.session.controls.techniques = TechniqueSet::all();
  fish.fillInNotes();
  for (int c : {9, 10, 12, 13, 14, 16, 17, 36, 37, 39, 40, 41, 43, 44}) fish.toggleNote(c + 1, 5);
  fish.toggleNote(21, 1);  // a cell without notes besides one
  for (int d = 2; d <= 9; ++d) fish.toggleNote(21, d);
  for (int i = 0; i < 4; ++i) fish.nudge();
  const Nudge shown = fish.nudge();
  ASSERT_EQ(shown.text, "X-Wing on 5: rows 2 and 5, cols 3 and 7");
  const std::size_t done = fish.done();
  EXPECT_TRUE(fish.apply());
  EXPECT_EQ(fish.done(), done + 1);
  EXPECT_EQ(notesText(fish.notes()[3]), "12346789");
  EXPECT_EQ(notesText(fish.notes()[21]), "12346789");
  EXPECT_TRUE(fish.undo());
  EXPECT_EQ(notesText(fish.notes()[3]), "123456789");
  EXPECT_EQ(notesText(fish.notes()[21]), "-");
}

TEST(Game, AGameFileBringsTheGameBackAndADamagedOneIsRefused) {
  test::TempDir dir;
  GameSession g;
  Game& game = g.game;
  game.fillInNotes();
  g.type(6, 1);
  game.toggleNote(1, 5);
  g.type(2, 8);
  game.undo();  // one command to redo
  game.elapsedSeconds = 754;
  const GameRecord record = game.record();
  EXPECT_EQ(resumeQuestion(record), "Resume the game of puzzle 1?");
  const std::string path = dir.path() + "/game.txt";
  ASSERT_EQ(saveGameFile(path, record), "");
  const std::string text = test::readFile(path);
  EXPECT_EQ(text.substr(0, text.find("command")),
            "tessaly game 1\nsource " + test::kPe96 + "\nnumber 1\ngivens " +
                "..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..\n"
                "elapsed 754\ndone 3\n");

  // The puzzle comes from its collection, or as if typed in, without a word,
  // when the collection is gone, emptied or holds another puzzle under its number.
  test::writeFile(dir.path() + "/emptied.sud", "");
  test::writeFile(dir.path() + "/changed.sud", test::readFile(test::puzzleFile("top95.sud")));
  for (const char* source : {"", "gone.sud", "emptied.sud", "changed.sud"}) {
    SCOPED_TRACE(source);
    const bool fromCollection = !*source;
    GameRead read = readGameFile(path);
    ASSERT_TRUE(read.record) << read.problem;
    if (!fromCollection) read.record->source = dir.path() + "/" + source;
    GameSession h;
    h.m.read(test::puzzleFile("top95.sud"), 3);
    h.m.session.run.ended = {RunEnd::Kind::Solved, 0};  // the status line of the board before
    h.game.resume(*read.record);
    EXPECT_EQ(statusLine(h.m.session.run.ended), "");
    EXPECT_EQ(h.m.recorder.messages, std::vector<std::string>{});
    EXPECT_EQ(h.m.session.collection.CurrentFile, fromCollection ? test::kPe96 : test::puzzleFile("top95.sud"));
    EXPECT_EQ(h.summary(), g.summary());
    EXPECT_EQ(h.m.session.grid.valueCode(), g.m.session.grid.valueCode());
    EXPECT_EQ(h.game.notes(), game.notes());
    EXPECT_EQ(h.game.elapsedSeconds, 754);
    EXPECT_EQ(h.m.session.collection.origin().kind,
              fromCollection ? BoardOrigin::Kind::Read : BoardOrigin::Kind::Entered);
    // Saved again, the game is the same (a puzzle of no collection names none).
    const std::string again = gameText(h.game.record());
    EXPECT_EQ(again.substr(fromCollection ? 0 : again.find("givens")),
              text.substr(fromCollection ? 0 : text.find("givens")));
    EXPECT_TRUE(h.game.redo());
    EXPECT_EQ(h.m.moves(), "C06 = 1, C02 = 8");
    EXPECT_TRUE(h.game.undo() && h.game.undo() && h.game.undo());
    EXPECT_EQ(h.m.moves(), "");
  }

  const std::string givens =
      "givens ..3.2.6..9..3.5..1..18.64....81.29..7.......8..67.82....26.95..8..2.3..9..5.1.3..\n";
  const std::pair<std::string, std::string> damaged[] = {
      {"", "it is not a Tessaly game file"},
      {"<gsp>\n", "it is not a Tessaly game file"},
      {"tessaly game 1\n", "the givens are missing"},
      {"tessaly game 1\ngivens 123\n", "line 2: the givens must be 81 characters, digits 1 to 9 and '.'"},
      {"tessaly game 1\ngivens " + std::string(79, '.') + "11\n",
       "the givens repeat a digit in a row, column or box"},
      {"tessaly game 1\n" + givens + "colour red\n", "line 3: unknown entry 'colour'"},
      {"tessaly game 1\n" + givens + "cell 1 0 - 4 -\n", "line 3: a cell before any command"},
      {"tessaly game 1\n" + givens + "command place\ncell 3 0 - 4 -\n", "line 3: the command changes a given"},
      {"tessaly game 1\n" + givens + "command place\ncell 1 5 - 4 -\n",
       "line 3: the command does not follow from the board before it"},
      {"tessaly game 1\n" + givens + "command note\ncell 1 0 - 0 31\n",
       "line 4: a cell's number, value or notes cannot be read"},
      {"tessaly game 1\n" + givens + "command place\ncell 1 0 - 4 -\nmoves 0 1=4 -\n",
       "line 3: the command's change of the move list does not follow from the list before it"},
      {"tessaly game 1\n" + givens + "done 2\ncommand place\ncell 1 0 - 4 -\n", "more commands done than listed"},
      {"tessaly game 1\n" + givens + "elapsed soon\n", "line 3: the elapsed time must be a whole number of seconds"},
  };
  for (const auto& [content, problem] : damaged) {
    SCOPED_TRACE(content);
    const GameRead read = parseGameText(content);
    EXPECT_FALSE(read.record);
    EXPECT_EQ(read.problem, problem);
  }
  const std::string foreign = dir.path() + "/foreign.txt";
  test::writeFile(foreign, "hello\n");
  EXPECT_EQ(readGameFile(foreign).problem,
            "The game file " + foreign + " cannot be used: it is not a Tessaly game file");
  EXPECT_EQ(readGameFile(dir.path() + "/none").problem,
            "The game file " + dir.path() + "/none cannot be used: no such file");
}

}  // namespace
}  // namespace tessaly
