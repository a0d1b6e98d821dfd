#pragma once
// What the ManualSolve tab draws in a value cell beside its value and the
// colours manual play paints: the player's notes, what a nudge shows there,
// the cells that share the selected digit, and a value that repeats one of
// its row, column or box. The page works these out from the game; the cell
// board draws them over the present board only.

#include <array>
#include <cstdint>

namespace tessaly {

/// A cell's shade while playing, the strongest that applies.
enum class PlayShade {
  None,
  SameDigit,   ///< holds the digit of the selected cell
  NudgeArea,   ///< in an area a nudge (level 2 on) points to
  NudgePattern,  ///< a cell of the nudge's pattern (level 3 on), or of the step the coach's verdict names
  WrongNotes,  ///< "Check notes": its notes lost the cell's solution digit
};

struct PlayMarks {
  std::uint16_t notes = 0;     ///< the player's notes, bit d-1 for digit d
  std::uint16_t removals = 0;  ///< the digits a nudge at level 4 takes out of the cell
  int placement = 0;           ///< the digit a nudge at level 4 places in the cell; 0 for none
  bool clash = false;          ///< the value repeats one in its row, column or box
  PlayShade shade = PlayShade::None;
  friend bool operator==(const PlayMarks&, const PlayMarks&) = default;
};

/// Entry c-1 for cell c.
using BoardPlayMarks = std::array<PlayMarks, 81>;

}  // namespace tessaly
