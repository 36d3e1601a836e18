#include "host/demo/recepcion.h"

#include <array>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "host/demo/azar.h"
#include "host/demo/datos.h"
#include "host/demo/documentos.h"
#include "host/demo/factura_proveedor.h"
#include "host/demo/maestros.h"
#include "host/demo/tabla.h"
#include "kvraedi/error.h"

namespace kvraedi::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUsuarios[] = {"Ana Quintana", "Luis Ñíguez", "Carmen O'Shanahan",
                                          "Pedro Santana", "Yaiza Déniz"};
constexpr auto kComentarios = std::to_array<std::string_view>(
    {"PENDIENTE DE ALBARÁN", "CONFORME, SALVO PORTES", "RECLAMADO ABONO DE 12 UNIDADES",
     "L´ENTREGA LLEGÓ INCOMPLETA"});

constexpr std::int32_t kRecibidas = 72;
constexpr std::int32_t kUnaDeLaSegunda = 9;  // one in so many belongs to company 2
constexpr std::int32_t kVisadas = 40;        // of the first ones, most are approved
constexpr std::int16_t kSeres = 2;
constexpr std::int16_t kInvoic = 1;

/// What is wrong with the file or the row of some invoices.
enum class Averia {
  kNinguna,
  kNoEsta,
  kVacio,
  kCortado,
  kSinNumero,
  kDescuentoSinLinea,
  kOtraCodificacion,
  kNombreHostil,
  kOtraPlataforma,
  kOtroMensaje,
  kFacturae
};

struct AveriaDemo {
  std::int32_t factura;
  Averia averia;
  std::string_view comentario;
};

constexpr AveriaDemo kAverias[] = {
    {50, Averia::kNoEsta, "DEMO: EL FICHERO NO ESTÁ"},
    {51, Averia::kVacio, "DEMO: EL FICHERO ESTÁ VACÍO"},
    {52, Averia::kCortado, "DEMO: EL FICHERO ESTÁ CORTADO"},
    {53, Averia::kSinNumero, "DEMO: UN IMPORTE NO ES UN NÚMERO"},
    {55, Averia::kDescuentoSinLinea, "DEMO: UN DESCUENTO ANTES DE TODA LÍNEA"},
    {56, Averia::kOtraCodificacion, "DEMO: EL FICHERO ESTÁ EN UTF-16"},
    {57, Averia::kNombreHostil, "DEMO: EL NOMBRE LLEVA FUERA DE LA CARPETA"},
    {58, Averia::kOtraPlataforma, "DEMO: PLATAFORMA DESCONOCIDA"},
    {59, Averia::kOtroMensaje, "DEMO: TIPO DE MENSAJE DESCONOCIDO"},
    {60, Averia::kFacturae, "DEMO: FACTURAE, QUE EL VISOR NO LEE"},
};

const AveriaDemo* AveriaDe(std::int32_t factura) {
  for (const AveriaDemo& averia : kAverias) {
    if (averia.factura == factura) return &averia;
  }
  return nullptr;
}

std::string EnUtf16(std::string_view bytes) {
  std::string ancho = "\xFF\xFE";
  for (const char c : bytes) {
    ancho += c;
    ancho += '\0';
  }
  return ancho;
}

std::string Estropear(std::string bytes, Averia averia) {
  const std::size_t linea = bytes.find("SINCL");
  switch (averia) {
    case Averia::kVacio:
      return {};
    case Averia::kCortado:
      return bytes.substr(0, bytes.rfind("SINCL") + 150);
    case Averia::kSinNumero:
      return bytes.replace(bytes.find("SINCL", linea + 1) + 148, 7, "1.2E+3?");
    case Averia::kDescuentoSinLinea:
      return bytes.insert(linea, "SINCE  1A1       5.0000\r\n");
    case Averia::kOtraCodificacion:
      return EnUtf16(bytes);
    default:
      return bytes;
  }
}

void Escribir(const fs::path& fichero, const std::string& bytes) {
  fs::create_directories(fichero.parent_path());
  std::ofstream salida(fichero, std::ios::binary);
  salida << bytes;
  salida.close();
  if (!salida) {
    throw Error(kErrorFile, "CrearDemo", "No se ha podido escribir " + fichero.string());
  }
}

std::vector<ProveedorMensaje> LeerProveedores(Connection& conexion) {
  std::vector<ProveedorMensaje> proveedores;
  const auto rs = conexion.Open(
      "SELECT Codigo, Nombre, Nif, Direccion, CP, Localidad FROM Proveedores"
      " WHERE Cod_Empresa = 1 AND Codigo BETWEEN 1 AND 12 ORDER BY Codigo");
  for (; !rs->Eof(); rs->MoveNext()) {
    const auto texto = [&](std::string_view campo) { return rs->GetOrEmpty<std::string>(campo); };
    const auto codigo = rs->Get<std::int32_t>("Codigo");
    constexpr std::int64_t kPrimerGln = 700000000;
    proveedores.push_back({codigo, Gln(kPrimerGln + codigo), texto("Nombre"), texto("Nif"),
                           texto("Direccion"), texto("CP"), texto("Localidad")});
  }
  return proveedores;
}

