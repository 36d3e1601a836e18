#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/odbc/odbc_api.h"

namespace kvraedi::odbc {

/// UTF-8 as the wide calls take it. What is no UTF-8 becomes U+FFFD.
std::vector<SQLWCHAR> ToWide(std::string_view utf8);
/// The units of UTF-16 in `bytes`, at any address, as UTF-8.
std::string ToUtf8(std::span<const std::byte> bytes);
std::string ToUtf8(std::span<const SQLWCHAR> text);

/// A text in the form that a wide call wants: address and length in characters.
class WideText {
 public:
  explicit WideText(std::string_view utf8) : units_(ToWide(utf8)) {}
  SQLWCHAR* Data() { return units_.data(); }
  template <class Length>
  Length Size() const {
    return static_cast<Length>(units_.size());
  }

 private:
  std::vector<SQLWCHAR> units_;
};

}  // namespace kvraedi::odbc
