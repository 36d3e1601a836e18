#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "frame/codigo1252.h"
#include "frame/numero.h"
#include "frame/recortar.h"
#include "inspeccion/lectura.h"
#include "inspeccion/reparos.h"
#include "orders/leer_desadv.h"
#include "orders/leer_pedidos.h"
#include "orders/registros_barras.h"

namespace kvraedi::inspeccion {
namespace {

using barras::Clase;
using barras::Columna;

struct RegistroBarras {
  std::string_view tag;
  std::span<const Columna> columnas;
};

constexpr RegistroBarras kOrders[] = {
    {"ORD", barras::orders::kOrd},
    {"DTM", barras::orders::kDtm},
    {"NADSU", barras::orders::kNadSuEscrito},
    {"NADBY", barras::orders::kNadBy},
    {"NADDP", barras::orders::kNadDp},
    {"LIN", barras::orders::kLin},
    {"IMDLIN", barras::orders::kImdLin},
    {"QTYLIN", barras::orders::kQtyLin},
    {"MOALIN", barras::orders::kMoaLin},
    {"MOARES", barras::orders::kMoaRes},
    {"CNTRES", barras::orders::kCntRes},
};
constexpr ReglaRegistro kOrdenOrders[] = {
    {"ORD", -1, 4, 0, true},  {"DTM", 0, 1, 1, true}, {"NADSU", 0, 1, 1},  {"NADBY", 0, 1, 1, true},
    {"NADDP", 0, 1, 1, true}, {"LIN", 0, 3, 2, true}, {"IMDLIN", 2, 3, 3}, {"QTYLIN", 2, 3, 3},
    {"MOALIN", 2, 3, 3},      {"MOARES", 0, 4, 4},    {"CNTRES", 0, 4, 4},
};

constexpr RegistroBarras kDesadv[] = {
    {"BGM", barras::desadv::kBgm},       {"RFF", barras::desadv::kRff},
    {"NADDP", barras::desadv::kNadDp},   {"LIN", barras::desadv::kLin},
    {"QTYLIN", barras::desadv::kQtyLin}, {"PCILIN", barras::desadv::kPciLin},
};
constexpr ReglaRegistro kOrdenDesadv[] = {
    {"BGM", -1, 3, 0, true}, {"RFF", 0, 1, 1, true}, {"NADDP", 0, 1, 1, true},
    {"LIN", 0, 3, 2, true},  {"QTYLIN", 2, 3, 3},    {"PCILIN", 2, 3, 3},
};

constexpr RegistroBarras kRecadv[] = {
    {"BGM", barras::recadv::kBgm},       {"DTM", barras::recadv::kDtm},
    {"RFF", barras::recadv::kRff},       {"NADBY", barras::recadv::kNad},
    {"NADSU", barras::recadv::kNad},     {"NADDP", barras::recadv::kNad},
    {"CPS", barras::recadv::kCps},       {"LIN", barras::recadv::kLin},
    {"QTYLIN", barras::recadv::kQtyLin}, {"PRILIN", barras::recadv::kPriLin},
    {"TAXLIN", barras::recadv::kTaxLin}, {"CNTRES", barras::recadv::kCntRes},
};
constexpr ReglaRegistro kOrdenRecadv[] = {
    {"BGM", -1, 5, 0, true},  {"DTM", 0, 0, 1, true},   {"RFF", 1, 1, 2},
    {"NADBY", 1, 2, 2, true}, {"NADSU", 1, 2, 2, true}, {"NADDP", 1, 2, 2, true},
    {"CPS", 2, 2, 3, true},   {"LIN", 3, 4, 4},         {"QTYLIN", 4, 4, 4},
    {"PRILIN", 4, 4, 4},      {"TAXLIN", 4, 4, 4},      {"CNTRES", 3, 4, 5, true},
};

constexpr std::string_view kRecadvInicio = "RECADV_D_96A_UN_EAN003";

std::string Reparo(const Columna& columna, std::string_view valor, bool escrita) {
  const bool gln = columna.nombre.starts_with("GLN");
  if (valor.empty()) {
    return columna.clase == Clase::kGln || columna.clase == Clase::kEmision ? "falta" : "";
  }
  if (gln) return ReparoGln(valor);
  if (columna.clase == Clase::kNumero) return std::string(ReparoNumero(valor));
  if (columna.clase == Clase::kEmision || columna.clase == Clase::kFecha ||
      columna.nombre == "Fecha") {
    return std::string(escrita ? ReparoFechaEscrita(valor) : ReparoFecha(valor));
  }
  return {};
}

std::vector<std::string_view> Partir(std::string_view linea, char separador) {
  std::vector<std::string_view> campos;
  for (auto fin = linea.find(separador); fin != std::string_view::npos;
       fin = linea.find(separador)) {
    campos.push_back(linea.substr(0, fin));
    linea.remove_prefix(fin + 1);
  }
  campos.push_back(linea);
  return campos;
}

/// The fields of a record; those behind the last that the format knows are told as they are.
void Entregar(std::span<const std::string_view> campos, std::span<const Columna> columnas,
              std::size_t primero, bool escrita, Lectura& lectura) {
  std::size_t siguiente = primero;
  for (const Columna& columna : columnas) {
    siguiente = std::max(siguiente, columna.campo + 1);
    const std::string_view valor =
        columna.campo < campos.size() ? Recortar(campos[columna.campo]) : "";
    const std::string reparo = Reparo(columna, valor, escrita);
    if (!valor.empty() || !reparo.empty()) {
      lectura.Decir(columna.nombre, columna.campo, 0, valor, reparo);
    }
  }
  for (std::size_t i = primero; i < campos.size(); ++i) {
    const bool conocido = std::any_of(columnas.begin(), columnas.end(),
                                      [i](const Columna& columna) { return columna.campo == i; });
    if (!conocido && !Recortar(campos[i]).empty()) {
      lectura.Decir({}, i, 0, Recortar(campos[i]), i < siguiente ? "" : "sobra en el registro");
    }
  }
}

void RecorrerMensaje(LectorTexto& lector, std::span<const RegistroBarras> registros,
                     Lectura lectura) {
  while (lector.Siguiente()) {
    const std::string linea = Leer1252(lector.Linea());
    const auto campos = Partir(linea, '|');
    if (campos.size() == 1) continue;
    lectura.Empezar(std::string(campos.front()));
    const auto registro =
        std::find_if(registros.begin(), registros.end(),
                     [&](const RegistroBarras& uno) { return uno.tag == campos.front(); });
    Entregar(campos, registro == registros.end() ? std::span<const Columna>() : registro->columnas,
             1, false, lectura);
  }
  lectura.Terminar();
}

constexpr ReglaRegistro kOrdenPedido[] = {{"pedido", -1, 1, 0}, {"línea", -1, 1, 1}};

void RecorrerPedido(FormatoFichero formato, LectorTexto& lector, Lectura lectura) {
  bool cabecera = formato != FormatoFichero::kPedidoEan;
  do {
    const std::string linea = Leer1252(lector.Linea());
    const auto campos = Partir(linea, '\t');
    lectura.Empezar(cabecera ? "pedido" : "línea");
    const std::span<const Columna> columnas =
        cabecera                               ? std::span<const Columna>(barras::pedido::kCabecera)
        : formato == FormatoFichero::kPedidoV4 ? barras::pedido::kLineaV4
        : formato == FormatoFichero::kPedidoEan
            ? barras::pedido::kLineaEan
            : std::span<const Columna>(barras::pedido::kLineaV3);
    Entregar(campos, columnas, 0, true, lectura);
    cabecera = false;
  } while (lector.Siguiente());
}

}  // namespace

void RecorrerBarras(FormatoFichero formato, LectorTexto& lector, const ReceptorCampos& recibir) {
  switch (formato) {
    case FormatoFichero::kOrders:
      return RecorrerMensaje(lector, kOrders, {lector, recibir, kOrdenOrders});
    case FormatoFichero::kDesadv:
      return RecorrerMensaje(lector, kDesadv, {lector, recibir, kOrdenDesadv});
    case FormatoFichero::kRecadv:
      return RecorrerMensaje(lector, kRecadv, {lector, recibir, kOrdenRecadv});
    default:
      return RecorrerPedido(formato, lector, {lector, recibir, kOrdenPedido});
  }
}

FormatoFichero FormatoDeLinea(std::string_view linea) {
  if (linea.starts_with("RECTL ")) {
    const std::string_view mensaje = Recortar(linea.substr(6, 6));
    if (mensaje == "INVOIC") return FormatoFichero::kInvoic;
    if (mensaje == "COACSU") return FormatoFichero::kCoacsu;
  }
  if (linea.starts_with("V4.0\t")) return FormatoFichero::kPedidoV4;
  if (linea.starts_with("V3.0\t")) return FormatoFichero::kPedidoV3;
  if (EsInicioOrders(linea)) return FormatoFichero::kOrders;
  if (desadv::EsInicio(linea)) return FormatoFichero::kDesadv;
  if (Recortar(linea) == kRecadvInicio) return FormatoFichero::kRecadv;
  constexpr std::size_t kCamposEan = 4;
  const auto campos = Partir(linea, '\t');
  const bool ean = campos.size() == kCamposEan && TieneFormaDeNumero(campos[2]);
  return ean ? FormatoFichero::kPedidoEan : FormatoFichero::kDesconocido;
}

}  // namespace kvraedi::inspeccion
