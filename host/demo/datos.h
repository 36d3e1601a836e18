#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kvraedi::demo {

struct EmpresaDemo {
  std::int16_t codigo;
  std::string_view nombre1;
  std::string_view nombre2;
  std::string_view nif;
  bool aplicaIgic;
  std::int16_t almacenes;  ///< its stores are numbered from 1
};

struct ParametroDemo {
  std::int16_t empresa;
  std::string_view nombre;
  std::string_view valor;
};

struct ImpuestoDemo {
  std::int16_t codigo;
  std::string_view nombre;
  std::int64_t porcentaje;  ///< ten-thousandths
};

struct PaisDemo {
  std::int16_t codigo;
  std::string_view nombre;
  std::string_view iso;
  std::string_view iso3;
};

struct LugarDemo {
  std::string_view direccion;
  std::string_view cp;
  std::string_view localidad;
  std::string_view provincia;
};

struct CadenaDemo {
  std::int16_t nivel;
  std::int16_t codigo;
  std::string_view nombre;
};

struct MensajeDemo {
  std::int16_t plataforma;
  std::int16_t mensaje;  ///< 0 names the platform itself
  std::string_view nombre;
};

/// What an invoice of the customer may carry.
enum class Regimen { kNacional, kIntracomunitario, kExportacion };

/// Channel of a customer that has none: the columns stay null.
inline constexpr std::int16_t kSinCanal = -1;

struct ClienteDemo {
  std::int32_t codigo;
  std::string_view nombre;
  std::string_view nif;
  std::int16_t pais = 1;
  Regimen regimen = Regimen::kNacional;
  std::int16_t tipo = 0;  ///< 0 company, 1 private person
  std::int16_t plataforma = kSinCanal;
  std::int16_t mensaje = kSinCanal;
  std::int16_t cadena1 = 0;
  std::int16_t cadena2 = 0;
  std::int16_t cadena3 = 0;
};

struct CentroDemo {
  std::string_view codigo;
  std::string_view nombre;
  LugarDemo lugar;
  std::string_view descripcion;
};

/// Codes of the centres that act for a customer; "" is no centre.
struct RolesDemo {
  std::int32_t cliente;
  std::string_view fiscal;
  std::string_view receptor;
  std::string_view pagador;
  std::string_view comprador;
};

struct ArticuloDemo {
  std::int32_t codigo;
  std::string_view descripcion;
  std::int64_t precio;  ///< ten-thousandths
  std::int16_t impuesto;
  std::int64_t peso;  ///< of a unit, ten-thousandths of a kilo
  bool aGranel;       ///< sold in units with decimals
};

/// The fixed contents of the demo database.
extern const std::span<const EmpresaDemo> kEmpresas;
extern const std::span<const ParametroDemo> kParametros;
extern const std::span<const ImpuestoDemo> kImpuestos;
extern const std::span<const PaisDemo> kPaises;
extern const std::span<const LugarDemo> kLugares;
extern const std::span<const CadenaDemo> kCadenas;
extern const std::span<const MensajeDemo> kMensajes;
extern const std::span<const ClienteDemo> kClientes;
extern const std::span<const CentroDemo> kCentros;
extern const std::span<const RolesDemo> kRoles;
extern const std::span<const ArticuloDemo> kArticulos;
extern const std::span<const std::string_view> kApellidos;
extern const std::span<const std::string_view> kGiros;
extern const std::span<const std::string_view> kContactos;
extern const std::span<const std::string_view> kObservaciones;
extern const std::span<const std::string_view> kTextosDeLinea;

}  // namespace kvraedi::demo
