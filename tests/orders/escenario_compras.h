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
    base->Run(Guion("orders/escenario_compras.sql"));
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
