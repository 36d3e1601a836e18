#include "host/demo/importes.h"

#include <gtest/gtest.h>

#include <string_view>

namespace kvraedi::demo {
namespace {

Currency M(std::string_view text) { return Currency::Parse(text).value(); }

ImportesLinea Linea(const char* unidades, const char* precio, const char* descuento,
                    std::int16_t impuesto = 3) {
  return {M(unidades), M(precio), M(precio), M(descuento), impuesto};
}

TEST(ImportesLinea, RoundsTheExactProductTwice) {
  const struct {
    ImportesLinea linea;
    const char* neto;
    const char* descuento;
  } casos[] = {
      {Linea("3", "2.5", "10"), "6.75", "0.75"},
      {Linea("-3", "2.5", "10"), "-6.75", "-0.75"},
      {Linea("1", "0.0005", "0"), "0.001", "0"},      // half upwards
      {Linea("-1", "0.0005", "0"), "-0.001", "0"},    // away from zero
      {Linea("0.333", "0.0015", "0"), "0.001", "0"},  // 0.0004995: 0.0005 first
      {Linea("1000", "500", "0"), "500000", "0"},     // the largest product
      {Linea("1000", "499.9999", "99.99"), "50", "499949.9"},
  };
  for (const auto& caso : casos) {
    EXPECT_EQ(caso.linea.Neto(), M(caso.neto)) << caso.neto;
    EXPECT_EQ(caso.linea.Descuento(), M(caso.descuento)) << caso.descuento;
  }
}

TEST(Totalizar, DiscountsCarriageAndTaxes) {
  const ImportesLinea lineas[] = {Linea("1", "100", "0", 3), Linea("2", "50", "0", 4)};
  const DescuentoGeneral descuentos[] = {{M("10"), 0}, {M("8.00"), 1}};
  const Totales t = Totalizar(lineas, descuentos, M("2"),
                              [](std::int16_t tipo) { return tipo == 3 ? M("7") : M("9.5"); });
  EXPECT_EQ(t.importeB, M("200"));
  ASSERT_EQ(t.porTipo.size(), 2U);  // 200 - 20 - 8 + 2 = 174, half each
  EXPECT_EQ(t.porTipo[0].base, M("87"));
  EXPECT_EQ(t.porTipo[0].importe, M("6.09"));
  EXPECT_EQ(t.porTipo[1].base, M("87"));
  EXPECT_EQ(t.porTipo[1].importe, M("8.27"));  // 8.265
  EXPECT_EQ(t.impuestos, M("14.36"));
  EXPECT_EQ(t.total, M("188.36"));
}

}  // namespace
}  // namespace kvraedi::demo
