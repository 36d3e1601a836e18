#include "platform/odbc/connection_secrets.h"

#include <algorithm>
#include <array>

namespace kvraedi::odbc {
namespace {

constexpr std::array<std::string_view, 4> kKeys = {"PWD", "PASSWORD", "UID", "USER"};
constexpr std::size_t kPasswords = 2;  // of the keys, the first ones
constexpr std::string_view kHidden = "***";
constexpr std::size_t kLongPassword = 4;

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool IsWordCharacter(char c) {
  const char upper = Upper(c);
  return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80U;
}

/// Whether a key stands at `at`, as a word of its own and followed by "=".
bool KeyAt(std::string_view text, std::size_t at, std::string_view key) {
  if (at > 0 && IsWordCharacter(text[at - 1])) return false;
  if (text.size() - at <= key.size() || text[at + key.size()] != '=') return false;
  return std::equal(key.begin(), key.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                    [](char k, char c) { return k == Upper(c); });
}

/// Where the value that starts at `at` ends; within braces, "}}" stands for one.
std::size_t EndOfValue(std::string_view text, std::size_t at, std::string_view marks) {
  if (at >= text.size() || text[at] != '{') {
    return std::min(text.find_first_of(marks, at), text.size());
  }
  for (++at; at < text.size(); ++at) {
    if (text[at] != '}') continue;
    if (at + 1 == text.size() || text[at + 1] != '}') return at + 1;
    ++at;
  }
  return at;
}

std::string Unbraced(std::string_view value) {
  if (!value.starts_with('{')) return std::string(value);
  value.remove_prefix(1);
  if (value.ends_with('}')) value.remove_suffix(1);
  std::string plain;
  for (std::size_t i = 0; i < value.size(); ++i) {
    plain += value[i];
    if (value[i] == '}') ++i;
  }
  return plain;
}

/// Tells the value of the pair at `at`, if there is one, and gives back where to go on. One of
/// `marks` ends a value that stands in no braces.
template <class Found>
std::size_t VisitPair(std::string_view text, std::size_t at, std::string_view marks, Found found) {
  for (std::size_t i = 0; i < kKeys.size(); ++i) {
    if (!KeyAt(text, at, kKeys[i])) continue;
    const std::size_t start = at + kKeys[i].size() + 1;
    const std::size_t end = EndOfValue(text, start, marks);
    found(start, end, i < kPasswords);
    return end;
  }
  return at + 1;
}

std::string WithoutPairs(std::string_view text) {
  std::string shown;
  std::size_t copied = 0;
  for (std::size_t at = 0; at < text.size();) {
    at = VisitPair(text, at, "; \t\r\n'\"",
                   [&](std::size_t start, std::size_t end, bool /*password*/) {
                     shown.append(text.substr(copied, start - copied)).append(kHidden);
                     copied = end;
                   });
  }
  return shown.append(text.substr(copied));
}

void HideValue(std::string& text, const std::string& value, bool anywhere) {
  for (std::size_t at = text.find(value); at != std::string::npos; at = text.find(value, at)) {
    const std::size_t end = at + value.size();
    const bool word = (at == 0 || !IsWordCharacter(text[at - 1])) &&
                      (end == text.size() || !IsWordCharacter(text[end]));
    if (anywhere || word) text.replace(at, value.size(), kHidden);
    at += anywhere || word ? kHidden.size() : 1;
  }
}

}  // namespace

ConnectionSecrets::ConnectionSecrets(std::string_view connection_string) {
  for (std::size_t at = 0; at < connection_string.size();) {
    at = VisitPair(connection_string, at, ";",
                   [&](std::size_t start, std::size_t end, bool password) {
                     std::string value = Unbraced(connection_string.substr(start, end - start));
                     if (value.empty()) return;
                     const bool anywhere = password && value.size() >= kLongPassword;
                     secrets_.push_back({std::move(value), anywhere});
                   });
  }
}

std::string ConnectionSecrets::Hide(std::string_view text) const {
  std::string shown(text);
  for (const Secret& secret : secrets_) HideValue(shown, secret.value, secret.anywhere);
  return WithoutPairs(shown);
}

}  // namespace kvraedi::odbc
