#pragma once

#include <span>
#include <string>
#include <string_view>

#include "frame/formato.h"
#include "kvraedi/suite.h"

namespace kvraedi::facturae {

/// The forms in which the document writes numbers, always with a point.
inline constexpr std::string_view kDosDecimales = "#0.00";
inline constexpr std::string_view kCuatroDecimales = "#0.0000";
inline constexpr std::string_view kSeisDecimales = "#0.000000";
inline constexpr std::string_view kCero = "0.00";

inline std::string Numero(Currency valor, std::string_view patron) {
  return FormatearNumero(valor, patron, '.');
}

/// An element and its text.
struct ElementoTexto {
  std::string_view nombre;
  std::string_view texto;
};

/// Adds the elements to the parent, in order.
inline void Anadir(DocumentoXml& xml, NodoXml padre, std::span<const ElementoTexto> elementos) {
  for (const auto& [nombre, texto] : elementos) xml.ElementoTexto(padre, nombre, texto);
}
inline void Anadir(DocumentoXml& xml, NodoXml padre,
                   std::initializer_list<ElementoTexto> elementos) {
  Anadir(xml, padre, std::span(elementos.begin(), elementos.size()));
}

/// Adds an element that holds an amount in its `TotalAmount`.
inline void AnadirImporte(DocumentoXml& xml, NodoXml padre, std::string_view nombre,
                          std::string_view importe) {
  xml.ElementoTexto(xml.Elemento(padre, nombre), "TotalAmount", importe);
}

/// Adds a `Tax` of the Canary Islands' indirect tax.
inline void AnadirImpuesto(DocumentoXml& xml, NodoXml padre, std::string_view tasa,
                           std::string_view base, std::string_view cuota) {
  const NodoXml impuesto = xml.Elemento(padre, "Tax");
  Anadir(xml, impuesto, {{"TaxTypeCode", "03"}, {"TaxRate", tasa}});
  AnadirImporte(xml, impuesto, "TaxableBase", base);
  AnadirImporte(xml, impuesto, "TaxAmount", cuota);
}

}  // namespace kvraedi::facturae
