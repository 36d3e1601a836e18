#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "frame/codigo1252.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {

/// Supplier 20 with a GLN, store 3, and order 1234 of two lines, whose first article has bar codes.
class EscenarioCompras : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(R"(
UPDATE Empresas SET Emp_Articulos = 7, Emp_Proveedores = 8 WHERE Codigo = 1;
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Direccion, CP, Localidad, EDI_GLN, PedProv_Consignacion)
  VALUES (1, 3, 'Almacén Norte', 'Muelle, 2', '35002', 'Arucas', '843.7000.000031', 'CONSIG-3');
INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (7, 501, 'Queso'), (7, 502, 'Gofio');
INSERT INTO Articulos_CBarras VALUES (7, 501, '8400000005018', 1), (7, 501, '8400000005019', 0);
INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre, Cod_EDIPlat, Cod_EDITipoMsg)
  VALUES (8, 20, 'Quesería', 4, 1), (1, 20, 'De otro fichero', 9, 9);
INSERT INTO Proveedores_GLN VALUES (8, 20, '841.2345.678901', 1), (8, 20, '8499999999999', 0);
INSERT INTO Pedidos_Proveedores VALUES (1, 1234, 20, 3, '02/03/2026', '09/03/2026', NULL, 2, 24.25);
INSERT INTO Pedidos_Proveedores_Lineas VALUES (1, 1234, 1, 501, 'REF-1', 'Queso', 12, 2, 0.5, 1.5);
INSERT INTO Pedidos_Proveedores_Lineas VALUES (1, 1234, 2, 502, NULL, 'Gofio de 1 €', 2.5, 1, 0, 2.5);
)");
    empresa = std::make_shared<EmpresaDePrueba>(*base, std::int16_t{1}, carpeta.Ruta());
    PropiedadesSesion().EmpresaKestrova(empresa);
  }

  static std::string Leer(const std::filesystem::path& fichero) {
    std::ifstream entrada(fichero, std::ios::binary);
    return Leer1252(std::string(std::istreambuf_iterator<char>(entrada), {}));
  }

  /// "" when an operation went well, else its box.
  std::string FalloDe(bool hecho) const {
    if (hecho) return "";
    const ui::MessageBox& caja = toolkit.Messages().back();
    return (caja.icon == ui::Icon::kCritical ? "" : "(otro icono) ") + caja.title + ": " +
           caja.text;
  }

  /// Runs `accion` with a change to the data made and then taken back.
  template <class Accion>
  void Con(std::string_view cambio, Accion&& accion) {
    SCOPED_TRACE(cambio);
    base->BeginTrans();
    if (!cambio.empty()) base->Run(cambio);
    accion();
    base->RollbackTrans();
  }

  /// A record that a change to the data gives; one without fields is not to be there.
  struct Caso {
    std::string cambio;
    std::string registro;
  };

  /// `generar` gives back its failure, "" for none, and writes `fichero`.
  template <class Generar>
  void ComprobarRegistros(const std::vector<Caso>& casos, const std::filesystem::path& fichero,
                          Generar&& generar) {
    for (const auto& [cambio, registro] : casos) {
      Con(cambio, [&, &esperado = registro] {
        EXPECT_EQ(generar(), "");
        const std::string texto = "\r\n" + Leer(fichero);
        const std::string etiqueta = esperado.substr(0, esperado.find('|'));
        const auto inicio = texto.find("\r\n" + etiqueta + "|");
        EXPECT_EQ(inicio == std::string::npos
                      ? etiqueta
                      : texto.substr(inicio + 2, texto.find("\r\n", inicio + 2) - inicio - 2),
                  esperado);
      });
    }
  }

  /// Makes each statement and each file operation of `generar` fail in turn: the failure is told,
  /// and `fichero` is there from that statement and from that operation on.
  template <class Generar>
  void ComprobarFallos(const std::filesystem::path& fichero, int sentencia, int operacion,
                       const std::string& caja, Generar&& generar) {
    const auto barrer = [&](auto& fallo, const char* texto, int primero) {
      fallo.FallarEn(0);
      ASSERT_EQ(generar(), "");
      const int pasos = fallo.Operaciones();
      ASSERT_GE(pasos + 1, primero);
      for (int k = 1; k <= pasos; ++k) {
        std::filesystem::remove(fichero);
        fallo.FallarEn(k);
        EXPECT_NE(generar().find(caja + texto), std::string::npos) << k;
        EXPECT_EQ(std::filesystem::exists(fichero), k >= primero) << texto << k;
      }
    };
    barrer(conexion->fallo, "Conexión perdida", sentencia);
    barrer(entorno.fallo, "No queda espacio", operacion);
  }
};

/// The text with every "\n" as CR LF.
inline std::string CrLf(std::string_view texto) {
  std::string con;
  for (const char c : texto) con.append(c == '\n' ? "\r\n" : std::string(1, c));
  return con;
}

}  // namespace kvraedi
