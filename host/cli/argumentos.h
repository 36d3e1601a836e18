#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/cli/clave_factura.h"
#include "host/cli/datos_centro.h"
#include "host/cli/datos_compra.h"
#include "host/cli/datos_exportacion.h"
#include "host/cli/datos_recibida.h"
#include "kvraedi/facturas_dudosas.h"
#include "platform/os/entorno_sistema.h"

namespace kvraedi::cli {

/// What the command line says, with the defaults of what it does not say.
struct Argumentos {
  std::string conexion;  ///< as AbrirConexion takes it
  std::int16_t empresa = 1;
  std::optional<std::string> registroSql;
  OpcionesEntorno entorno;

  std::string carpeta = "demo";
  std::int32_t numeroFacturas = 400;
  std::uint64_t semilla = 1;
  bool sobrescribir = false;

  std::string desde;
  std::string hasta;
  std::optional<std::int32_t> cliente;
  std::string cadena;
  int estado = 0;  ///< index in cboEstado
  int tipo = 0;    ///< index in cboTipo
  bool json = false;
  bool todas = false;
  bool forzar = false;
  FacturasDudosas dudosas = FacturasDudosas::kPreguntar;
  std::vector<ClaveFactura> claves;

  std::string fichero;
  std::vector<std::string> ficheros;
  bool enmascarar = false;
  std::string descripcion;
  std::string nombre;

  DatosCentro centro;
  DatosCompra compra;
  DatosRecibida recibida;
  DatosExportacion exportacion;

  std::optional<std::string> capturas;
};

/// One option of a command.
struct Opcion {
  const char* nombre;
  const char* valor;  ///< what stands for the value in the help; "" when the option takes none
  const char* ayuda;
  /// Takes the value over; raises Fallo when it is not a good one.
  void (*aplicar)(Argumentos& argumentos, const std::string& valor);
  bool obligatoria = false;
  bool varias = false;  ///< may be given several times, each with several values
};

std::span<const Opcion> OpcionesComunes();
std::span<const Opcion> OpcionesDemo();
std::span<const Opcion> OpcionesListar();
std::span<const Opcion> OpcionesEnviar();
std::span<const Opcion> OpcionesExportar();
std::span<const Opcion> OpcionesAnexosListar();
std::span<const Opcion> OpcionesAnexosAnadir();
std::span<const Opcion> OpcionesAnexosQuitar();
std::span<const Opcion> OpcionesCentrosListar();
std::span<const Opcion> OpcionesCentrosAnadir();
std::span<const Opcion> OpcionesCentrosModificar();
std::span<const Opcion> OpcionesCentrosEliminar();
std::span<const Opcion> OpcionesPedidosExportar();
std::span<const Opcion> OpcionesOrdersGenerar();
std::span<const Opcion> OpcionesRecadvGenerar();
std::span<const Opcion> OpcionesDesadvInsertar();
std::span<const Opcion> OpcionesComparar();
std::span<const Opcion> OpcionesReprocesar();
std::span<const Opcion> OpcionesApartar();
std::span<const Opcion> OpcionesRecibidasListar();
std::span<const Opcion> OpcionesRecibidasUna();
std::span<const Opcion> OpcionesRecibidasComentar();
std::span<const Opcion> OpcionesRecibidasImprimir();
std::span<const Opcion> OpcionesPendientesListar();
std::span<const Opcion> OpcionesVer();
std::span<const Opcion> OpcionesPantallas();

}  // namespace kvraedi::cli
