#pragma once
// Lines of a puzzle source read a piece at a time with bounded memory: a file
// or standard input, CR LF, LF and CR all ending a line. A UTF-8 byte-order
// mark at the start is passed over; a UTF-16 one, or a NUL byte anywhere,
// marks the source as not readable text, and reading stops there.

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

namespace tessaly {

class LineReader {
 public:
  enum class Encoding { Text, Utf8WithMark, Utf16, Binary };

  /// `keep`: the most characters of a line kept; the rest is counted only.
  explicit LineReader(std::istream& in, std::size_t keep = 4096) : m_in(in), m_keep(keep) {}

  /// The next line; false at the end of the input or once it is known not to
  /// be text (encoding() then says why).
  bool next();
  /// The line read last, cut to `keep` characters.
  std::string_view line() const { return m_line; }
  /// Its whole length in characters.
  std::uint64_t length() const { return m_length; }
  /// Its 1-based number.
  int number() const { return m_number; }
  /// The byte offset where it starts in the input.
  std::uint64_t offset() const { return m_lineStart; }
  /// Whether it ended with a line end (the last line of a file may not).
  bool ended() const { return m_ended; }
  /// The line end first met ("\r\n", "\n" or "\r"), "\n" before any.
  std::string_view firstLineEnd() const { return m_firstEnd.empty() ? std::string_view("\n") : m_firstEnd; }
  Encoding encoding() const { return m_encoding; }
  bool isText() const { return m_encoding == Encoding::Text || m_encoding == Encoding::Utf8WithMark; }
  /// Bytes taken from the input so far.
  std::uint64_t consumed() const { return m_offset; }

 private:
  int take();
  void checkStart();

  std::istream& m_in;
  std::size_t m_keep;
  std::string m_line;
  std::uint64_t m_length = 0;
  std::uint64_t m_offset = 0;
  std::uint64_t m_lineStart = 0;
  int m_number = 0;
  bool m_started = false;
  bool m_ended = false;
  std::string m_firstEnd;
  Encoding m_encoding = Encoding::Text;
};

}  // namespace tessaly
