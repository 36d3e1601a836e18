#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/suite.h"
#include "kvraedi/valor.h"

/// The Facturae 3.2.1 document of one invoice. Every routine reads through the session and raises
/// `Error`: a null in a column that is written is "Uso no válido de Null".
namespace kvraedi::facturae {

/// An invoice (`Facturas`) or a till ticket that was invoiced (`TPV_Tickets_Factura`); the fields
/// of the other kind keep their defaults. The company is the session's.
struct ClaveDocumento {
  std::int16_t ejercicio = 0;
  std::int16_t serie = 0;
  std::int32_t codigo = 0;
  std::int16_t tipoDoc = 0;
  std::int16_t tipo = 0;  ///< 0 invoice, 1 ticket
  std::int16_t almacenFT = 0;
  std::int16_t cajaFT = 0;
  FechaHora fechaFT{.year = 1900, .month = 1, .day = 1};
  std::int32_t codigoFT = 0;

  bool EsTicket() const { return tipo == 1; }
};

/// What the module keeps between its routines.
struct EstadoFacturaE {
  // Issuer settings: the action that sends or exports sets them before it asks for a document.
  std::string tipoEmisor = "EM";
  std::string tipoPersona = "J";
  std::string tipoResidencia = "R";
  std::string tipoDocumento = "FC";
  std::string claseFactura = "OO";  ///< "OO" ordinary, "OR" corrective

  // Results of the document, emptied when the next one is begun.
  std::string identificadorLote;  ///< 70 characters at most; "" when there is no such invoice
  std::string importeLote;
  std::int32_t numFacturas = 0;
  std::int16_t revisionUsada = 0;
  std::string emailEmisor;
};

/// The one state of the process.
EstadoFacturaE& Estado();

/// The name of an invoice's files: company, year, number, type and series in one run of digits, 70
/// characters at most.
std::string IdentificadorFactura(std::int16_t empresa, const ClaveDocumento& clave);

/// The same of an invoice or a ticket invoice.
std::string IdentificadorDocumento(std::int16_t empresa, const ClaveDocumento& clave);

/// Empties the document's results and computes identifier, count and amount of the batch.
void CalculaTotalesFacturas(EstadoFacturaE& estado, const ClaveDocumento& clave);

/// Starts the document: root, file header with the batch. Gives back the root.
NodoXml EscribirCabecera(DocumentoXml& xml, const EstadoFacturaE& estado);

/// Appends `Parties`: the company, the customer and the customer's administrative centres. Keeps
/// the company's e-mail address.
void CalculaZonaParties(EstadoFacturaE& estado, DocumentoXml& xml, NodoXml raiz,
                        std::int32_t cliente);

/// Appends `Invoices` and sets the revision used. `revision` 0 looks it up. Attachments pass
/// through the folder of attachments of the user's profile, which must exist.
void CalculaZonaInvoices(EstadoFacturaE& estado, DocumentoXml& xml, NodoXml raiz,
                         const ClaveDocumento& clave, std::int16_t revision);

/// Appends an `InvoiceLine` to `items` for each line.
void CalculaDatosFactura(DocumentoXml& xml, NodoXml items, const ClaveDocumento& clave);

/// The whole document, by the routines above in their order.
void ConstruirDocumento(EstadoFacturaE& estado, DocumentoXml& xml, std::int32_t cliente,
                        const ClaveDocumento& clave, std::int16_t revision);

}  // namespace kvraedi::facturae
