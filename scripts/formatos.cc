// Draws the records of the fixed-width messages, from the tables that write them, into the page of
// formats: formatos PAGE tells whether the page shows them as they are, formatos PAGE --escribir
// puts them there.

#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "seres/registros_coacsu.h"
#include "seres/registros_invoic.h"

namespace kvraedi {
namespace {

constexpr std::string_view kPrincipio = "<!-- registros -->\n";
constexpr std::string_view kFin = "<!-- fin de los registros -->\n";

struct RegistroDeMensaje {
  std::string_view nombre;
  std::span<const Campo> campos;
};

constexpr RegistroDeMensaje kInvoic[] = {
    {"RECTL", invoic::kRectl.Campos()}, {"SINCC", invoic::kSincc.Campos()},
    {"SINCP", invoic::kSincp.Campos()}, {"SINCT y SINCU", invoic::kTexto.Campos()},
    {"SINCV", invoic::kSincv.Campos()}, {"SINCD", invoic::kSincd.Campos()},
    {"SINCL", invoic::kSincl.Campos()}, {"SINCE", invoic::kSince.Campos()},
    {"SINCI", invoic::kSinci.Campos()},
};

constexpr RegistroDeMensaje kCoacsu[] = {
    {"SCOAC", coacsu::kScoac.Campos()}, {"SCOAT", coacsu::kScoat.Campos()},
    {"SCOAP", coacsu::kScoap.Campos()}, {"SCOAD", coacsu::kScoad.Campos()},
    {"SCOAL", coacsu::kScoal.Campos()}, {"SCOAQ", coacsu::kScoaq.Campos()},
    {"SCOAA", coacsu::kScoaa.Campos()},
};

void Dibujar(std::string_view mensaje, std::span<const RegistroDeMensaje> registros,
             std::ostream& salida) {
  salida << "\n### " << mensaje << "\n";
  for (const auto& [nombre, campos] : registros) {
    const Campo& ultimo = campos.back();
    salida << "\n**" << nombre << "**, " << ultimo.posicion + ultimo.ancho - 1
           << " caracteres\n\n| Posición | Ancho | Alineado | Campo |\n|---:|---:|---|---|\n";
    for (const Campo& campo : campos) {
      salida << "| " << campo.posicion << " | " << campo.ancho << " | "
             << (campo.nombre.empty()      ? ""
                 : campo.alineacion == Der ? "derecha"
                                           : "izquierda")
             << " | " << (campo.nombre.empty() ? "(blancos)" : campo.nombre) << " |\n";
    }
  }
}

/// The page with the records drawn anew; empty when it has no place for them.
std::string Dibujada(const std::string& pagina) {
  const auto principio = pagina.find(kPrincipio);
  const auto fin = pagina.find(kFin);
  if (principio == std::string::npos || fin == std::string::npos) return {};
  std::ostringstream salida;
  salida << pagina.substr(0, principio + kPrincipio.size());
  Dibujar("INVOIC", kInvoic, salida);
  Dibujar("COACSU", kCoacsu, salida);
  salida << '\n' << pagina.substr(fin);
  return salida.str();
}

int Tratar(const char* ruta, bool escribir) {
  std::ifstream entrada(ruta, std::ios::binary);
  const std::string pagina{std::istreambuf_iterator<char>(entrada), {}};
  const std::string dibujada = Dibujada(pagina);
  if (dibujada.empty()) {
    std::cerr << ruta << ": no hay sitio para los registros\n";
    return 1;
  }
  if (escribir) return (std::ofstream(ruta, std::ios::binary) << dibujada).good() ? 0 : 1;
  if (dibujada == pagina) return 0;
  std::cerr << ruta << ": los registros han cambiado; «scripts/formatos» los dibuja de nuevo\n";
  return 1;
}

}  // namespace
}  // namespace kvraedi

int main(int argc, char** argv) {
  const bool escribir = argc == 3 && std::string_view(argv[2]) == "--escribir";
  return argc == 2 || escribir ? kvraedi::Tratar(argv[1], escribir) : 2;
}
