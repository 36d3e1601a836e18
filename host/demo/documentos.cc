#include "host/demo/documentos.h"

#include <optional>
#include <utility>

namespace kvraedi::demo {
namespace {

constexpr std::int64_t kSegundosDia = 86400;
constexpr FechaHora kPrimerDia{2025, 1, 1, 0, 0, 0};
constexpr std::int64_t kDias = 365 + 326;  // up to 22/11/2026
constexpr FechaHora kTodoPendienteDesde{2026, 7, 1, 0, 0, 0};
constexpr std::int16_t kFacturae = 3;

constexpr std::string_view kPdf =
    "%PDF-1.1\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
    "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
    "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 200]>>endobj\n"
    "trailer<</Root 1 0 R>>\n%%EOF\n";

bool Enviada(const Cliente& cliente, const FechaHora& hora, std::int32_t vez) {
  return cliente.plataforma > 0 && hora < kTodoPendienteDesde && vez % 6 != 0;
}

// Most sendings count; some are marked as not sent, with platform 0 or without any.
std::optional<std::int16_t> PlataformaEnvio(const Cliente& cliente, std::int32_t vez) {
  if (vez % 23 == 5) return std::nullopt;
  if (vez % 8 == 3) return std::int16_t{0};
  return cliente.plataforma;
}

int VecesEnviada(std::int32_t vez) { return vez % 9 == 4 ? 2 : 1; }

// Files of Facturae are named after the message, those of other platforms after the time.
std::string Fichero(const Cliente& cliente, const std::string& identificador,
                    const FechaHora& hora) {
  if (cliente.plataforma == kFacturae) return identificador + ".xsig";
  std::string stamp = hora.ToIso();
  std::erase_if(stamp, [](char c) { return c < '0' || c > '9'; });
  return "INVOIC" + stamp + ".txt";
}

struct Registro {
  std::optional<std::string> numero;
  std::optional<FechaHora> fecha;
};

Registro RegistroDe(const Cliente& cliente, std::int32_t codigo, const FechaHora& hora) {
  if (cliente.plataforma != kFacturae) return {};
  return {"REGAGE" + std::to_string(codigo) + " - " + std::to_string(codigo + 7), hora};
}

}  // namespace

Reparto::Reparto(const std::vector<Cliente>& clientes, Azar& azar) : azar_(azar) {
  for (const Cliente& cliente : clientes) orden_.push_back(&cliente);
  puesto_ = orden_.size();
}

const Cliente& Reparto::Siguiente() {
  if (puesto_ == orden_.size()) {
    puesto_ = 0;
    for (std::size_t i = orden_.size() - 1; i > 0; --i) {
      std::swap(orden_[i], orden_[azar_.Siguiente() % (i + 1)]);
    }
  }
  return *orden_[puesto_++];
}

FechaHora FechaDocumento(std::int64_t i, std::int64_t n) {
  return kPrimerDia.PlusSeconds(i * kDias / n * kSegundosDia);
}

FechaHora HoraComercial(const FechaHora& fecha, Azar& azar) {
  constexpr std::int64_t kHora = 3600;
  return fecha.PlusSeconds(azar.Entre(8 * kHora, 20 * kHora));
}

Envios::Envios(Connection& conexion, Azar& azar)
    : facturas_(conexion, "EDI_Envio_Facturas",
                "Cod_EDIPlat, Cod_EDITipoMsg, IdentificadorMsg, Hora, Cod_Empresa, Cod_Ejercicio,"
                " Serie, Codigo, TipoDoc, Copias, EDIFichero, EDINumeroRegistro,"
                " EDIFechaRegistro, Revision"),
      tickets_(conexion, "EDI_Envio_Facturas",
               "Cod_EDIPlat, Cod_EDITipoMsg, IdentificadorMsg, Hora, Cod_Empresa_FT,"
               " Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, Copias, EDIFichero,"
               " EDINumeroRegistro, EDIFechaRegistro, Revision"),
      anexosFactura_(conexion, "EDI_Anexos",
                     "Cod_EDIPlat, Cod_EDITipoMsg, Hora, Cod_Empresa, Cod_Ejercicio, Serie, Codigo,"
                     " TipoDoc, NombreAnexo, DescripcionAnexo, Stream"),
      anexosTicket_(conexion, "EDI_Anexos",
                    "Cod_EDIPlat, Cod_EDITipoMsg, Hora, Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT,"
                    " Fecha_FT, Codigo_FT, NombreAnexo, DescripcionAnexo, Stream"),
      azar_(azar) {}

// Thirty-two hexadecimal digits in five groups; for Facturae, a run of digits.
std::string Envios::Identificador(const Cliente& cliente, std::int16_t empresa,
                                  std::int32_t codigo) {
  if (cliente.plataforma == kFacturae) {
    return std::to_string(1'000'000'000'000'000LL * empresa + codigo);
  }
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string text;
  for (int i = 0; i < 32; ++i) {
    if (i == 8 || i == 12 || i == 16 || i == 20) text += '-';
    text += kHex[azar_.Siguiente() % kHex.size()];
  }
  return text;
}

void Envios::Factura(const Cliente& cliente, const Clave& clave, const FechaHora& hora,
                     std::int32_t vez) {
  const int veces = Enviada(cliente, hora, vez) ? VecesEnviada(vez) : 0;
  for (int i = 0; i < veces; ++i) {
    const FechaHora envio = hora.PlusSeconds((i + 1) * kSegundosDia);
    const std::string id = Identificador(cliente, clave.empresa, clave.codigo);
    const Registro registro = RegistroDe(cliente, clave.codigo, envio);
    facturas_.Insertar(PlataformaEnvio(cliente, vez), cliente.mensaje, id, envio, clave, 1,
                       Fichero(cliente, id, envio), registro.numero, registro.fecha, i);
  }
  const int anexos = cliente.plataforma == kFacturae ? vez % 3 : vez % 41 == 0 ? 1 : 0;
  for (int i = 1; i <= anexos; ++i) {
    anexosFactura_.Insertar(kFacturae, 1, hora, clave, "contrato_" + std::to_string(i) + ".pdf",
                            "Contrato d'obra nº " + std::to_string(i), Binario{kPdf});
  }
}

void Envios::Ticket(const Cliente& cliente, const ClaveTicket& clave, const FechaHora& hora,
                    std::int32_t vez) {
  if (Enviada(cliente, hora, vez)) {
    const FechaHora envio = hora.PlusSeconds(kSegundosDia);
    const std::string id = Identificador(cliente, clave.empresa, clave.codigo);
    const Registro registro = RegistroDe(cliente, clave.codigo, envio);
    tickets_.Insertar(PlataformaEnvio(cliente, vez), cliente.mensaje, id, envio, clave, 1,
                      Fichero(cliente, id, envio), registro.numero, registro.fecha, 0);
  }
  if (cliente.plataforma == kFacturae && vez % 2 == 0) {
    anexosTicket_.Insertar(kFacturae, 1, hora, clave, "ticket.pdf", "Copia del ticket",
                           Binario{kPdf});
  }
}

}  // namespace kvraedi::demo
