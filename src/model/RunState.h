#pragma once

namespace tessaly {

/// The run state. A run that waits for the user (Waiting) goes on when the
/// Next command releases it (Released); NoPause runs without pauses or
/// highlighting; Silent writes nothing at all (creation). The numbers are the
/// ones the configuration and the narration's rules speak of.
enum class RunState { Waiting = 0, Released = 1, NoPause = 99, Silent = 100 };

/// True while a run pauses at its pause points and shows what it works on.
inline constexpr bool highlights(RunState state) { return state < RunState::NoPause; }

}  // namespace tessaly

namespace tessaly {

/// Which command's run is under way. The window decides from it which commands
/// a user can give (a stepping run takes Next; no run takes Start, Clear, Edit).
enum class RunActivity {
  None,      ///< no run: the board is the user's
  Stepping,  ///< Start's run, pausing for Next (or running on with "No pauses")
  Solving,   ///< Solve, or Start with "Solve at once": no pauses until the end
  Creating,  ///< creating a puzzle (silent)
};

/// Marks a run as under way for as long as it lives, however the run ends.
class ActivityScope {
 public:
  ActivityScope(RunActivity& slot, RunActivity activity) : m_slot(slot), m_previous(slot) { slot = activity; }
  ~ActivityScope() { m_slot = m_previous; }
  ActivityScope(const ActivityScope&) = delete;
  ActivityScope& operator=(const ActivityScope&) = delete;

 private:
  RunActivity& m_slot;
  RunActivity m_previous;
};

}  // namespace tessaly
