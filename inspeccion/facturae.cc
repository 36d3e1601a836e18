#include <string>
#include <string_view>

#include "inspeccion/lectura.h"
#include "inspeccion/reglas_facturae.h"

namespace kvraedi::inspeccion {

void RecorrerFacturae(const DocumentoXml& documento, const ReceptorCampos& recibir) {
  documento.Recorrer([&](std::string_view ruta, std::string_view texto) {
    // What was signed is told, the signature is not.
    if (ruta.find("Signature") != std::string_view::npos) return;
    const auto barra = ruta.rfind('/');
    const bool raiz = barra == std::string_view::npos;
    const std::string_view elemento = raiz ? ruta : ruta.substr(barra + 1);
    const std::string reparo = ReparoElemento(elemento, texto);
    recibir({.registro = raiz ? std::string_view() : ruta.substr(0, barra),
             .nombre = elemento,
             .valor = texto,
             .reparo = reparo});
  });
}

}  // namespace kvraedi::inspeccion
