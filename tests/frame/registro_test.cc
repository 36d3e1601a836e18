#include "frame/registro.h"

#include <gtest/gtest.h>

namespace kvraedi {
namespace {

constexpr Disposicion kPrueba({{"Tag", 1, 3}, {"Numero", 4, 4, Der}, {"", 8, 2}, {"Texto", 10, 5}});

TEST(Record, RewritingAFieldLeavesNothingOfTheOldText) {
  Registro registro(kPrueba);
  registro.Texto(kPrueba["Texto"], "largo");
  registro.Texto(kPrueba["Texto"], "x");
  EXPECT_EQ(registro.Linea(), "         x    ");
}

}  // namespace
}  // namespace kvraedi
