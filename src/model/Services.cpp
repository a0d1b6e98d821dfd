#include "model/Services.h"

#include <chrono>
#include <ctime>

namespace tessaly {

TimeOfDay SystemClock::now() const {
  auto now = std::chrono::system_clock::now();
  std::time_t t = std::chrono::system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&t, &local);
  TimeOfDay tod;
  tod.hours = local.tm_hour;
  tod.minutes = local.tm_min;
  tod.seconds = local.tm_sec;
  tod.ticks = std::chrono::duration_cast<std::chrono::nanoseconds>(
                  std::chrono::steady_clock::now().time_since_epoch())
                  .count();
  return tod;
}

namespace {
// splitmix64: a good 64-bit mix of a counter-like state.
std::uint64_t mix(std::uint64_t z) {
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}
double toUnit(std::uint64_t bits) { return double(bits >> 11) * (1.0 / 9007199254740992.0); }
}  // namespace

double ClockMixedRandom::uniform() {
  // The clock is folded into the running state, never replacing it.
  m_state += 0x9E3779B97F4A7C15ull ^ std::uint64_t(m_clock.now().ticks);
  return toUnit(mix(m_state));
}

double SeededRandom::uniform() {
  m_state += 0x9E3779B97F4A7C15ull;
  return toUnit(mix(m_state));
}

double ScriptedRandom::uniform() {
  if (m_values.empty()) return 0.0;
  double v = m_values[m_next < m_values.size() ? m_next : m_values.size() - 1];
  if (m_next < m_values.size()) ++m_next;
  return v;
}

bool ScriptedUserInterface::question(const std::string& text) {
  questions.push_back(text);
  if (answers.empty()) return true;
  bool a = answers.front();
  answers.pop_front();
  return a;
}

std::optional<std::string> ScriptedUserInterface::textInput(const std::string&, const std::string& prompt,
                                                            const std::string&) {
  prompts.push_back(prompt);
  if (inputs.empty()) return std::nullopt;
  auto a = inputs.front();
  inputs.pop_front();
  return a;
}

std::string ScriptedUserInterface::chooseFile(const FileRequest& request) {
  fileRequests.push_back(request);
  if (files.empty()) return {};
  auto f = files.front();
  files.pop_front();
  return f;
}

}  // namespace tessaly
