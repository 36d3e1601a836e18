#include "host/cli/lista_facturas.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <string_view>

#include "host/cli/clave_factura.h"
#include "host/cli/columnas.h"

namespace kvraedi::cli {
namespace {

constexpr std::array<std::string_view, kColumnas> kNombresJson = {
    "seleccion", "generada",       "serie",     "factura",        "fecha",
    "cliente",   "cliente_nombre", "almacen",   "almacen_nombre", "importe",
    "tipo_doc",  "no_enviar",      "ejercicio", "anexos",         "tipo",
    "tipo_num",  "almacen_ft",     "caja_ft",   "fecha_ft",       "codigo_ft",
};

void EscribirTextoJson(std::string_view texto, std::ostream& salida) {
  constexpr std::string_view kHexadecimal = "0123456789abcdef";
  salida << '"';
  for (const char c : texto) {
    const auto codigo = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      salida << '\\' << c;
    } else if (codigo < ' ') {
      salida << "\\u00" << kHexadecimal[codigo >> 4U] << kHexadecimal[codigo & 0xfU];
    } else {
      salida << c;
    }
  }
  salida << '"';
}

struct ColumnaTabla {
  std::string_view titulo;
  std::string (*texto)(const ui::Grid& lista, int fila);
  bool derecha = false;
};

template <Columna columna>
std::string Celda(const ui::Grid& lista, int fila) {
  std::string texto(lista.Cell(fila, columna));
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return texto;
}

std::string Excluida(const ui::Grid& lista, int fila) {
  return lista.IsSet(fila, kNoEnviar) ? "X" : "";
}

constexpr ColumnaTabla kTabla[] = {
    {"GN", Celda<kGenerada>},           {"S", Celda<kSerie>, true},
    {"Factura", Celda<kFactura>, true}, {"Fecha", Celda<kFecha>},
    {"Cliente", Celda<kCliente>, true}, {"Nombre", Celda<kClienteNombre>},
    {"Alm.", Celda<kAlmacen>, true},    {"Almacén", Celda<kAlmacenNombre>},
    {"Importe", Celda<kImporte>, true}, {"No enviar", Excluida},
    {"Anexos", Celda<kAnexos>},         {"Tipo", Celda<kTipo>},
    {"Clave", ClaveFactura::De},
};

/// Characters of a UTF-8 text.
std::size_t Anchura(std::string_view texto) {
  return static_cast<std::size_t>(std::count_if(texto.begin(), texto.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U;
  }));
}

using Anchuras = std::array<std::size_t, std::size(kTabla)>;

Anchuras Medir(const ui::Grid& lista) {
  Anchuras anchuras{};
  for (std::size_t i = 0; i < anchuras.size(); ++i) {
    anchuras[i] = Anchura(kTabla[i].titulo);
    for (int fila = 1; fila < lista.Rows(); ++fila) {
      anchuras[i] = std::max(anchuras[i], Anchura(kTabla[i].texto(lista, fila)));
    }
  }
  return anchuras;
}

template <class Texto>
void EscribirLinea(const Anchuras& anchuras, const Texto& textoDe, std::ostream& salida) {
  std::string linea;
  for (std::size_t i = 0; i < anchuras.size(); ++i) {
    const std::string texto = textoDe(kTabla[i]);
    const std::string relleno(anchuras[i] - Anchura(texto), ' ');
    linea += kTabla[i].derecha ? relleno + texto : texto + relleno;
    linea += "  ";
  }
  linea.erase(linea.find_last_not_of(' ') + 1);
  salida << linea << '\n';
}

}  // namespace

void EscribirJson(const ui::Grid& lista, std::ostream& salida) {
  salida << '[';
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    salida << (fila == 1 ? "\n" : ",\n");
    for (int columna = 0; columna < kColumnas; ++columna) {
      salida << (columna == 0 ? "{\"" : ", \"") << kNombresJson[static_cast<std::size_t>(columna)]
             << "\": ";
      EscribirTextoJson(lista.Cell(fila, columna), salida);
    }
    salida << '}';
  }
  salida << "\n]\n";
}

void EscribirTabla(const ui::Grid& lista, std::ostream& salida) {
  const Anchuras anchuras = Medir(lista);
  EscribirLinea(
      anchuras, [](const ColumnaTabla& columna) { return std::string(columna.titulo); }, salida);
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    EscribirLinea(
        anchuras, [&](const ColumnaTabla& columna) { return columna.texto(lista, fila); }, salida);
  }
}

}  // namespace kvraedi::cli
