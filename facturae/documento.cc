#include "facturae/documento.h"

#include "facturae/consultas_documento.h"
#include "facturae/elementos.h"
#include "frame/fila.h"
#include "frame/formato.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

constexpr std::size_t kAnchoIdentificador = 70;

std::string Cifras(std::int32_t valor, std::string_view patron) {
  return FormatearNumero(Currency::FromInteger(valor), patron);
}

std::string Identificador(const std::string& cifras) {
  return std::string(PrimerosCaracteres(cifras, kAnchoIdentificador));
}

std::string IdentificadorTicket(std::int16_t empresa, const ClaveDocumento& clave) {
  return Identificador(Cifras(empresa, "00") + Cifras(clave.almacenFT, "000") +
                       Cifras(clave.cajaFT, "00") + FormatearFecha(clave.fechaFT, "ddmmyy") +
                       Cifras(clave.codigoFT, "000000000"));
}

void VaciarResultados(EstadoFacturaE& estado) {
  estado.identificadorLote.clear();
  estado.importeLote.clear();
  estado.numFacturas = 0;
  estado.revisionUsada = 0;
  estado.emailEmisor.clear();
}

}  // namespace

EstadoFacturaE& Estado() {
  static EstadoFacturaE estado;
  return estado;
}

std::string IdentificadorFactura(std::int16_t empresa, const ClaveDocumento& clave) {
  return Identificador(Cifras(empresa, "00") + std::to_string(clave.ejercicio) +
                       Cifras(clave.codigo, "000000000") + Cifras(clave.tipoDoc, "00") +
                       Cifras(clave.serie, "000"));
}

std::string IdentificadorDocumento(std::int16_t empresa, const ClaveDocumento& clave) {
  return clave.EsTicket() ? IdentificadorTicket(empresa, clave)
                          : IdentificadorFactura(empresa, clave);
}

void CalculaTotalesFacturas(EstadoFacturaE& estado, const ClaveDocumento& clave) {
  VaciarResultados(estado);
  const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
  const auto filas = ConexionActual().Open(ConsultaTotales(clave, empresa));
  if (filas->Eof()) return;
  estado.identificadorLote = IdentificadorDocumento(empresa, clave);
  estado.numFacturas = filas->Get<std::int32_t>("numFacturas");
  estado.importeLote = Numero(Fila(*filas).Get<Currency>("total"), kDosDecimales);
}

NodoXml EscribirCabecera(DocumentoXml& xml, const EstadoFacturaE& estado) {
  xml.Nuevo();
  const NodoXml raiz = xml.CrearRaiz("fe:Facturae");
  xml.AtributoRaiz("xmlns:fe", "http://www.facturae.es/Facturae/2014/v3.2.1/Facturae");
  xml.AtributoRaiz("xmlns:ds", "http://www.w3.org/2000/09/xmldsig#");

  const bool hayLote = !estado.identificadorLote.empty();
  const NodoXml cabecera = xml.Elemento(raiz, "FileHeader");
  Anadir(xml, cabecera,
         {{"SchemaVersion", "3.2.1"},
          {"Modality", estado.numFacturas < 2 ? "I" : "L"},
          {"InvoiceIssuerType", estado.tipoEmisor}});
  const NodoXml lote = xml.Elemento(cabecera, "Batch");
  Anadir(xml, lote,
         {{"BatchIdentifier", estado.identificadorLote},
          {"InvoicesCount", hayLote ? std::to_string(estado.numFacturas) : std::string()}});
  for (const std::string_view total :
       {"TotalInvoicesAmount", "TotalOutstandingAmount", "TotalExecutableAmount"}) {
    AnadirImporte(xml, lote, total, estado.importeLote);
  }
  xml.ElementoTexto(lote, "InvoiceCurrencyCode", "EUR");
  return raiz;
}

void ConstruirDocumento(EstadoFacturaE& estado, DocumentoXml& xml, std::int32_t cliente,
                        const ClaveDocumento& clave, std::int16_t revision) {
  CalculaTotalesFacturas(estado, clave);
  const NodoXml raiz = EscribirCabecera(xml, estado);
  CalculaZonaParties(estado, xml, raiz, cliente);
  CalculaZonaInvoices(estado, xml, raiz, clave, revision);
}

}  // namespace kvraedi::facturae
