#include "model/EventLog.h"

#include "model/FileUtil.h"
#include "model/Text.h"

namespace tessaly {

void EventLog::append(int style, std::string_view text) {
  if (TotalLines() >= kCapacity) throw EventLogFull();
  m_lines.push_back(LogLine{style, std::string(text)});
}

std::string EventLog::listed(int n) const { return padded(style(n), 2).append(text(n)); }

int EventLog::searchForward(std::string_view text, int from) const {
  int last = std::min(RecordedLineCount, TotalLines());
  for (int n = std::max(from, 1); n <= last; ++n)
    if (this->text(n).starts_with(text)) return n;
  return 0;
}

int EventLog::searchBackward(std::string_view text, int from) const {
  for (int n = std::min(from, TotalLines()); n >= 1; --n)
    if (this->text(n).starts_with(text)) return n;
  return 0;
}

FileResult EventLog::writeTextFile(const std::string& path) const {
  std::string out;
  int last = std::min(RecordedLineCount, TotalLines());
  for (int n = 1; n <= last; ++n) {
    out.append(text(n));
    out.append("\r\n");
  }
  return writeFileAtomically(path, out);
}

}  // namespace tessaly
