#include "kvraedi/valor.h"

#include <gtest/gtest.h>

#include <array>

#include "frame/numero.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

TEST(Currency, ParsesExactlyToFourDecimals) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"0", 0},
      {"12.34", 123400},
      {"-0.00005", -1},
      {"0.00004999", 0},
      {"1.00005", 10001},
      {".5", 5000},
      {"1e3", 10000000},
      {"25E-1", 25000},
      {"922337203685477.5807", 9223372036854775807},
      {"0.000000000000000000000000001", 0}};
  for (const auto& [text, units] : cases) {
    EXPECT_EQ(Currency::Parse(text).value().Units(), units) << text;
  }
  for (const char* text : {"", "-", "1,5", "12x", "1e", "e5", "1); DROP TABLE x"}) {
    EXPECT_FALSE(Currency::Parse(text)) << text;
  }
  for (const char* text : {"922337203685477.5808", "1e20", "1e400", "-99999999999999999999"}) {
    EXPECT_THROW(Currency::Parse(text), Error) << text;
  }
}

TEST(Currency, TakesTheDecimalTextOfADouble) {
  const std::pair<double, std::int64_t> cases[] = {{1.00005, 10001},
                                                   {-2.675, -26750},
                                                   {0.1 + 0.2, 3000},
                                                   {99999999999.9999, 999999999999999},
                                                   {-100000000000.9995, -1000000000009995},
                                                   {1234567890123.12, 12345678901231200}};
  for (const auto& [value, units] : cases) EXPECT_EQ(Currency::FromDouble(value).Units(), units);
  EXPECT_THROW(Currency::FromDouble(1e300), Error);
  EXPECT_THROW(Currency::FromDouble(std::numeric_limits<double>::quiet_NaN()), Error);
}

TEST(Currency, ArithmeticNeverWraps) {
  const auto most = Currency::FromUnits(std::numeric_limits<std::int64_t>::max());
  EXPECT_THROW(most + Currency::FromUnits(1), Error);
  EXPECT_THROW(Currency() - most - Currency::FromUnits(2), Error);
  EXPECT_THROW(Currency::FromInteger(922337203685478), Error);
  EXPECT_THROW(ReglaDeTres(most, most, Currency::FromInteger(1)), Error);
  EXPECT_THROW(ImporteConDescuento(most, most, most), Error);
}

Currency Of(const char* text) { return Currency::Parse(text).value(); }

TEST(Rounding, TakesHalvesAwayFromZeroAndIsExact) {
  EXPECT_EQ(Redondear(Of("1.0005"), 3), Of("1.001"));
  EXPECT_EQ(Redondear(Of("-1.0005"), 3), Of("-1.001"));
  EXPECT_EQ(Redondear(Of("1.0004"), 3), Of("1"));
  EXPECT_EQ(Redondear(Of("2.5"), 0), Of("3"));
  EXPECT_EQ(ReglaDeTres(Of("0.0001"), Of("0.5"), Of("1")), Of("0.0001"));
  EXPECT_EQ(ReglaDeTres(Of("-3.3333"), Of("3"), Of("1")), Of("-9.9999"));
  for (const auto& [unidades, precio, descuento, neto] : {std::array{"2.5", "3", "10", "6.75"},
                                                          {"10", "1", "100", "0"},
                                                          {"0.3333", "0.333", "0", "0.111"},
                                                          {"-2.5", "3", "10", "-6.75"},
                                                          {"1.0001", "1.5", "0.0033", "1.5001"}}) {
    EXPECT_EQ(ImporteConDescuento(Of(unidades), Of(precio), Of(descuento)), Of(neto));
  }
}

TEST(Numbers, NarrowingAndReadingAreChecked) {
  EXPECT_EQ(Estrechar<std::int16_t>(32767), 32767);
  EXPECT_EQ(Entero<std::int16_t>("-32768"), -32768);
  for (const auto bad : {"32768", "99999999999"}) {
    EXPECT_THROW(Entero<std::int16_t>(bad), Error) << bad;
  }
  for (const auto bad : {"", "1.5", " 1", "x"}) EXPECT_THROW(Entero<std::int32_t>(bad), Error);
  EXPECT_THROW(Estrechar<std::int16_t>(32768), Error);
}

TEST(FechaHora, ReadsEveryFormThatTheDatabaseTakes) {
  const std::pair<const char*, const char*> cases[] = {
      {"01/03/2024", "2024-03-01"},
      {"1/3/2024 9:05", "2024-03-01 09:05:00"},
      {"29/02/2024 23:59:58", "2024-02-29 23:59:58"},
      {"20240301", "2024-03-01"},
      {"2024-03-01T10:20:30.123", "2024-03-01 10:20:30"},
      {"2024-3-1", "2024-03-01"},
      {"", "1900-01-01"},
      {"  ", "1900-01-01"}};
  for (const auto& [text, iso] : cases) {
    EXPECT_EQ(FechaHora::Parse(text).value().ToIso(), iso) << text;
  }
  for (const char* text :
       {"31/02/2024", "29/02/2023", "00/01/2024", "01/13/2024", "1/1/24", "2024", "20241301",
        "01/01/2024x", "01/01/2024 24:00", "abc", "//", "1/1/0000"}) {
    EXPECT_FALSE(FechaHora::Parse(text)) << text;
  }
}

TEST(FechaHora, MovesAcrossMonthsAndLeapDays) {
  const auto from = FechaHora::Parse("28/02/2024 23:59:59").value();
  EXPECT_EQ(from.PlusSeconds(1).ToIso(), "2024-02-29");
  EXPECT_EQ(from.PlusSeconds(1 + 86400).ToIso(), "2024-03-01");
  EXPECT_EQ(from.PlusSeconds(-60 * 86400).ToIso(), "2023-12-30 23:59:59");
  EXPECT_THROW(FechaHora::Parse("31/12/9999").value().PlusSeconds(86400), Error);
}

}  // namespace
}  // namespace kvraedi
