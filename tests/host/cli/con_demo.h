#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/host/cli/ejecucion.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi::cli {

using Palabras = std::vector<std::string>;

/// Runs of the program on a small demo database of their own, in a folder whose name has blanks and
/// letters outside ASCII.
class ConDemo : public testing::Test {
 protected:
  explicit ConDemo(int facturas = 0)
      : creacion({"demo", "--carpeta", Demo().string(), "--facturas", std::to_string(facturas)}) {
    if (creacion.codigo != 0) throw std::runtime_error(creacion.mensajes);
  }

  std::filesystem::path Demo() const { return carpeta / "señales de año"; }
  std::filesystem::path Base() const { return Demo() / "kvraedi.db"; }
  Ejecucion Ejecutar(Palabras args, const Palabras& mas = {}) const {
    args.insert(args.end(), {"--conexion", "sqlite:" + Base().string()});
    args.insert(args.end(), mas.begin(), mas.end());
    return Ejecucion(args);
  }

  CarpetaTemporal carpeta;
  const Ejecucion creacion;
};

}  // namespace kvraedi::cli
