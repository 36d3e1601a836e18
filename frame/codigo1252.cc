#include "frame/codigo1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kvraedi {
namespace {

// Characters of the bytes 0x80 to 0x9F; 0 where the code page has none.
constexpr std::array<char32_t, 32> kHigh = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char32_t kInvalid = 0xFFFFFFFF;

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

/// Takes one character off the front; a byte that begins none is taken alone.
char32_t TakeCharacter(std::string_view& text) {
  const unsigned char first = Byte(text.front());
  std::size_t length = 1;
  char32_t character = first;
  if (first >= 0xC2 && first < 0xE0) {
    length = 2;
    character = first & 0x1FU;
  } else if (first >= 0xE0 && first < 0xF0) {
    length = 3;
    character = first & 0x0FU;
  } else if (first >= 0xF0 && first < 0xF5) {
    length = 4;
    character = first & 0x07U;
  } else if (first >= 0x80) {
    character = kInvalid;
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size() || (Byte(text[i]) & 0xC0U) != 0x80U) {
      text.remove_prefix(i);
      return kInvalid;
    }
    character = (character << 6U) | (Byte(text[i]) & 0x3FU);
  }
  text.remove_prefix(length);
  return character;
}

bool IsControl(char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }

char ToByte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto* const found = std::find(kHigh.begin(), kHigh.end(), character);
  if (found == kHigh.end()) return '?';
  return static_cast<char>(0x80 + (found - kHigh.begin()));
}

}  // namespace

Escrito1252 Escribir1252(std::string_view utf8, std::span<char> destino, Saltos saltos) {
  std::size_t used = 0;
  while (!utf8.empty()) {
    if (used == destino.size()) return {used, false};
    if (utf8.front() >= ' ' && utf8.front() <= '~') {  // most characters are ASCII
      destino[used++] = utf8.front();
      utf8.remove_prefix(1);
    } else {
      const char byte = ToByte(TakeCharacter(utf8));
      destino[used++] = saltos == Saltos::kBlancos && IsControl(byte) ? ' ' : byte;
    }
  }
  return {used, true};
}

std::string Leer1252(std::string_view bytes) {
  const bool plain = std::all_of(bytes.begin(), bytes.end(), [](char c) { return Byte(c) < 0x80; });
  if (plain) return std::string(bytes);
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char byte : bytes) {
    char32_t character = Byte(byte);
    if (character < 0x80) {
      utf8 += byte;
      continue;
    }
    if (character < 0xA0 && kHigh[character - 0x80] != 0) character = kHigh[character - 0x80];
    if (character >= 0x800) {
      utf8 += static_cast<char>(0xE0U | (character >> 12U));
      utf8 += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    } else {
      utf8 += static_cast<char>(0xC0U | (character >> 6U));
    }
    utf8 += static_cast<char>(0x80U | (character & 0x3FU));
  }
  return utf8;
}

}  // namespace kvraedi