std::string Sello(const FechaHora& momento) {
  std::string digitos;
  for (const char c : momento.ToIso()) {
    if (c >= '0' && c <= '9') digitos += c;
  }
  return digitos;
}

class Recibidas {
 public:
  Recibidas(Connection& conexion, fs::path recepcion, std::uint64_t semilla)
      : tabla_(conexion, "EDI_Recepcion_Facturas",
               "IdentificadorMsg, Cod_Empresa, Cod_Ejercicio, Cod_Proveedor, Documento, Fecha,"
               " Total, Cod_Usuario_Visado, Observ, Cod_EDIPlat, Cod_EDITipoMsg, EDIFichero,"
               " EDIFechaRecepcion"),
        recepcion_(std::move(recepcion)),
        azar_(semilla),
        proveedores_(LeerProveedores(conexion)) {}

  void Crear(std::int32_t numero) {
    const AveriaDemo* const averia = AveriaDe(numero);
    const Averia que = averia != nullptr ? averia->averia : Averia::kNinguna;
    const FechaHora fecha = FechaDocumento(numero - 1, kRecibidas);
    const FechaHora recibida = HoraComercial(fecha.PlusSeconds(86400), azar_);
    const FacturaProveedor factura = InventarFactura(
        proveedores_[static_cast<std::size_t>(numero) % proveedores_.size()], numero, fecha, azar_);
    std::string fichero = "INVOIC" + Sello(recibida) + ".txt";
    if (que != Averia::kNoEsta) {
      Escribir(recepcion_ / std::to_string(fecha.year) / fichero, Estropear(factura.bytes, que));
    }
    if (que == Averia::kNombreHostil) fichero = "../../kvraedi.db";
    const bool visada = numero <= kVisadas && numero % 5 != 0;
    const std::int64_t usuario = azar_.Entre(1, std::ssize(kUsuarios));
    tabla_.Insertar("REC" + std::to_string(20000000 + numero), Empresa(numero, que), fecha.year,
                    factura.proveedor, factura.documento, fecha, factura.total,
                    visada ? usuario : 0, Comentario(numero, averia),
                    que == Averia::kOtraPlataforma ? 9
                    : que == Averia::kFacturae     ? 3
                                                   : kSeres,
                    que == Averia::kOtroMensaje ? 7 : kInvoic, fichero, recibida);
  }

 private:
  static std::int16_t Empresa(std::int32_t numero, Averia averia) {
    return averia == Averia::kNinguna && numero % kUnaDeLaSegunda == 0 ? 2 : 1;
  }

  std::optional<std::string> Comentario(std::int32_t numero, const AveriaDemo* averia) {
    if (averia != nullptr) return std::string(averia->comentario);
    if (numero % 6 != 0) return std::nullopt;
    return std::string(azar_.Elegir(kComentarios));
  }

  Tabla tabla_;
  fs::path recepcion_;
  Azar azar_;
  std::vector<ProveedorMensaje> proveedores_;
};

void CrearUsuarios(Connection& conexion) {
  Tabla usuarios(conexion, "SGD_USUARIOS", "Codigo, Nombre");
  std::int16_t codigo = 0;
  for (const std::string_view nombre : kUsuarios) usuarios.Insertar(++codigo, nombre);
}

void CrearPendientes(Connection& conexion) {
  Tabla tabla(conexion, "EDI_PdteClasificar",
              "EDIFichero, EDIFechaRecepcion, Cod_EDIPlat, Cod_EDITipoMsg, GLN, Proveedor,"
              " GLN_Comprador, Comprador");
  constexpr std::string_view kRemitentes[] = {"Viveros El Drago S.L.", "Imprenta Ñumar S.A.",
                                              "Transportes O'Hara S.L.", ""};
  const FechaHora ultima{2026, 11, 20, 17, 45, 10};
  constexpr std::int64_t kDosDias = 172800;
  for (int i = 0; i < 10; ++i) {
    // The second and the third came at the same moment.
    const FechaHora recibido = ultima.PlusSeconds(-(i == 2 ? 1 : i) * kDosDias);
    const std::string_view remitente = kRemitentes[i % 4];
    tabla.Insertar("INVOIC" + Sello(recibido) + "_" + std::to_string(i + 1) + ".txt", recibido,
                   kSeres, kInvoic, Gln(790000000 + i), remitente,
                   i % 3 == 0 ? "8437000222224" : "8437000111115",
                   i % 3 == 0 ? "Kestrova Tiendas" : "Kestrova Islas");
  }
}

}  // namespace

void CrearRecepcion(Connection& conexion, const fs::path& recepcion, std::uint64_t semilla) {
  CrearUsuarios(conexion);
  Recibidas recibidas(conexion, recepcion, semilla);
  for (std::int32_t numero = 1; numero <= kRecibidas; ++numero) recibidas.Crear(numero);
  CrearPendientes(conexion);
}

}  // namespace kvraedi::demo
