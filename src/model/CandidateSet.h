#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly {

namespace detail {
// Member counts of every 9-bit set. A table rather than std::popcount: without
// a processor flag that promises the popcount instruction, the compiler calls a
// library routine for every count, and counting is on the solver's hot path.
constexpr std::array<std::uint8_t, 512> makeBitCounts() {
  std::array<std::uint8_t, 512> t{};
  for (unsigned bits = 1; bits < 512; ++bits) t[bits] = std::uint8_t(t[bits >> 1] + (bits & 1u));
  return t;
}
inline constexpr std::array<std::uint8_t, 512> kBitCounts = makeBitCounts();
}  // namespace detail

/// Members of a 9-bit set (bits above the ninth are ignored).
constexpr int bitCount9(std::uint16_t bits) { return detail::kBitCounts[bits & 0x1FFu]; }

/// The candidate digits of one cell. Held as a 9-bit set (bit d-1 for digit d);
/// every text it yields is the ascending digit text the user sees ("2479",
/// "123456789", "" for none), so the set and its text are interchangeable.
class CandidateSet {
 public:
  constexpr CandidateSet() = default;
  static constexpr CandidateSet full() { return CandidateSet(0x1FF); }
  static constexpr CandidateSet of(int digit) {
    return digit >= 1 && digit <= 9 ? CandidateSet(std::uint16_t(1u << (digit - 1))) : CandidateSet();
  }
  static constexpr CandidateSet fromBits(std::uint16_t bits) { return CandidateSet(bits & 0x1FF); }
  /// Every character 1..9 of the text becomes a member; others are ignored.
  static CandidateSet fromText(std::string_view text) {
    CandidateSet s;
    for (char ch : text) s.add(ch - '0');
    return s;
  }

  constexpr bool has(int digit) const { return digit >= 1 && digit <= 9 && (m_bits >> (digit - 1)) & 1u; }
  constexpr void add(int digit) {
    if (digit >= 1 && digit <= 9) m_bits |= std::uint16_t(1u << (digit - 1));
  }
  /// Deletes the digit; a digit that is not a member (or 0) leaves the set as it is.
  constexpr void remove(int digit) {
    if (digit >= 1 && digit <= 9) m_bits &= std::uint16_t(~(1u << (digit - 1)));
  }
  constexpr void removeAll(CandidateSet other) { m_bits &= std::uint16_t(~other.m_bits); }
  constexpr int size() const { return bitCount9(m_bits); }
  constexpr bool empty() const { return m_bits == 0; }
  constexpr std::uint16_t bits() const { return m_bits; }
  /// The smallest member, 0 when empty.
  constexpr int first() const { return m_bits ? std::countr_zero(m_bits) + 1 : 0; }
  /// The text read as a number ("" reads 0); only meaningful for one member.
  constexpr int numeric() const { return size() == 1 ? first() : 0; }

  void appendText(std::string& out) const {
    for (int d = 1; d <= 9; ++d)
      if (has(d)) out.push_back(char('0' + d));
  }
  std::string text() const {
    std::string s;
    appendText(s);
    return s;
  }

  friend constexpr bool operator==(CandidateSet, CandidateSet) = default;

 private:
  constexpr explicit CandidateSet(std::uint16_t bits) : m_bits(bits) {}
  std::uint16_t m_bits = 0;
};

}  // namespace tessaly
