#include "model/EventLog.h"

#include "model/FileUtil.h"
#include "model/Text.h"

namespace tessaly {

void EventLog::append(int style, std::string_view text) {
  if (TotalLines() >= kCapacity) throw EventLogFull();
  std::string stored = padded(style, 2);
  stored.append(text);
  m_lines.push_back(std::move(stored));
}

std::string_view EventLog::text(int n) const {
  std::string_view s = line(n);
  return s.size() > 2 ? s.substr(2) : std::string_view();
}

int EventLog::style(int n) const { return int(numericValue(std::string_view(line(n)).substr(0, 2))); }

bool EventLog::lineBeginsWith(int n, std::string_view text) const {
  std::string_view s = line(n);
  // The first occurrence must sit at the third character: the text proper begins with it.
  return s.find(text) == 2;
}

int EventLog::searchForward(std::string_view text, int from) const {
  int last = std::min(RecordedLineCount, TotalLines());
  for (int n = std::max(from, 1); n <= last; ++n)
    if (lineBeginsWith(n, text)) return n;
  return 0;
}

int EventLog::searchBackward(std::string_view text, int from) const {
  for (int n = std::min(from, TotalLines()); n >= 1; --n)
    if (lineBeginsWith(n, text)) return n;
  return 0;
}

bool EventLog::writeTextFile(const std::string& path) const {
  std::string out;
  int last = std::min(RecordedLineCount, TotalLines());
  for (int n = 1; n <= last; ++n) {
    out.append(text(n));
    out.append("\r\n");
  }
  return writeFileAtomically(path, out);
}

}  // namespace tessaly
