#pragma once
// Ready-made implementations of the interfaces: the real clock and random
// source, and scripted ones for the tests and the command line.

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "model/Interfaces.h"

namespace tessaly {

class SystemClock : public Clock {
 public:
  TimeOfDay now() const override;
};

class FixedClock : public Clock {
 public:
  explicit FixedClock(TimeOfDay t = {12, 0, 0, 0}) : m_time(t) {}
  TimeOfDay now() const override { return m_time; }
  void set(TimeOfDay t) { m_time = t; }

 private:
  TimeOfDay m_time;
};

/// A 64-bit generator whose running state takes the clock in before every draw:
/// two draws within one clock tick still differ.
class ClockMixedRandom : public RandomSource {
 public:
  explicit ClockMixedRandom(const Clock& clock, std::uint64_t state = 0x9E3779B97F4A7C15ull)
      : m_clock(clock), m_state(state) {}
  double uniform() override;

 private:
  const Clock& m_clock;
  std::uint64_t m_state;
};

/// The same generator without the clock: a fixed seed gives a fixed sequence.
class SeededRandom : public RandomSource {
 public:
  explicit SeededRandom(std::uint64_t seed) : m_state(seed) {}
  double uniform() override;

 private:
  std::uint64_t m_state;
};

/// Plays back a list of numbers, then repeats the last one (0 when empty).
class ScriptedRandom : public RandomSource {
 public:
  explicit ScriptedRandom(std::vector<double> values) : m_values(std::move(values)) {}
  double uniform() override;

 private:
  std::vector<double> m_values;
  std::size_t m_next = 0;
};

/// Records every message and question; answers from scripted queues (questions
/// default to Yes, text input to cancel, file choosers to cancel).
class ScriptedUserInterface : public UserInterface {
 public:
  void message(const std::string& text) override { messages.push_back(text); }
  bool question(const std::string& text) override;
  std::optional<std::string> textInput(const std::string& title, const std::string& prompt,
                                       const std::string& defaultAnswer) override;
  std::string chooseFile(const FileRequest& request) override;

  std::vector<std::string> messages;
  std::vector<std::string> questions;
  std::vector<std::string> prompts;
  std::vector<FileRequest> fileRequests;
  std::deque<bool> answers;
  std::deque<std::optional<std::string>> inputs;
  std::deque<std::string> files;
};

/// Counts pause points and releases each one at once.
class CountingPacer : public Pacer {
 public:
  bool waitWhilePaused(RunState& runMode) override {
    ++pauses;
    runMode = RunState::Released;
    return true;
  }
  int pauses = 0;
};

}  // namespace tessaly
