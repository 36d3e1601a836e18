#include "platform/sqlite/collations.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::sqlite {
namespace {

int Sign(int order) { return (order > 0) - (order < 0); }

/// Every pair of the classes, parted by ";", must compare as their places do, and the members of a
/// class, parted by "|", as equal.
template <class Compare>
void ExpectOrder(const std::string& classes, Compare compare) {
  std::vector<std::pair<int, std::string>> texts;
  std::istringstream all(classes);
  int i = 0;
  for (std::string members; std::getline(all, members, ';');) {
    std::istringstream in(members + '|');
    for (std::string text; std::getline(in, text, '|');) texts.emplace_back(i, text);
    ++i;
  }
  for (const auto& [place, a] : texts) {
    for (const auto& [other, b] : texts) {
      EXPECT_EQ(Sign(compare(a, b)), Sign(place - other)) << "'" << a << "' and '" << b << "'";
    }
  }
}

TEST(Collations, TextsInSpanishOrder) {
  ExpectOrder(
      "|   ;_x;10;9;a|A|a  ;à|À;á|Á;abc|ABC;ábc|ÁBC  ;abcd;caña|CAÑA;çaña;cao;"
      "compañía|COMPAÑÍA;éa;eb;identico hasta aqui n|Identico Hasta Aqui N;"
      "identico hasta aqui ñ|identico hasta aqui Ñ ;identico hasta aqui o;nz;ñ|Ñ;o;"
      "óscar|ÓSCAR;pingüino|PINGÜINO;š|Š;ÿ|Ÿ;z;ž|Ž",
      CompareTexts);
}

TEST(Collations, TextsOutsideLatinAndBrokenTextsHaveAnOrder) {
  ExpectOrder("z;Ω;中;🙂;\x80;\xC3;\xC3\xC3\xA9;\xC3\xC3\xAA;\xFF", CompareTexts);
}

TEST(Collations, NumbersByValueBeforeTexts) {
  ExpectOrder(
      "-10|-010.0;-9.5;0|000|-0|0.00|.0;0.5|.50|00.5;9;10|0010|10.| 10 ;10.25;"
      "123456789012345678901234|00123456789012345678901234;| ;-;1.2.3;10a|10A;abc|ABC ",
      CompareNumberTexts);
}

TEST(Collations, DatesInEveryForm) {
  DateFault fault;
  ExpectOrder(
      "|1900-01-01|01/01/1900|19000101|1900-01-01 00:00:00;1999-12-31|31/12/1999;"
      "2024-03-01|1/3/2024|20240301|2024-03-01T00:00:00|2024-03-01 00:00;"
      "2024-03-01 00:00:01|01/03/2024 0:00:01;2024-03-01 10:00:00|20240301 10:00;"
      "2024-03-02|02/03/2024;2024-10-01",
      [&fault](std::string_view a, std::string_view b) { return CompareDates(a, b, &fault); });
  EXPECT_FALSE(fault.raised);
}

TEST(Collations, TextsThatAreNoDatesAreMarked) {
  for (const char* text : {"abc", "31/02/2024", "2024-3a-01", "2024-13-1", "20240230"}) {
    DateFault fault;
    EXPECT_EQ(CompareDates("2024-03-01", text, &fault), -1) << text;
    EXPECT_TRUE(fault.raised) << text;
    EXPECT_EQ(std::string(fault.text), text);
    EXPECT_EQ(Sign(CompareDates(text, "01/01/2024", nullptr)), 1) << text;
  }
  DateFault fault;
  const std::string endless(1000, 'x');
  CompareDates(endless, "", &fault);
  EXPECT_EQ(std::string(fault.text), std::string(63, 'x'));
}

TEST(Collations, CanonicalDates) {
  for (const char* text : {"2024-03-01", "0001-01-01", "2024-03-01 10:11:12"}) {
    EXPECT_TRUE(IsCanonicalDate(text)) << text;
  }
  for (const char* text : {"", "2024-3-001", "2024/03/01", "2024-03-0:", "2024-03-0/", "x024-03-01",
                           "2024-03-01 00:00:00", "2024-03-01T10:11:12", "2024-03-01 10:11:1x",
                           "2024-03-01 10:11", "2024-03-01\xFF", "\xB2-24-03-01"}) {
    EXPECT_FALSE(IsCanonicalDate(text)) << text;
  }
}

}  // namespace
}  // namespace kvraedi::sqlite
