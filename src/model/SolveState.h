#pragma once
// The solver's working records: queue keys, guess levels and rule statistics.

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/CandidateSet.h"
#include "model/TechniqueStep.h"

namespace tessaly {

/// A placement key "CCBBSQnnBXbbVLdigits": candidate count, the box's missing
/// count, the cell, its box (all two digits) and the candidate digits. Keys sort
/// as text, which is the placement order: fewest candidates, then the box with
/// the fewest missing digits, then the lowest cell. Retry entries carry count
/// and missing count 0 ("0000SQ...") so that they always come first.
struct QueueEntry {
  int count = 0;
  int boxMissing = 0;
  int cell = 0;
  int box = 0;
  CandidateSet digits;  ///< written after "VL" in ascending order

  std::string text() const;
  /// True when the key carries at least one digit after "VL".
  bool hasDigit() const { return !digits.empty(); }
  /// The first digit after "VL" (0 when none).
  int firstDigit() const { return digits.first(); }
  /// The two-digit fields of the key as one number, in the key's order.
  int fields() const { return ((count * 100 + boxMissing) * 100 + cell) * 100 + box; }
  /// The order of the key texts.
  friend bool operator<(const QueueEntry& a, const QueueEntry& b) {
    if (a.fields() != b.fields()) return a.fields() < b.fields();
    return a.digits.text() < b.digits.text();
  }
  friend bool operator==(const QueueEntry&, const QueueEntry&) = default;
};

/// The open cells in placement order; the head (index 0) is placed next.
class CandidateQueue {
 public:
  void clear() { m_entries.clear(); }
  /// Inserts at the sorted position.
  void insert(QueueEntry entry);
  /// Replaces the queue with these entries in placement order, equal keys in
  /// the order given (as inserting them one by one would leave them).
  template <typename Fill>
  void rebuild(Fill fill) {
    m_entries.clear();
    fill([this](QueueEntry entry) { m_entries.push_back(std::move(entry)); });
    sortStably();
  }
  void removeHead() { m_entries.erase(m_entries.begin()); }
  bool empty() const { return m_entries.empty(); }
  int size() const { return int(m_entries.size()); }
  const QueueEntry& operator[](int i) const { return m_entries[std::size_t(i)]; }

 private:
  /// The stable sort of the entries. The solver adds one entry per open cell
  /// in cell order, so ordering them by count and box-missing alone (a bucket
  /// pass, no comparisons) already gives the key order; any other order falls
  /// back to a stable sort on the whole key.
  void sortStably();

  std::vector<QueueEntry> m_entries;
  std::vector<QueueEntry> m_scratch;
};

/// One saved guess: the untried digits of the guessed cell and the grid before it.
struct GuessLevel {
  QueueEntry entry;      ///< "0000SQnnBXbbVL" + untried digits
  std::string snapshot;  ///< GridSnapshot: 81 characters, "0" for a blank
  std::array<CandidateSet, 82> excluded{};  ///< what further techniques had removed before the guess
};

/// Saved guesses, newest on top.
class GuessStack {
 public:
  void clear() { m_levels.clear(); }
  void push(GuessLevel level) { m_levels.push_back(std::move(level)); }
  void pop() { m_levels.pop_back(); }
  bool empty() const { return m_levels.empty(); }
  int levels() const { return int(m_levels.size()); }
  const GuessLevel& top() const { return m_levels.back(); }
  /// The design's flat view: entry 0 is the top level's key, entry 1 its snapshot,
  /// and so on; reading beyond the end yields "".
  std::string entry(int index) const;

 private:
  std::vector<GuessLevel> m_levels;
};

/// One cell as the board history keeps it.
struct CellRecord {
  std::uint8_t cell = 0;  ///< 1..81
  std::uint8_t value = 0;
  bool given = false;
  CandidateSet candidates;
};

/// The board (every cell's value, given mark and candidates) as each line of
/// the event log saw it, kept as changes: line n holds the cells that differ
/// from the board of line n-1, line 1 those that differ from an empty board.
/// Filled by the solver as it writes the log, emptied with the log.
struct BoardHistory {
  std::vector<CellRecord> changes;  ///< the changed cells of line 1, then of line 2, ...
  std::vector<int> lineEnd;         ///< entry n-1: where the changes of line n end
  /// The board as last recorded, one packed word per cell (index = cell).
  std::array<std::uint32_t, 82> last{};
  void clear() {
    changes.clear();
    lineEnd.clear();
    last.fill(0);
  }
  /// The lines recorded so far.
  int lines() const { return int(lineEnd.size()); }
};

/// Times applied and total reductions of Rules 2 to 6 (index = rule number),
/// and of the further techniques (index = Technique).
struct RuleStatistics {
  std::array<int, kRuleCount + 1> timesApplied{};
  std::array<int, kRuleCount + 1> totalReductions{};
  std::array<int, kTechniqueCount> techniqueFound{};
  std::array<int, kTechniqueCount> techniqueReductions{};
  void reset() {
    timesApplied.fill(0);
    totalReductions.fill(0);
    techniqueFound.fill(0);
    techniqueReductions.fill(0);
  }
};

}  // namespace tessaly
