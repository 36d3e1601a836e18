#include "frame/formato.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "frame/base64.h"
#include "frame/registro.h"
#include "frame/sql.h"

namespace kvraedi {
namespace {

std::string Format(const char* value, const char* pattern, char decimal = '.') {
  return FormatearNumero(Currency::Parse(value).value(), pattern, decimal);
}

TEST(NumberPatterns, FixDecimalsAndLeadingZeros) {
  const struct {
    const char *value, *pattern, *text;
  } cases[] = {{"0", "0.000", "0.000"},
               {"0.0005", "0.000", "0.001"},
               {"-0.0004", "0.000", "0.000"},
               {"-0.0005", "0.000", "-0.001"},
               {"1234567.8", "0.00", "1234567.80"},
               {"12.5", "#0.00", "12.50"},
               {"0.4", "#0.00", "0.40"},
               {"7", "000000", "000007"},
               {"1234567", "000000", "1234567"},
               {"3", "00", "03"},
               {"9.9999", "0.000", "10.000"},
               {"2.5", "0", "3"},
               {"21.1", "0.0000", "21.1000"},
               {"-0.5005", "#0.000000", "-0.500500"}};
  for (const auto& [value, pattern, text] : cases) {
    EXPECT_EQ(Format(value, pattern), text) << value << " " << pattern;
  }
  EXPECT_EQ(Format("-5", "0.0000", ','), "-5,0000");
  const auto least = Currency::FromUnits(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(FormatearNumero(least, "0.0000"), "-922337203685477.5808");
}

TEST(DateTexts, FollowThePatternAndTheDisplayForm) {
  const FechaHora fecha{2024, 3, 1, 9, 5, 7};
  EXPECT_EQ(FormatearFecha(fecha, "21yymmddhhnn"), "212403010905");
  EXPECT_EQ(FormatearFecha(fecha, "yyyymmddhhnnss"), "20240301090507");
  EXPECT_EQ(FechaTexto(fecha), "01/03/2024 9:05:07");
  EXPECT_EQ(FechaTexto({2024, 3, 1}), "01/03/2024");
  EXPECT_TRUE(FechaEscrita("29/02/2024"));
  for (const char* text : {"", "1/3/2024", "01-03-2024", "2024-03-01", "20240301", "30/02/2024",
                           "01/03/2024 ", "01/03/20__"}) {
    EXPECT_FALSE(FechaEscrita(text)) << text;
  }
}

TEST(ValueTexts, ArePlain) {
  EXPECT_EQ(TextoDe(Valor()), "");
  EXPECT_EQ(TextoDe(Valor(std::int64_t{-42})), "-42");
  EXPECT_EQ(TextoDe(Valor(0.1)), "0.1");
  EXPECT_EQ(TextoDe(Valor(Currency::FromUnits(125000))), "12.5");
  EXPECT_EQ(TextoDe(Valor(Currency::FromUnits(100000))), "10");
}

std::pair<std::string, bool> Fit(Alineacion alineacion, std::string_view text, std::size_t width) {
  std::string field(width, '#');
  const bool fits = FormatearCampo(alineacion, text, field);
  return {field, fits};
}

TEST(FieldFitting, FillsCutsAndConverts) {
  constexpr auto kIzq = Alineacion::kIzquierda;
  constexpr auto kDer = Alineacion::kDerecha;
  const struct {
    Alineacion alineacion;
    const char* text;
    std::size_t width;
    const char* bytes;
    bool fits;
  } cases[] = {{kIzq, "AB", 4, "AB  ", true},
               {kDer, "AB", 4, "  AB", true},
               {kIzq, "", 3, "   ", true},
               {kIzq, "ABCDE", 3, "ABC", false},
               {kDer, "ABCDE", 3, "ABC", false},
               {kIzq, "Ñandú €", 8, "\321and\372 \200 ", true},
               {kIzq, "ñññ", 3, "\xF1\xF1\xF1", true},
               {kIzq, "a\r\nb\tc", 6, "a  b c", true},
               {kIzq, "Жx\U0001F600y", 4, "?x?y", true},
               {kIzq, "a\377b\303", 5, "a?b? ", true},
               {kDer, "“–”", 4, " \x93\x96\x94", true}};
  for (const auto& c : cases) {
    const auto [bytes, fits] = Fit(c.alineacion, c.text, c.width);
    EXPECT_EQ(bytes, c.bytes) << c.text;
    EXPECT_EQ(fits, c.fits) << c.text;
  }
}

TEST(SqlTexts, QuotesInValuesAreDoubled) {
  EXPECT_EQ(Sql("SELECT ", -1, ", ", SqlTexto{"O'Donnell'; DROP TABLE x --"}),
            "SELECT -1, 'O''Donnell''; DROP TABLE x --'");
}

TEST(Base64, GroupsRestsAndLinesOfSeventyTwo) {
  const std::string linea(72, 'A');
  const std::pair<std::string, std::string> casos[] = {
      {"", ""},
      {"f", "Zg=="},
      {"fo", "Zm8="},
      {"foo", "Zm9v"},
      {"foob", "Zm9vYg=="},
      {std::string("\0\xFF\xFE", 3), "AP/+"},
      {std::string(54, '\0'), linea},
      {std::string(55, '\0'), linea + "\nAA=="},
      {std::string(108, '\0'), linea + '\n' + linea}};
  for (const auto& [bytes, texto] : casos) EXPECT_EQ(CodificaBase64(bytes), texto);
}

constexpr Disposicion kPrueba({{"Tag", 1, 3}, {"Numero", 4, 4, Der}, {"", 8, 2}, {"Texto", 10, 5}});

TEST(Record, RewritingAFieldLeavesNothingOfTheOldText) {
  Registro registro(kPrueba);
  registro.Texto(kPrueba["Texto"], "largo");
  registro.Texto(kPrueba["Texto"], "x");
  EXPECT_EQ(registro.Linea(), "         x    ");
}

TEST(Locale, DoesNotChangeAnyText) {
  const auto texts = [] {
    return std::vector<std::string>{Format("1234567.891", "0.000"), TextoDe(Valor(1234.5)),
                                    FechaHora{2024, 3, 1, 1, 2, 3}.ToIso(),
                                    std::to_string(Currency::FromDouble(1234.5678).Units()),
                                    Fit(Alineacion::kIzquierda, "Ññ", 3).first};
  };
  const auto plain = texts();
  if (std::setlocale(LC_ALL, "es_ES.UTF-8") == nullptr) {
    GTEST_SKIP() << "the locale es_ES.UTF-8 is not on this machine";
  }
  EXPECT_EQ(texts(), plain);
  std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace kvraedi
