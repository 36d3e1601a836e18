#include "platform/sqlite/collations.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "kvraedi/error.h"
#include "kvraedi/valor.h"

namespace kvraedi::sqlite {
namespace {

/// Two characters are equal when both parts are; the accent decides only between texts of equal
/// letters.
struct Weight {
  std::uint32_t letter = 0;
  std::uint32_t accent = 0;
};

constexpr std::uint32_t kFirstDigit = 0x100;
constexpr std::uint32_t kFirstLetter = 0x200;
constexpr std::uint32_t kFirstOther = 0x1000;
constexpr std::size_t kTableSize = 0x180;

constexpr std::uint32_t LetterWeight(char letter) {
  return kFirstLetter + 2 * static_cast<std::uint32_t>(letter - 'a');
}

// The base letters of U+00E0 to U+00FF ("~" is ñ, "/" no letter) and of U+0100 to U+017F.
constexpr char kLatin1[] = "aaaaaaaceeeeiiiid~ooooo/ouuuuyty";
constexpr char kLatinA[] =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkkllllllllllnnnnnnnnnoooooooorrrrrr"
    "ssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

/// The same value for both cases of a letter of Latin Extended-A.
constexpr std::uint32_t CasePair(std::uint32_t c) {
  const bool capital_is_odd = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  return capital_is_odd ? c + (c & 1) : c & ~1U;
}

constexpr Weight WeightOf(std::uint32_t c) {
  if (c >= '0' && c <= '9') return {kFirstDigit + c - '0', 0};
  if (c >= 'A' && c <= 'Z') c += 'a' - 'A';
  if (c >= 'a' && c <= 'z') return {LetterWeight(static_cast<char>(c)), 0};
  if (c < 0xC0) return {c, 0};
  if (c < 0xE0 && c != 0xDF) c += 0x20;
  if (c == 0xDF) return {LetterWeight('s'), c};
  if (c < 0xFF) {
    const char base = kLatin1[c - 0xE0];
    if (base == '/') return {c, 0};
    return base == '~' ? Weight{LetterWeight('n') + 1, 0} : Weight{LetterWeight(base), c};
  }
  if (c == 0xFF) return {LetterWeight('y'), CasePair(0x178)};
  return {LetterWeight(kLatinA[c - 0x100]), CasePair(c)};
}

constexpr std::array<Weight, kTableSize> MakeWeights() {
  std::array<Weight, kTableSize> weights{};
  for (std::uint32_t c = 0; c < kTableSize; ++c) weights[c] = WeightOf(c);
  return weights;
}

constexpr auto kWeights = MakeWeights();

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

/// The bytes of the character that `text` begins with; 1 when they are no UTF-8.
std::size_t LengthOfCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0xC2   ? 1
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 1;
  if (length > text.size()) return 1;
  for (std::size_t i = 1; i < length; ++i) {
    if (!IsContinuation(text[i])) return 1;
  }
  return length;
}

/// Takes one character off the front; a byte that is no UTF-8 counts by itself.
Weight TakeWeight(std::string_view& text) {
  const std::size_t length = LengthOfCharacter(text);
  const bool broken = length == 1 && !IsAscii(text.front());
  std::uint32_t c = static_cast<unsigned char>(text.front());
  if (length > 1) c &= 0x7FU >> length;
  for (std::size_t i = 1; i < length; ++i) {
    c = c << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(length);
  if (c < kTableSize && !broken) return kWeights[c];
  return {kFirstOther + (broken ? 0x110000U : 0U) + c, 0};
}

int CompareWeights(std::string_view a, std::string_view b) {
  int by_accent = 0;
  while (!a.empty() && !b.empty()) {
    const Weight first = TakeWeight(a);
    const Weight second = TakeWeight(b);
    if (first.letter != second.letter) return first.letter < second.letter ? -1 : 1;
    if (by_accent == 0 && first.accent != second.accent) {
      by_accent = first.accent < second.accent ? -1 : 1;
    }
  }
  if (a.empty() != b.empty()) return a.empty() ? -1 : 1;
  return by_accent;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// How many bytes both texts begin with in common, up to the start of a character.
std::size_t CommonStart(std::string_view a, std::string_view b) {
  const std::size_t size = std::min(a.size(), b.size());
  std::size_t i = 0;
  while (i + sizeof(std::uint64_t) <= size &&
         std::memcmp(a.data() + i, b.data() + i, sizeof(std::uint64_t)) == 0) {
    i += sizeof(std::uint64_t);
  }
  while (i < size && a[i] == b[i]) ++i;
  const auto inside = [&i](std::string_view text) {
    return i < text.size() && IsContinuation(text[i]);
  };
  while (i > 0 && (inside(a) || inside(b))) --i;
  return i;
}

struct PlainNumber {
  bool negative = false;
  std::string_view integer;   // without leading zeros
  std::string_view fraction;  // without trailing zeros
};

bool ReadPlainNumber(std::string_view text, PlainNumber& number) {
  text = WithoutTrailingBlanks(text);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  number.negative = !text.empty() && text.front() == '-';
  if (number.negative) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  number.integer = text.substr(0, point);
  number.fraction = text.substr(std::min(point + 1, text.size()));
  if (number.integer.empty() && number.fraction.empty()) return false;
  for (const std::string_view digits : {number.integer, number.fraction}) {
    for (const char c : digits) {
      if (c < '0' || c > '9') return false;
    }
  }
  while (!number.integer.empty() && number.integer.front() == '0') number.integer.remove_prefix(1);
  while (!number.fraction.empty() && number.fraction.back() == '0')
    number.fraction.remove_suffix(1);
  if (number.integer.empty() && number.fraction.empty()) number.negative = false;
  return true;
}

int CompareNumbers(const PlainNumber& a, const PlainNumber& b) {
  if (a.negative != b.negative) return a.negative ? -1 : 1;
  int order = 0;
  if (a.integer.size() != b.integer.size()) {
    order = a.integer.size() < b.integer.size() ? -1 : 1;
  } else {
    order = a.integer.compare(b.integer);
    if (order == 0) order = a.fraction.compare(b.fraction);
  }
  return a.negative ? -order : order;
}

/// Eight characters in which "0" stands for any digit.
struct Pattern {
  std::uint64_t wanted;
  std::uint64_t limit;
};

constexpr Pattern MakePattern(const char (&text)[9]) {
  std::array<char, 8> wanted{};
  std::array<char, 8> limit{};
  for (std::size_t i = 0; i < 8; ++i) {
    wanted[i] = text[i];
    limit[i] = text[i] == '0' ? 0x76 : 0x7F;
  }
  return {std::bit_cast<std::uint64_t>(wanted), std::bit_cast<std::uint64_t>(limit)};
}

constexpr Pattern kYearMonth = MakePattern("0000-00-");
constexpr Pattern kMonthDay = MakePattern("00-00-00");
constexpr Pattern kTime = MakePattern("00:00:00");

/// A digit leaves 0 to 9, any other wanted character 0; adding the limit sets the high bit of each
/// byte that leaves more.
bool Follows(const char* text, const Pattern& pattern) {
  std::uint64_t found = 0;
  std::memcpy(&found, text, sizeof found);
  const std::uint64_t difference = found ^ pattern.wanted;
  return (((difference + pattern.limit) | difference) & 0x8080808080808080U) == 0;
}

std::optional<FechaHora> ParseOrMark(std::string_view text, DateFault* fault) {
  auto date = FechaHora::Parse(text);
  if (!date && fault != nullptr && !fault->raised) {
    fault->raised = true;
    const std::size_t length = std::min(text.size(), sizeof fault->text - 1);
    std::memcpy(fault->text, text.data(), length);
    fault->text[length] = '\0';
  }
  return date;
}

std::string_view View(int size, const void* data) {
  return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
}

int OnTexts(void*, int size_a, const void* a, int size_b, const void* b) {
  return CompareTexts(View(size_a, a), View(size_b, b));
}

int OnNumbers(void*, int size_a, const void* a, int size_b, const void* b) {
  return CompareNumberTexts(View(size_a, a), View(size_b, b));
}

int OnDates(void* fault, int size_a, const void* a, int size_b, const void* b) {
  return CompareDates(View(size_a, a), View(size_b, b), static_cast<DateFault*>(fault));
}

void Add(sqlite3* db, std::string_view name, void* data,
         int (*compare)(void*, int, const void*, int, const void*)) {
  const int result = sqlite3_create_collation_v2(db, std::string(name).c_str(), SQLITE_UTF8, data,
                                                 compare, nullptr);
  if (result != SQLITE_OK) throw Error(kErrorDatabase, "SQLite", sqlite3_errmsg(db));
}

}  // namespace

bool MatchesLike(std::string_view text, std::string_view pattern, char escape) {
  // Where to go on when the rest does not match: behind the last "%", one character further.
  std::string_view retry_pattern;
  std::string_view retry_text;
  bool retry = false;
  for (;;) {
    if (pattern.empty() && text.empty()) return true;
    if (!pattern.empty() && pattern.front() == '%') {
      pattern.remove_prefix(1);
      retry = true;
      retry_pattern = pattern;
      retry_text = text;
      continue;
    }
    if (!pattern.empty() && !text.empty()) {
      const bool any = pattern.front() == '_';
      if (escape != 0 && pattern.front() == escape && pattern.size() > 1) pattern.remove_prefix(1);
      const Weight wanted = TakeWeight(pattern);
      const Weight found = TakeWeight(text);
      if (any || (wanted.letter == found.letter && wanted.accent == found.accent)) continue;
    }
    if (!retry || retry_text.empty()) return false;
    TakeWeight(retry_text);
    pattern = retry_pattern;
    text = retry_text;
  }
}

int CompareTexts(std::string_view a, std::string_view b) {
  a = WithoutTrailingBlanks(a);
  b = WithoutTrailingBlanks(b);
  const std::size_t size = std::min(a.size(), b.size());
  std::size_t i = CommonStart(a, b);
  for (; i < size; ++i) {
    if (!IsAscii(a[i]) || !IsAscii(b[i])) return CompareWeights(a.substr(i), b.substr(i));
    const std::uint32_t first = kWeights[static_cast<unsigned char>(a[i])].letter;
    const std::uint32_t second = kWeights[static_cast<unsigned char>(b[i])].letter;
    if (first != second) return first < second ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

int CompareNumberTexts(std::string_view a, std::string_view b) {
  PlainNumber first;
  PlainNumber second;
  const bool first_is_number = ReadPlainNumber(a, first);
  const bool second_is_number = ReadPlainNumber(b, second);
  if (first_is_number != second_is_number) return first_is_number ? -1 : 1;
  return first_is_number ? CompareNumbers(first, second) : CompareTexts(a, b);
}

bool IsPlainNumber(std::string_view text) {
  PlainNumber number;
  return ReadPlainNumber(text, number);
}

bool IsCanonicalDate(std::string_view text) {
  if (text.size() != 10 && text.size() != 19) return false;
  if (!Follows(text.data(), kYearMonth) || !Follows(text.data() + 2, kMonthDay)) return false;
  if (text.size() == 10) return true;
  return text[10] == ' ' && Follows(text.data() + 11, kTime) &&
         std::memcmp(text.data() + 11, "00:00:00", 8) != 0;
}

int CompareDates(std::string_view a, std::string_view b, DateFault* fault) {
  if (IsCanonicalDate(a) && IsCanonicalDate(b)) return a.compare(b);
  const auto first = ParseOrMark(a, fault);
  const auto second = ParseOrMark(b, fault);
  if (first && second) return *first == *second ? 0 : *first < *second ? -1 : 1;
  if (first.has_value() != second.has_value()) return first ? -1 : 1;
  return a.compare(b);
}

void AddCollations(sqlite3* db, DateFault* fault) {
  Add(db, kTextCollation, nullptr, OnTexts);
  Add(db, kNumberCollation, nullptr, OnNumbers);
  Add(db, kDateCollation, fault, OnDates);
}

}  // namespace kvraedi::sqlite
