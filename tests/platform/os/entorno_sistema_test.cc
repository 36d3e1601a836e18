#include "platform/os/entorno_sistema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>

#include "kvraedi/error.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

TEST(EntornoSistema, StampsNeverRepeatASecondWhicheverObjectGivesThem) {
  EntornoSistema uno;
  EntornoSistema otro;
  FechaHora anterior = uno.Now().PlusSeconds(-1);
  for (int i = 0; i < 50; ++i) {
    const FechaHora sello = (i % 2 == 0 ? uno : otro).FileStamp();
    EXPECT_GT(sello, anterior);
    anterior = sello;
  }
  EXPECT_LT(uno.Now(), anterior);
}

TEST(EntornoSistema, AFixedClockStandsAndItsStampsGoOn) {
  const FechaHora ahora{2024, 2, 29, 23, 59, 59};
  EntornoSistema entorno({.ahora = ahora, .semillaId = {}, .terminal = {}, .region = {}});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(entorno.Now(), ahora);
    EXPECT_EQ(entorno.FileStamp(), ahora.PlusSeconds(i));
  }
}

TEST(Identificadores, AreRandomUuidsOfTheirOwn) {
  const std::regex forma("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}");
  for (const std::optional<std::uint64_t> semilla : {std::optional<std::uint64_t>(), {0}, {7}}) {
    GeneradorIdentificadores generador(semilla);
    std::set<std::string> vistos;
    for (int i = 0; i < 1000; ++i) {
      const std::string id = generador.Nuevo();
      EXPECT_TRUE(std::regex_match(id, forma)) << id;
      vistos.insert(id);
    }
    EXPECT_EQ(vistos.size(), 1000U);
  }
}

TEST(Identificadores, ASeedDecidesThem) {
  const auto primero = [](std::optional<std::uint64_t> semilla) {
    return GeneradorIdentificadores(semilla).Nuevo();
  };
  EXPECT_EQ(primero(5), primero(5));
  EXPECT_NE(primero(5), primero(6));
  EXPECT_NE(primero({}), primero({}));
}

TEST(EntornoSistema, AStartedProgramSeesTheProfileAndIsWaitedForThroughAnInterruption) {
  const CarpetaTemporal carpeta;
  const auto programa = carpeta / "con blancos y ñ.sh";
  std::ofstream(programa) << "#!/bin/sh\nsleep 0.3\nkill -INT $PPID\nsleep 0.1\n"
                             "printf '%s %s' \"$#\" \"$userprofile\" >\"$userprofile/hecho\"\n";
  EntornoSistema entorno({.perfil = carpeta.Ruta()});
  EXPECT_THROW(entorno.Start(programa), Error) << "it may not be run yet";
  std::filesystem::permissions(programa, std::filesystem::perms::owner_all);
  const std::int64_t proceso = entorno.Start(programa);
  entorno.Wait(proceso);
  EXPECT_EQ(Contenido(carpeta / "hecho"), "0 " + carpeta.Ruta().string());
  for (const std::int64_t otro : {proceso, std::int64_t{0}, std::int64_t{-1}}) entorno.Wait(otro);
}

}  // namespace
}  // namespace kvraedi
