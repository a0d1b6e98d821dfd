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
