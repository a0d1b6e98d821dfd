#include "model/LineReader.h"

namespace tessaly {

int LineReader::take() {
  const int ch = m_in.rdbuf()->sbumpc();
  if (ch != std::char_traits<char>::eof()) ++m_offset;
  return ch;
}

void LineReader::checkStart() {
  m_started = true;
  std::streambuf& buf = *m_in.rdbuf();
  const int first = buf.sgetc();
  if (first == 0xFF || first == 0xFE) {
    // FF FE or FE FF: a UTF-16 byte-order mark.
    take();
    const int second = buf.sgetc();
    if ((first == 0xFF && second == 0xFE) || (first == 0xFE && second == 0xFF)) {
      m_encoding = Encoding::Utf16;
      return;
    }
    // Not a mark: the byte starts the first line. Its text is cut short by
    // the missing byte, which matters only to a line that is bad anyway.
    m_line.push_back(char(first));
    m_length = 1;
    return;
  }
  if (first == 0xEF) {
    take();
    if (buf.sgetc() == 0xBB) {
      take();
      if (buf.sgetc() == 0xBF) {
        take();
        m_encoding = Encoding::Utf8WithMark;
        return;
      }
      m_line.push_back(char(0xEF));
      m_line.push_back(char(0xBB));
      m_length = 2;
      return;
    }
    m_line.push_back(char(0xEF));
    m_length = 1;
  }
}

bool LineReader::next() {
  if (!m_started) {
    m_line.clear();
    m_length = 0;
    checkStart();
    m_lineStart = 0;
    if (m_encoding == Encoding::Utf8WithMark) m_lineStart = 3;
  } else {
    m_line.clear();
    m_length = 0;
    m_lineStart = m_offset;
  }
  if (!isText()) return false;
  constexpr int kEof = std::char_traits<char>::eof();
  std::streambuf& buf = *m_in.rdbuf();
  int ch = take();
  if (ch == kEof && m_length == 0) return false;
  m_ended = false;
  // The kept characters gather in a small buffer on the stack and go to the
  // line a run at a time: a character at a time costs a string's size and
  // capacity checks.
  char run[128];
  std::size_t inRun = 0;
  std::size_t room = m_keep > m_line.size() ? m_keep - m_line.size() : 0;
  std::uint64_t length = m_length;
  std::uint64_t taken = 0;  // bytes taken after `ch`, counted into m_offset at the end
  for (; ch != kEof; ch = buf.sbumpc(), taken += ch != kEof) {
    if (ch == '\n') {
      if (m_firstEnd.empty()) m_firstEnd = "\n";
      m_ended = true;
      break;
    }
    if (ch == '\r') {
      const bool crlf = buf.sgetc() == '\n';
      if (crlf) {
        buf.sbumpc();
        ++taken;
      }
      if (m_firstEnd.empty()) m_firstEnd = crlf ? "\r\n" : "\r";
      m_ended = true;
      break;
    }
    if (ch == 0) {
      // Text holds no NUL byte: the source is binary, and an endless run of
      // them (a device) is not read on.
      m_offset += taken;
      m_encoding = Encoding::Binary;
      return false;
    }
    if (room) {
      run[inRun++] = char(ch);
      --room;
      if (inRun == sizeof run) {
        m_line.append(run, inRun);
        inRun = 0;
      }
    }
    ++length;
  }
  m_line.append(run, inRun);
  m_length = length;
  m_offset += taken;
  ++m_number;
  return true;
}

}  // namespace tessaly
