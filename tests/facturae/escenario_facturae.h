#pragma once

#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "facturae/documento.h"
#include "frame/puertos.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {

/// The scenario with a customer of Facturae, 200, his centres and what his invoices need. Its own
/// routines run as the component calls them; the documents are read back from their files.
class EscenarioFacturae : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(Guion("facturae/escenario_facturae.sql"));
    InsertarFactura(123, "Cliente = 200");
    std::filesystem::create_directories(anexos);
  }

  static facturae::ClaveDocumento Factura(std::int32_t codigo = 123) {
    return {.ejercicio = 2024, .serie = 3, .codigo = codigo};
  }
  static facturae::ClaveDocumento Ticket() {
    return {.tipo = 1, .almacenFT = 2, .cajaFT = 3, .fechaFT = {2024, 3, 5}, .codigoFT = 77};
  }

  /// Builds the document, saves it as doc.xml and reads it back.
  void Construir(const facturae::ClaveDocumento& clave, std::int16_t revision = 0) {
    const auto xml = SuiteActual().NuevoDocumentoXml(EntornoActual());
    facturae::ConstruirDocumento(estado, *xml, 200, clave, revision);
    xml->Guardar(fichero);
    ASSERT_TRUE(documento.load_file(fichero.c_str()));
  }

  /// What stands below an element: "Leaf=text Container{Leaf=text ...}".
  static std::string Resumen(pugi::xml_node nodo) {
    std::string texto;
    for (const pugi::xml_node hijo : nodo.children()) {
      if (hijo.type() != pugi::node_element) continue;
      const std::string dentro = Resumen(hijo);
      texto += (texto.empty() ? "" : " ") + std::string(hijo.name()) +
               (dentro.empty() ? "=" + std::string(hijo.text().get()) : "{" + dentro + "}");
    }
    return texto;
  }
  std::string Zona(const std::string& xpath) const {
    return Resumen(documento.document_element().select_node(xpath.c_str()).node());
  }
  std::string Texto(const std::string& xpath) const {
    return documento.document_element().select_node(xpath.c_str()).node().text().get();
  }
  std::size_t Cuantos(const std::string& xpath) const {
    return documento.document_element().select_nodes(xpath.c_str()).size();
  }

  /// A row of the sending table, or of the attachments, of the invoice or of the ticket.
  void Insertar(const std::string& tabla, bool ticket, const std::string& columnas,
                const std::string& valores) {
    base->Execute("INSERT INTO " + tabla +
                  (ticket ? " (Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, "
                          : " (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, ") +
                  columnas + ") VALUES (" +
                  (ticket ? "1, 2, 3, '05/03/2024', 77, " : "1, 2024, 3, 123, 0, ") + valores +
                  ")");
  }
  void Anexar(const std::string& nombre, const std::string& hexadecimal, bool ticket = false) {
    Insertar("EDI_Anexos", ticket,
             "Cod_EDIPlat, Cod_EDITipoMsg, NombreAnexo, DescripcionAnexo, Stream",
             "3, 1, '" + nombre + "', 'Descripción', 0x" + hexadecimal);
  }

  std::filesystem::path fichero = carpeta / "doc.xml";
  std::filesystem::path anexos = perfil / "Ormo" / "EDI" / "DocAnexos";
  facturae::EstadoFacturaE estado;
  pugi::xml_document documento;
};

}  // namespace kvraedi
