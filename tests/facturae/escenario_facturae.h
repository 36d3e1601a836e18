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
    base->Run(R"(
UPDATE Empresas SET email = 'facturas@nandu.es';
UPDATE Paises SET ISO3Codigo = 'ESP';
INSERT INTO Paises VALUES (33, 'Francia', 'FR', 'FRA');
INSERT INTO Paises VALUES (49, 'Alemania', 'DE', 'DEU');
INSERT INTO Paises VALUES (1, 'Estados Unidos', 'US', 'USA');
INSERT INTO Paises VALUES (30, 'Grecia', 'GR', 'GRC');
INSERT INTO Paises VALUES (99, 'Sin código', '', 'XXX');
INSERT INTO Igic_Tipos VALUES (1, 1, '01/01/2020', '31/12/2099', 7);
INSERT INTO Igic_Tipos VALUES (1, 2, '01/01/2020', '31/12/2099', 3);
INSERT INTO Igic_Tipos VALUES (1, 1, '01/01/2010', '31/12/2019', 5);
INSERT INTO EDI_Centros_Administrativos VALUES ('L01', 'Intervención', 'Plaza 1', '35500', 'Arrecife', 'Las Palmas', 34, 'Oficina contable');
INSERT INTO EDI_Centros_Administrativos VALUES ('L02', 'Alcaldía', 'Plaza 2', '35501', 'Arrecife', 'Las Palmas', 34, 'Órgano gestor');
INSERT INTO EDI_Centros_Administrativos VALUES ('L03', 'Compras', 'Plaza 3', '35502', 'Arrecife', 'Las Palmas', 34, '');
INSERT INTO EDI_Centros_Administrativos VALUES ('L04', 'Farmacia', 'Plaza 4', '35503', 'Arrecife', 'Las Palmas', 34, 'Órgano proponente');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Tipo, Nif, Direccion, CP, Localidad, Provincia, Cod_Pais, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra, EDI_Rol_Fiscal, EDI_Rol_Receptor, EDI_Rol_Pagador)
  VALUES (1, 200, 'Ayuntamiento de Puerto Azul', '', 0, 'P3530303A', 'Pza. Mayor, 1', '35500', 'Arrecife', 'Las Palmas', 34, 3, 1, 'L01', 'L02', 'L03');
INSERT INTO Articulos VALUES (1, 501, 'Queso');
INSERT INTO TPV_Tickets VALUES (1, 2, 3, '05/03/2024', 77, 16.05);
INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente, Factura_Serie, Factura_Codigo, Factura_Almacen, Factura_Fecha)
  VALUES (1, 2, 3, '05/03/2024', 77, 200, 52, 900, 2, '07/03/2024');
)");
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
