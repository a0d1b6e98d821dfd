#include "model/SolveState.h"

#include <algorithm>

#include "model/Text.h"

namespace tessaly {

std::string QueueEntry::text() const {
  return padded(count, 2) + padded(boxMissing, 2) + "SQ" + padded(cell, 2) + "BX" + padded(box, 2) + "VL" + digits.text();
}

void CandidateQueue::insert(QueueEntry entry) {
  auto pos = std::upper_bound(m_entries.begin(), m_entries.end(), entry);
  m_entries.insert(pos, std::move(entry));
}

std::string GuessStack::entry(int index) const {
  int level = index / 2;
  if (index < 0 || level >= levels()) return {};
  const GuessLevel& l = m_levels[m_levels.size() - 1 - std::size_t(level)];
  return index % 2 == 0 ? l.entry.text() : l.snapshot;
}

}  // namespace tessaly
