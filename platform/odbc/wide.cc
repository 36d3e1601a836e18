#include "platform/odbc/wide.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace kvraedi::odbc {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kHighStart = 0xD800;
constexpr char32_t kLowStart = 0xDC00;
constexpr char32_t kSurrogateEnd = 0xE000;
constexpr char32_t kSupplementary = 0x10000;

/// The character that starts at `at`, which moves behind it.
char32_t Decode(std::string_view text, std::size_t& at) {
  const auto first = static_cast<unsigned char>(text[at++]);
  if (first < 0x80U) return first;
  const std::size_t more = first >= 0xF0U ? 3 : first >= 0xE0U ? 2 : first >= 0xC2U ? 1 : 0;
  if (more == 0 || first > 0xF4U || text.size() - at < more) return kReplacement;
  char32_t code = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(text[at + i]);
    if ((next & 0xC0U) != 0x80U) return kReplacement;
    code = code << 6U | (next & 0x3FU);
  }
  constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, kSupplementary};
  const bool surrogate = code >= kHighStart && code < kSurrogateEnd;
  if (code < kSmallest[more] || code > 0x10FFFFU || surrogate) return kReplacement;
  at += more;
  return code;
}

void Encode(char32_t code, std::string& out) {
  const auto tail = [code](unsigned shift) {
    return static_cast<char>(0x80U | (code >> shift & 0x3FU));
  };
  if (code < 0x80U) {
    out += static_cast<char>(code);
  } else if (code < 0x800U) {
    out += static_cast<char>(0xC0U | code >> 6U);
    out += tail(0);
  } else if (code < kSupplementary) {
    out += static_cast<char>(0xE0U | code >> 12U);
    out += {tail(6), tail(0)};
  } else {
    out += static_cast<char>(0xF0U | code >> 18U);
    out += {tail(12), tail(6), tail(0)};
  }
}

}  // namespace

std::vector<SQLWCHAR> ToWide(std::string_view utf8) {
  std::vector<SQLWCHAR> wide;
  wide.reserve(utf8.size() + 1);
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t code = Decode(utf8, at);
    if (code < kSupplementary) {
      wide.push_back(static_cast<SQLWCHAR>(code));
    } else {
      const char32_t rest = code - kSupplementary;
      wide.push_back(static_cast<SQLWCHAR>(kHighStart + (rest >> 10U)));
      wide.push_back(static_cast<SQLWCHAR>(kLowStart + (rest & 0x3FFU)));
    }
  }
  return wide;
}

std::string ToUtf8(std::span<const std::byte> bytes) {
  const std::size_t count = bytes.size() / sizeof(SQLWCHAR);
  const auto unit = [bytes](std::size_t i) {
    std::uint16_t value = 0;
    std::memcpy(&value, bytes.data() + i * sizeof(SQLWCHAR), sizeof(value));
    return static_cast<char32_t>(value);
  };
  std::string out;
  out.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const char32_t code = unit(i);
    const char32_t next = i + 1 < count ? unit(i + 1) : 0;
    if (code < kHighStart || code >= kSurrogateEnd) {
      Encode(code, out);
    } else if (code < kLowStart && next >= kLowStart && next < kSurrogateEnd) {
      Encode(kSupplementary + ((code - kHighStart) << 10U) + (next - kLowStart), out);
      ++i;
    } else {
      Encode(kReplacement, out);
    }
  }
  return out;
}

std::string ToUtf8(std::span<const SQLWCHAR> text) { return ToUtf8(std::as_bytes(text)); }

}  // namespace kvraedi::odbc
