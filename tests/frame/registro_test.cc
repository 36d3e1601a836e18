#include "frame/registro.h"

#include <gtest/gtest.h>

#include "kvraedi/error.h"

namespace kvraedi {
namespace {

constexpr Disposicion kPrueba({{"Tag", 1, 3}, {"Numero", 4, 4, Der}, {"", 8, 2}, {"Texto", 10, 5}});

TEST(Record, IsBlankWhereNothingIsWritten) {
  Registro registro(kPrueba);
  registro.Texto(kPrueba["Tag"], "AB");
  registro.Numero(kPrueba["Numero"], "12");
  registro.Texto(kPrueba["Texto"], "español");
  EXPECT_EQ(registro.Linea(), "AB   12  espa\xF1");
  registro.TerminarEn(kPrueba["Numero"]);
  EXPECT_EQ(registro.Linea(), "AB   12");
}

TEST(Record, RewritingAFieldLeavesNothingOfTheOldText) {
  Registro registro(kPrueba);
  registro.Texto(kPrueba["Texto"], "largo");
  registro.Texto(kPrueba["Texto"], "x");
  EXPECT_EQ(registro.Linea(), "         x    ");
}

TEST(Record, ANumberIsNeverCut) {
  Registro registro(kPrueba);
  registro.Numero(kPrueba["Numero"], "-999");
  try {
    registro.Numero(kPrueba["Numero"], "12345");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "El valor 12345 no cabe en el campo Numero (4 caracteres)");
  }
}

}  // namespace
}  // namespace kvraedi
