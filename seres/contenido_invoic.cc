#include "kvraedi/contenido_invoic.h"

#include <algorithm>
#include <span>
#include <utility>

#include "frame/codigo1252.h"
#include "frame/lector_texto.h"
#include "frame/recortar.h"
#include "seres/registros_invoic.h"
#include "seres/registros_recibidos.h"

namespace kvraedi {
namespace {

struct DisposicionRegistro {
  std::string_view tag;
  std::span<const Campo> campos;
};

/// The lines stand as they are read: that covers the places of both ways of writing them.
constexpr DisposicionRegistro kDisposiciones[] = {
    {"RECTL", invoic::kRectl.Campos()},   {"SINCC", invoic::kSincc.Campos()},
    {"SINCP", invoic::kSincp.Campos()},   {"SINCT", invoic::kTexto.Campos()},
    {"SINCV", invoic::kSincv.Campos()},   {"SINCD", invoic::kSincd.Campos()},
    {"SINCL", recibida::kSincl.Campos()}, {"SINCE", invoic::kSincd.Campos()},
    {"SINCU", invoic::kTexto.Campos()},   {"SINCI", invoic::kSinci.Campos()},
};

std::span<const Campo> CamposDe(std::string_view tag) {
  for (const DisposicionRegistro& disposicion : kDisposiciones) {
    if (disposicion.tag == tag) return disposicion.campos.subspan(1);
  }
  return {};
}

}  // namespace

void RecorrerInvoic(std::unique_ptr<FileReader> fichero,
                    const std::function<void(const CampoInvoic&)>& recibir) {
  LectorTexto lector(std::move(fichero));
  while (lector.Siguiente()) {
    const std::string_view linea = lector.Linea();
    const std::string_view tag = Recortar(linea.substr(0, recibida::kAnchoTag));
    CampoInvoic leido{.linea = lector.Numero(), .tag = tag};
    const auto entregar = [&](std::string_view nombre, std::size_t posicion, std::size_t ancho) {
      if (posicion > linea.size()) return;
      leido.valor = Leer1252(Recortar(linea.substr(posicion - 1, ancho)));
      if (leido.valor.empty()) return;
      leido.nombre = nombre;
      leido.posicion = posicion;
      leido.ancho = ancho;
      recibir(leido);
    };
    std::size_t siguiente = recibida::kAnchoTag + 1;
    for (const Campo& campo : CamposDe(tag)) {
      entregar(campo.nombre, campo.posicion, campo.ancho);
      siguiente = campo.posicion + campo.ancho;
    }
    if (linea.size() >= siguiente) entregar("", siguiente, linea.size() - siguiente + 1);
  }
}

}  // namespace kvraedi
