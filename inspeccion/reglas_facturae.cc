#include "inspeccion/reglas_facturae.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "kvraedi/valor.h"

namespace kvraedi::inspeccion {
namespace {

// Codes of the Facturae 3.2.1 schema, between blanks.
constexpr std::string_view kPaises =
    "AFG ALB DZA ASM AND AGO AIA ATG ARG ARM ABW AUS AUT AZE BHS BHR BGD BRB BLR BEL BLZ "
    "BEN BMU BTN BOL BIH BWA BRA BRN BGR BFA BDI KHM CMR CAN CPV CYM CAF TCD CHL CHN COD "
    "COL COM COG COK CRI CIV HRV CUB CYP CZE DNK DJI DMA DOM ECU EGY SLV GNQ ERI EST ETH "
    "FLK FRO FJI FIN FRA GUF PYF GAB GMB GEO GGY DEU GHA GIB GRC GRL GRD GLP GUM GTM GIN "
    "GNB GUY HTI HND HKG HUN ISL IND IDN IMN IRN IRQ IRL ISR ITA JAM JEY JPN JOR KAZ KEN "
    "KIR PRK KOR KWT KGZ LAO LVA LBN LSO LBR LBY LIE LTU LUX MAC MKD MDG MWI MYS MDV MLI "
    "MLT MHL MTQ MRT MUS MYT MEX FSM MDA MCO MNE MNG MSR MAR MOZ MMR NAM NRU NPL NLD ANT "
    "NCL NZL NIC NER NGA NIU NFK MNP NOR OMN PAK PLW PAN PNG PRY PSE PER PHL PCN POL PRT "
    "PRI QAT REU ROU RUS RWA KNA LCA VCT WSM SMR STP SAU SEN SRB SYC SLE SGP SVK SVN SLB "
    "SOM ZAF ESP LKA SHN SPM SDN SUR SJM SWZ SWE CHE SYR TWN TJK TZA THA TGO TKL TON TTO "
    "TUN TUR TKM TLS TCA TUV UGA UKR ARE GBR USA URY UZB VUT VAT VEN VNM VGB VIR WLF ESH "
    "YEM ZAR ZMB ZWE";
constexpr std::string_view kImpuestos =
    "01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 "
    "29";
constexpr std::string_view kMotivos =
    "01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 80 81 82 83 84 85";
constexpr std::string_view kAnexos = "xml doc gif rtf pdf xls jpg bmp tiff";

enum class Forma : std::uint8_t { kTexto, kNumero, kFecha, kCifras, kCodigo };

/// What the schema asks of an element, and where its value comes from.
struct Regla {
  std::string_view elemento;
  Forma forma;
  std::size_t minimo;
  std::size_t maximo;  ///< characters
  std::string_view codigos;
  std::string_view lugar;
};

constexpr std::string_view kEmpresa = "ficha de la empresa";
constexpr std::string_view kCliente = "ficha del cliente";
constexpr std::string_view kCentroOParte = "ficha del cliente, del centro o de la empresa";
constexpr std::string_view kArticulo = "línea de la factura";

constexpr Regla kReglas[] = {
    {"BatchIdentifier", Forma::kTexto, 1, 70, {}, {}},
    {"TaxIdentificationNumber", Forma::kTexto, 3, 30, {}, kCentroOParte},
    {"PersonTypeCode", Forma::kCodigo, 1, 1, "F J", kCliente},
    {"ResidenceTypeCode", Forma::kCodigo, 1, 1, "E R U", kCliente},
    {"CorporateName", Forma::kTexto, 1, 80, {}, kCentroOParte},
    {"TradeName", Forma::kTexto, 0, 40, {}, kEmpresa},
    {"CentreCode", Forma::kTexto, 1, 10, {}, "ficha del centro administrativo"},
    {"RoleTypeCode", Forma::kCodigo, 2, 2, "01 02 03 04 05 06 07 08 09", kCliente},
    {"CentreDescription", Forma::kTexto, 0, 2500, {}, "ficha del centro administrativo"},
    {"Address", Forma::kTexto, 1, 80, {}, kCentroOParte},
    {"PostCode", Forma::kCifras, 5, 5, {}, kCentroOParte},
    {"Town", Forma::kTexto, 1, 50, {}, kCentroOParte},
    {"Province", Forma::kTexto, 1, 20, {}, kCentroOParte},
    {"CountryCode", Forma::kCodigo, 3, 3, kPaises, "ficha del país"},
    {"InvoiceNumber", Forma::kTexto, 1, 20, {}, {}},
    {"InvoiceSeriesCode", Forma::kTexto, 0, 20, {}, {}},
    {"InvoiceDocumentType", Forma::kCodigo, 2, 2, "FC FA AF", {}},
    {"InvoiceClass", Forma::kCodigo, 2, 2, "OO OR OC CO CR CC", {}},
    {"ReasonCode", Forma::kCodigo, 2, 2, kMotivos, {}},
    {"CorrectionMethod", Forma::kCodigo, 2, 2, "01 02 03 04", {}},
    {"TaxTypeCode", Forma::kCodigo, 2, 2, kImpuestos, {}},
    {"TaxRate", Forma::kNumero, 1, 0, {}, {}},
    {"ItemDescription", Forma::kTexto, 1, 2500, {}, kArticulo},
    {"ArticleCode", Forma::kTexto, 0, 20, {}, kArticulo},
    {"Quantity", Forma::kNumero, 1, 0, {}, kArticulo},
    {"UnitPriceWithoutTax", Forma::kNumero, 1, 0, {}, kArticulo},
    {"DiscountReason", Forma::kTexto, 1, 2500, {}, {}},
    {"AttachmentFormat", Forma::kCodigo, 3, 4, kAnexos, "nombre del documento anexado"},
    {"AttachmentDescription", Forma::kTexto, 0, 2500, {}, "anexo de la factura"},
    {"IssueDate", Forma::kFecha, 10, 10, {}, {}},
    {"OperationDate", Forma::kFecha, 10, 10, {}, {}},
    {"InstallmentDueDate", Forma::kFecha, 10, 10, {}, "vencimientos de la factura"},
    {"IBAN", Forma::kTexto, 5, 34, {}, "cuenta del cliente"},
    {"AccountNumber", Forma::kTexto, 5, 34, {}, "cuenta del cliente"},
};

const Regla* ReglaDe(std::string_view elemento) {
  const auto* const regla =
      std::find_if(std::begin(kReglas), std::end(kReglas),
                   [&](const Regla& una) { return una.elemento == elemento; });
  return regla == std::end(kReglas) ? nullptr : regla;
}

/// Digits with a sign before them and up to eight decimals behind a point.
bool EsNumero(std::string_view valor) {
  if (valor.starts_with('-')) valor.remove_prefix(1);
  const auto cifras = [](std::string_view texto) {
    return !texto.empty() && texto.find_first_not_of("0123456789") == std::string_view::npos;
  };
  constexpr std::size_t kDecimales = 8;
  const auto punto = valor.find('.');
  if (punto == std::string_view::npos) return cifras(valor);
  const auto decimales = valor.substr(punto + 1);
  return cifras(valor.substr(0, punto)) && cifras(decimales) && decimales.size() <= kDecimales;
}

bool EsCodigo(std::string_view valor, std::string_view codigos) {
  for (std::size_t i = codigos.find(valor); i != std::string_view::npos;
       i = codigos.find(valor, i + 1)) {
    const bool empieza = i == 0 || codigos[i - 1] == ' ';
    const std::size_t fin = i + valor.size();
    if (empieza && (fin == codigos.size() || codigos[fin] == ' ')) return true;
  }
  return false;
}

bool EsFecha(std::string_view valor) {
  return valor.size() == 10 && valor[4] == '-' && FechaHora::Parse(valor).has_value();
}

std::string ReparoLargo(const Regla& regla, std::string_view valor) {
  const auto largo = static_cast<std::size_t>(std::count_if(valor.begin(), valor.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  }));
  if (largo < regla.minimo) {
    return largo == 0 ? "falta" : "ha de tener " + std::to_string(regla.minimo) + " caracteres";
  }
  if (regla.maximo > 0 && largo > regla.maximo) {
    return "tiene " + std::to_string(largo) + " caracteres y caben " + std::to_string(regla.maximo);
  }
  return {};
}

}  // namespace

std::string ReparoElemento(std::string_view elemento, std::string_view valor) {
  const Regla* const regla = ReglaDe(elemento);
  if (regla == nullptr) {
    const bool importe = elemento.find("Amount") != std::string_view::npos ||
                         elemento.starts_with("Total") || elemento == "InvoiceTotal";
    return importe && !EsNumero(valor) ? "no es un número" : "";
  }
  std::string largo = ReparoLargo(*regla, valor);
  if (!largo.empty()) return largo;
  switch (regla->forma) {
    case Forma::kNumero:
      return EsNumero(valor) ? "" : "no es un número";
    case Forma::kFecha:
      return EsFecha(valor) ? "" : "no es una fecha";
    case Forma::kCifras:
      return valor.find_first_not_of("0123456789") == std::string_view::npos ? ""
                                                                             : "sólo admite cifras";
    case Forma::kCodigo:
      return EsCodigo(valor, regla->codigos) ? "" : "no es un código de la norma";
    case Forma::kTexto:
      return {};
  }
  return {};
}

std::string_view LugarDeElemento(std::string_view elemento) {
  const Regla* const regla = ReglaDe(elemento);
  return regla == nullptr ? std::string_view() : regla->lugar;
}

}  // namespace kvraedi::inspeccion
