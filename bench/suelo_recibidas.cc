#include "bench/suelo_recibidas.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <string_view>

namespace kvraedi::bench {
namespace {

struct Celda {
  std::size_t posicion;
  std::size_t ancho;
  int decimales = -1;  ///< of a number
};

constexpr Celda kTextos[] = {{13, 15}, {28, 35}};
constexpr Celda kNumeros[] = {{139, 16, 3}, {227, 16, 4}, {243, 16, 4}};
constexpr Celda kImporte = {209, 18, 2};

void Anadir(std::string& fila, std::string_view linea, const Celda& celda) {
  std::string_view texto = linea.substr(celda.posicion - 1, celda.ancho);
  const auto primero = texto.find_first_not_of(' ');
  texto = primero == std::string_view::npos
              ? std::string_view()
              : texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
  if (celda.decimales < 0) {
    // The texts of the case are of one byte each, but for "ñ".
    for (const char c : texto) {
      if (c == '\xF1') {
        fila += "ñ";
      } else {
        fila += c;
      }
    }
    fila += '\0';
    return;
  }
  double valor = 0;
  std::from_chars(texto.data(), texto.data() + texto.size(), valor);
  std::array<char, 40> cifras{};
  const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), valor,
                                 std::chars_format::fixed, celda.decimales)
                       .ptr;
  std::replace(cifras.data(), fin, '.', ',');
  fila.append(cifras.data(), fin) += '\0';
}

}  // namespace

std::vector<std::string> VerSuelo(const std::filesystem::path& fichero) {
  constexpr std::size_t kCeldasFila = 96;
  std::ifstream entrada(fichero, std::ios::binary);
  std::vector<std::string> filas;
  std::string linea;
  while (std::getline(entrada, linea)) {
    if (linea.starts_with("SINCE")) {
      std::string& ultima = filas.back();
      ultima.insert(ultima.rfind('\0', ultima.size() - 2), "+");
    }
    if (!linea.starts_with("SINCL")) continue;
    std::string fila;
    fila.reserve(kCeldasFila);
    fila.append(std::to_string(filas.size() + 1)) += '\0';
    for (const Celda& celda : kTextos) Anadir(fila, linea, celda);
    for (const Celda& celda : kNumeros) Anadir(fila, linea, celda);
    fila += '\0';
    Anadir(fila, linea, kImporte);
    filas.push_back(std::move(fila));
  }
  return filas;
}

std::vector<std::string> RecibidasSuelo(const BaseSuelo& base) {
  SentenciaSuelo sentencia(
      base,
      "SELECT DISTINCT ef.*, p.Nombre AS Prov_Nombre, usu.Nombre AS nombreUsuarioVisado"
      " FROM EDI_Recepcion_Facturas ef LEFT JOIN Proveedores p ON p.Cod_Empresa =1"
      " AND p.codigo = ef.Cod_Proveedor LEFT JOIN SGD_USUARIOS usu"
      " ON usu.Codigo = ef.Cod_Usuario_Visado WHERE ef.Cod_Empresa =1"
      " AND ef.Fecha BETWEEN '2025-01-01' AND '2026-12-31' ORDER BY ef.Fecha, ef.Documento");
  return sentencia.Filas();
}

}  // namespace kvraedi::bench
