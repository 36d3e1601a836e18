#include <algorithm>
#include <array>

#include "facturae/consultas_documento.h"
#include "facturae/documento.h"
#include "facturae/elementos.h"
#include "frame/fila.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

constexpr std::string_view kPersonaJuridica = "J";
constexpr std::size_t kAnchoNif = 30;
constexpr std::size_t kAnchoNombre = 40;

/// The parts of an address, in the order of their elements.
struct Direccion {
  std::string_view calle, codigoPostal, localidad, provincia, pais;
};

void EscribirDireccion(DocumentoXml& xml, NodoXml padre, const Direccion& direccion) {
  Anadir(xml, xml.Elemento(padre, "AddressInSpain"),
         {{"Address", direccion.calle},
          {"PostCode", direccion.codigoPostal},
          {"Town", direccion.localidad},
          {"Province", direccion.provincia},
          {"CountryCode", direccion.pais}});
}

/// Digits with at most one decimal sign, a sign before them and blanks around them allowed.
bool EsNumerico(std::string_view texto) {
  const auto primero = texto.find_first_not_of(' ');
  if (primero == std::string_view::npos) return false;
  texto = texto.substr(primero, texto.find_last_not_of(' ') - primero + 1);
  if (texto.front() == '-' || texto.front() == '+') texto.remove_prefix(1);
  const auto esCifra = [](char c) { return c >= '0' && c <= '9'; };
  const auto cifras = std::count_if(texto.begin(), texto.end(), esCifra);
  const auto decimales =
      std::count(texto.begin(), texto.end(), '.') + std::count(texto.begin(), texto.end(), ',');
  return cifras > 0 && decimales <= 1 &&
         cifras + decimales == static_cast<std::ptrdiff_t>(texto.size());
}

std::string_view CodigoPostal(const Fila& fila, std::string_view columna) {
  const auto codigo = fila.GetOrEmpty<std::string_view>(columna);
  return EsNumerico(codigo) ? PrimerosCaracteres(codigo, 5) : "00000";
}

std::string_view OGuion(std::string_view texto) { return texto.empty() ? "-" : texto; }

std::string_view Nif(std::string_view nif) {
  const bool corto = PrimerosCaracteres(nif, 2) == nif;
  return corto ? "ERROR" : PrimerosCaracteres(nif, kAnchoNif);
}

/// Name and address of a company.
struct Entidad {
  std::string_view razonSocial, nombreComercial;
  Direccion direccion;
};

void EscribirEntidad(DocumentoXml& xml, NodoXml parte, const Entidad& entidad) {
  const NodoXml nodo = xml.Elemento(parte, "LegalEntity");
  Anadir(xml, nodo,
         {{"CorporateName", OGuion(entidad.razonSocial)},
          {"TradeName", OGuion(entidad.nombreComercial)}});
  EscribirDireccion(
      xml, nodo,
      {PrimerosCaracteres(entidad.direccion.calle, 80), entidad.direccion.codigoPostal,
       PrimerosCaracteres(entidad.direccion.localidad, 50),
       PrimerosCaracteres(entidad.direccion.provincia, 20), entidad.direccion.pais});
}

void EscribirIdentificacion(DocumentoXml& xml, NodoXml parte, std::string_view persona,
                            std::string_view residencia, std::string_view nif) {
  Anadir(xml, xml.Elemento(parte, "TaxIdentification"),
         {{"PersonTypeCode", persona},
          {"ResidenceTypeCode", residencia},
          {"TaxIdentificationNumber", Nif(nif)}});
}

void EscribirVendedor(DocumentoXml& xml, NodoXml vendedor, const EstadoFacturaE& estado,
                      const Fila& fila) {
  const auto texto = [&](std::string_view columna) { return fila.Get<std::string_view>(columna); };
  EscribirIdentificacion(xml, vendedor, estado.tipoPersona, estado.tipoResidencia,
                         texto("Emp_Nif"));
  if (estado.tipoPersona != kPersonaJuridica) return;
  EscribirEntidad(xml, vendedor,
                  {texto("Emp_Nombre1"),
                   texto("Emp_Nombre2"),
                   {texto("Emp_Direccion"), CodigoPostal(fila, "Emp_Cp"), texto("Emp_Localidad"),
                    texto("Emp_Provincia"), "ESP"}});
}

