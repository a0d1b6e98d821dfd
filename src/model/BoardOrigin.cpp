#include "model/BoardOrigin.h"

#include "model/Text.h"

namespace tessaly {

std::string puzzleTitle(const BoardOrigin& o) {
  switch (o.kind) {
    case BoardOrigin::Kind::None: return {};
    case BoardOrigin::Kind::Opened: return "Total Puzzles" + num(o.total);
    case BoardOrigin::Kind::Read:
      return "Puzzle" + num(o.number) + " of" + num(o.total) + " (" + std::to_string(o.blanks) + " blanks)";
    case BoardOrigin::Kind::Created: return "New Puzzle (" + std::to_string(o.blanks) + " blanks)";
    case BoardOrigin::Kind::Entered: return "New Puzzle";
  }
  return {};
}

std::optional<std::string> puzzleNumberText(const BoardOrigin& o) {
  if (o.kind == BoardOrigin::Kind::Read) return std::to_string(o.number);
  if (o.kind == BoardOrigin::Kind::Created) return std::string("NEW");
  return std::nullopt;
}

}  // namespace tessaly
