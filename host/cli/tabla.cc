#include "host/cli/tabla.h"

#include <algorithm>
#include <ostream>
#include <vector>

#include "host/cli/texto.h"

namespace kvraedi::cli {
namespace {

using Anchuras = std::vector<std::size_t>;

Anchuras Medir(const ui::Grid& lista, std::span<const ColumnaTabla> columnas) {
  Anchuras anchuras;
  for (const ColumnaTabla& columna : columnas) {
    std::size_t anchura = Anchura(columna.titulo);
    for (int fila = 1; fila < lista.Rows(); ++fila) {
      anchura = std::max(anchura, Anchura(columna.texto(lista, fila)));
    }
    anchuras.push_back(anchura);
  }
  return anchuras;
}

template <class Texto>
void EscribirLinea(std::span<const ColumnaTabla> columnas, const Anchuras& anchuras,
                   const Texto& textoDe, std::ostream& salida) {
  std::string linea;
  for (std::size_t i = 0; i < anchuras.size(); ++i) {
    const std::string texto = textoDe(columnas[i]);
    const std::string relleno(anchuras[i] - Anchura(texto), ' ');
    linea += columnas[i].derecha ? relleno + texto : texto + relleno;
    linea += "  ";
  }
  linea.erase(linea.find_last_not_of(' ') + 1);
  salida << linea << '\n';
}

}  // namespace

std::string CeldaPlana(const ui::Grid& lista, int fila, int columna) {
  std::string texto(lista.Cell(fila, columna));
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return texto;
}

void EscribirTabla(const ui::Grid& lista, std::span<const ColumnaTabla> columnas,
                   std::ostream& salida) {
  const Anchuras anchuras = Medir(lista, columnas);
  EscribirLinea(
      columnas, anchuras, [](const ColumnaTabla& columna) { return std::string(columna.titulo); },
      salida);
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    EscribirLinea(
        columnas, anchuras, [&](const ColumnaTabla& columna) { return columna.texto(lista, fila); },
        salida);
  }
}

void EscribirJson(const ui::Grid& lista, std::span<const std::string_view> nombres,
                  std::ostream& salida) {
  salida << '[';
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    salida << (fila == 1 ? "\n" : ",\n");
    for (std::size_t columna = 0; columna < nombres.size(); ++columna) {
      salida << (columna == 0 ? "{\"" : ", \"") << nombres[columna] << "\": ";
      EscribirTextoJson(lista.Cell(fila, static_cast<int>(columna)), salida);
    }
    salida << '}';
  }
  salida << "\n]\n";
}

}  // namespace kvraedi::cli
