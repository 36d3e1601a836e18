#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "host/demo/crear_demo.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi {

/// A folder of its own for a test, gone with it.
class CarpetaDemo {
 public:
  explicit CarpetaDemo(const std::string& nombre)
      : raiz_(std::filesystem::path(::testing::TempDir()) /
              ("kvraedi_demo_" + nombre + "_" + std::to_string(::getpid()))) {
    std::filesystem::remove_all(raiz_);
  }
  ~CarpetaDemo() { std::filesystem::remove_all(raiz_); }
  CarpetaDemo(const CarpetaDemo&) = delete;
  CarpetaDemo& operator=(const CarpetaDemo&) = delete;

  std::filesystem::path Ruta() const { return raiz_ / "Demo con ñ y blancos"; }
  std::filesystem::path Crear(std::int32_t facturas, std::uint64_t semilla = 1,
                              bool sobrescribir = false) const {
    return demo::CrearDemo({Ruta(), facturas, semilla, sobrescribir});
  }

 private:
  std::filesystem::path raiz_;
};

inline std::int64_t Contar(Connection& db, const std::string& desde) {
  return db.Open("SELECT COUNT(*) AS n FROM " + desde)->Get<std::int64_t>("n");
}

}  // namespace kvraedi
