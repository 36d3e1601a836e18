#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/demo/esquema.h"
#include "kvraedi/adaptadores.h"
#include "kvraedi/sesion.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/os/entorno_sistema.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/suite/empresa_suite.h"
#include "platform/suite/suite_referencia.h"
#include "tests/apoyo/fallos.h"
#include "tests/apoyo/guion.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {

/// A company object whose answers a test can change.
class EmpresaDePrueba : public EmpresaSuite {
 public:
  using EmpresaSuite::EmpresaSuite;
  bool AplicaIGIC() const override { return igic; }
  bool igic = true;
};

/// A host in small: the suite's tables in a SQLite file, files in a temporary folder, a clock that
/// stands still, faults on demand. Company 1, customer 100 on INVOIC, warehouse 5, user 7.
class Escenario : public testing::Test {
 protected:
  void SetUp() override {
    base = std::make_shared<SqliteConnection>(
        (carpeta / "kvraedi.db").string(),
        SqliteOptions{.create = true, .durability = Durability::kNone});
    for (const auto script : demo::kScriptsSqlite) base->Run(script);
    base->Run(Guion("apoyo/escenario.sql"));
    std::filesystem::create_directory(envios);
    std::filesystem::create_directory(perfil);
    empresa = std::make_shared<EmpresaDePrueba>(*base, std::int16_t{1}, carpeta.Ruta());
    conexion = std::make_shared<ConexionConFallos>(base);
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &suite});
    PropiedadesSesion sesion;
    sesion.EmpresaKestrova(empresa);
    sesion.ConexionKestrova(conexion);
  }

  void TearDown() override {
    if (ui::Form* form = toolkit.OpenForm("frmMsg")) form->Unload();
    PropiedadesSesion sesion;
    sesion.EmpresaKestrova(nullptr);
    sesion.ConexionKestrova(nullptr);
    InstalarAdaptadores({});
  }

  /// An invoice of 20/02/2024 of one line, total 107, for customer 100.
  void InsertarFactura(int codigo, std::string_view cambios = {}) {
    const std::string clave = "1, 2024, 3, " + std::to_string(codigo) + ", 0";
    base->Execute(
        "INSERT INTO Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Fecha, Hora, "
        "Cliente, Almacen, ImporteB, Impuestos, Total) VALUES (" +
        clave + ", '20/02/2024', '20/02/2024 10:45:30', 100, 5, 100, 7, 107)");
    base->Execute(
        "INSERT INTO Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, "
        "Num_Linea, Cod_Articulo, Descripcion, Unidades, Precio, PrecioG, Impuesto) VALUES (" +
        clave + ", 1, 501, 'Queso', 4, 25, 30, 1)");
    base->Execute(
        "INSERT INTO Facturas_Impuestos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo, "
        "Base, Importe) VALUES (" +
        clave + ", 1, 100, 7)");
    if (!cambios.empty()) {
      base->Execute("UPDATE Facturas SET " + std::string(cambios) +
                    " WHERE Codigo = " + std::to_string(codigo));
    }
  }

  /// A new company object: one reads its parameters once.
  void LeerEmpresa() {
    empresa = std::make_shared<EmpresaDePrueba>(*base, std::int16_t{1}, carpeta.Ruta());
    PropiedadesSesion().EmpresaKestrova(empresa);
  }

  int Contar(std::string_view sql) const { return base->Open(sql)->Get<std::int32_t>(0); }

  /// Runs `accion` in a program of its own, with its own connection, that is killed before its k-th
  /// operation; false when it came to its end.
  bool Matar(bool sentencia, int k, const std::function<void()>& accion) {
    const pid_t hijo = ::fork();
    if (hijo == 0) {
      const auto ajena = base;
      base = std::make_shared<SqliteConnection>((carpeta / "kvraedi.db").string());
      conexion = std::make_shared<ConexionConFallos>(base);
      PropiedadesSesion().ConexionKestrova(conexion);
      LeerEmpresa();
      (sentencia ? conexion->fallo : entorno.fallo).MorirEn(k);
      accion();
      ::_exit(0);
    }
    int fin = 0;
    ::waitpid(hijo, &fin, 0);
    return WIFSIGNALED(fin);
  }

  static std::string TextoAviso(const ui::MessageBox& aviso) {
    return aviso.title + "|" + aviso.text + "|" + std::to_string(static_cast<int>(aviso.icon));
  }
  /// The last box, as title, text and icon; "" when there was none.
  std::string UltimoAviso() const {
    return toolkit.Messages().empty() ? "" : TextoAviso(toolkit.Messages().back());
  }

  /// Names of the files in a folder below the sending root, in order.
  std::vector<std::string> Ficheros(const std::string& subcarpeta) const {
    std::vector<std::string> nombres;
    if (!std::filesystem::exists(envios / subcarpeta)) return nombres;
    for (const auto& entrada : std::filesystem::directory_iterator(envios / subcarpeta)) {
      nombres.push_back(entrada.path().filename().string());
    }
    std::sort(nombres.begin(), nombres.end());
    return nombres;
  }

  CarpetaTemporal carpeta;
  std::filesystem::path envios = carpeta / "Envíos EDI";
  std::filesystem::path unidad = carpeta.Ruta();
  std::filesystem::path perfil = carpeta / "perfil";
  EntornoSistema sistema{{.ahora = FechaHora{2024, 3, 1, 9, 8, 7},
                          .semillaId = 1,
                          .unidad = carpeta.Ruta(),
                          .perfil = carpeta / "perfil"}};
  EntornoConFallos entorno{sistema};
  HeadlessToolkit toolkit;
  SuiteReferencia suite;
  std::shared_ptr<SqliteConnection> base;
  std::shared_ptr<ConexionConFallos> conexion;
  std::shared_ptr<EmpresaDePrueba> empresa;
};

}  // namespace kvraedi
