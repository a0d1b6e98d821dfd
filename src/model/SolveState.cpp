#include "model/SolveState.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "model/Text.h"

namespace tessaly {

std::string QueueEntry::text() const {
  return padded(count, 2) + padded(boxMissing, 2) + "SQ" + padded(cell, 2) + "BX" + padded(box, 2) + "VL" + digits.text();
}

void CandidateQueue::insert(QueueEntry entry) {
  auto pos = std::upper_bound(m_entries.begin(), m_entries.end(), entry);
  m_entries.insert(pos, std::move(entry));
}

void CandidateQueue::sortStably() {
  constexpr int kBuckets = 100;  // count (0..9) times ten plus box-missing (0..9)
  std::array<std::uint8_t, kBuckets + 1> start{};
  const bool bucketable = m_entries.size() <= 255 && std::all_of(m_entries.begin(), m_entries.end(), [](const QueueEntry& e) {
    return e.count >= 0 && e.count <= 9 && e.boxMissing >= 0 && e.boxMissing <= 9;
  });
  if (!bucketable) {
    std::stable_sort(m_entries.begin(), m_entries.end());
    return;
  }
  const auto bucket = [](const QueueEntry& e) { return std::size_t(e.count * 10 + e.boxMissing); };
  for (const QueueEntry& e : m_entries) ++start[bucket(e) + 1];
  for (std::size_t b = 1; b <= kBuckets; ++b) start[b] = std::uint8_t(start[b] + start[b - 1]);
  m_scratch.resize(m_entries.size());
  for (const QueueEntry& e : m_entries) m_scratch[start[bucket(e)]++] = e;
  // Within a bucket the entries keep the order they came in; that is the key
  // order when they came in by cell, as they do from the solver.
  for (std::size_t i = 1; i < m_scratch.size(); ++i)
    if (m_scratch[i] < m_scratch[i - 1]) {
      std::stable_sort(m_entries.begin(), m_entries.end());
      return;
    }
  m_entries.swap(m_scratch);
}

std::string GuessStack::entry(int index) const {
  int level = index / 2;
  if (index < 0 || level >= levels()) return {};
  const GuessLevel& l = m_levels[m_levels.size() - 1 - std::size_t(level)];
  return index % 2 == 0 ? l.entry.text() : l.snapshot;
}

}  // namespace tessaly