std::string_view Residencia(const Fila& fila) {
  constexpr std::string_view kUnionEuropea =
      "BE, BG, CZ, DK, DE, EE, IE, EL, FR, HR, IT, CY, LV, LT, LU, HU, MT, NL, AT, PL, PT, RO, SI, "
      "SK, FI, SE, UK";
  if (fila.IsNull("CompPais")) return "E";
  const auto pais = fila.Get<std::string_view>("CompPais");
  if (pais == "ES") return "R";
  return kUnionEuropea.find(pais) != std::string_view::npos ? "U" : "E";
}

struct Rol {
  std::string_view codigo;
  std::string_view sufijo;
  bool siempre;
};

constexpr auto kRoles = std::to_array<Rol>({{"01", "Fiscal", true},
                                            {"02", "Receptor", true},
                                            {"03", "Pagador", true},
                                            {"04", "Comprador", false}});

void EscribirCentro(DocumentoXml& xml, NodoXml centros, const Fila& fila, const Rol& rol) {
  const auto columna = [&](const char* nombre) { return nombre + std::string(rol.sufijo); };
  const auto texto = [&](const char* nombre) {
    return fila.Get<std::string_view>(columna(nombre));
  };
  if (!rol.siempre && fila.GetOrEmpty<std::string_view>(columna("Codigo")).empty()) return;
  const NodoXml centro = xml.Elemento(centros, "AdministrativeCentre");
  Anadir(xml, centro, {{"CentreCode", texto("Codigo")}, {"RoleTypeCode", rol.codigo}});
  EscribirDireccion(
      xml, centro,
      {texto("Direccion"), texto("CP"), texto("Localidad"), texto("Provincia"), texto("Pais")});
  xml.ElementoTexto(centro, "CentreDescription", texto("Descripcion"));
}

void EscribirComprador(DocumentoXml& xml, NodoXml comprador, const Fila& fila) {
  const auto texto = [&](std::string_view columna) { return fila.Get<std::string_view>(columna); };
  const bool juridica =
      !fila.IsNull("CompTipoPersona") && fila.Get<std::int16_t>("CompTipoPersona") == 0;
  EscribirIdentificacion(xml, comprador, juridica ? kPersonaJuridica : "F", Residencia(fila),
                         texto("CompNif"));
  const NodoXml centros = xml.Elemento(comprador, "AdministrativeCentres");
  for (const Rol& rol : kRoles) EscribirCentro(xml, centros, fila, rol);
  if (!juridica) return;
  EscribirEntidad(xml, comprador,
                  {PrimerosCaracteres(texto("nombre"), kAnchoNombre),
                   PrimerosCaracteres(texto("Nombre_Comercial"), kAnchoNombre),
                   {texto("Direccion"), CodigoPostal(fila, "CP"), texto("Localidad"),
                    texto("Provincia"), texto("CompPais3")}});
}

}  // namespace

void CalculaZonaParties(EstadoFacturaE& estado, DocumentoXml& xml, NodoXml raiz,
                        std::int32_t cliente) {
  const NodoXml partes = xml.Elemento(raiz, "Parties");
  const NodoXml vendedor = xml.Elemento(partes, "SellerParty");
  const NodoXml comprador = xml.Elemento(partes, "BuyerParty");
  const auto filas =
      ConexionActual().Open(ConsultaPartes(EmpresaActual().CodigoEmpresa(), cliente));
  if (filas->Eof()) {
    xml.Elemento(vendedor, "TaxIdentification");
    return;
  }
  const Fila fila(*filas);
  estado.emailEmisor = fila.GetOrEmpty<std::string>("email");
  EscribirVendedor(xml, vendedor, estado, fila);
  EscribirComprador(xml, comprador, fila);
}

}  // namespace kvraedi::facturae
