#include <filesystem>
#include <optional>
#include <string>

#include "frame/accion.h"
#include "frame/fichero_envio.h"
#include "frame/formato.h"
#include "frame/puertos.h"
#include "frame/reserva.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"
#include "seres/consultas_invoic.h"
#include "seres/escritores_invoic.h"
#include "seres/modSeres.h"

namespace kvraedi {
namespace {

using invoic::ClaveFactura;

std::filesystem::path RaizEnvios(Entorno& entorno) {
  auto raiz = ParametroRuta("EDI_PathFichEnvios");
  if (!entorno.FolderExists(raiz)) {
    throw Error(1, "clsSeres.INVOIC", "No existe la ruta para generación de ficheros EDI");
  }
  return raiz;
}

std::string NombreFichero(const FechaHora& sello) {
  return "INVOIC" + FormatearFecha(sello, "yyyymmddhhnnss") + ".txt";
}

ClaveFactura ClaveDe(const Fila& factura) {
  return {factura.Get<std::int16_t>("Cod_Empresa"), factura.Get<std::int16_t>("Cod_Ejercicio"),
          factura.Get<std::int16_t>("Serie"), factura.Get<std::int32_t>("Codigo"),
          factura.Get<std::int16_t>("TipoDoc")};
}

std::string NombreReserva(const ClaveFactura& clave) {
  std::string nombre = "INVOIC";
  for (const std::int32_t parte :
       {std::int32_t{clave.empresa}, std::int32_t{clave.ejercicio}, std::int32_t{clave.serie},
        clave.codigo, std::int32_t{clave.tipoDoc}}) {
    nombre += '_' + std::to_string(parte);
  }
  return nombre + ".enviando";
}

bool Enviada(const Fila& factura) { return factura.GetOrEmpty<std::int16_t>("EDI_Tx") > 0; }

/// Writes all records; gives back the identifier of a first sending, nothing for a repeated one.
std::optional<std::string> EscribirMensaje(const invoic::Mensaje& mensaje, Entorno& entorno) {
  const std::string identificador = entorno.NewMessageId();
  const bool enviadaAntes = Enviada(mensaje.factura);
  EscribirRectl(mensaje, identificador, entorno.Now());
  EscribirSincc(mensaje, enviadaAntes);
  EscribirSincp(mensaje);
  EscribirSinct(mensaje);
  EscribirSincv(mensaje);
  EscribirSincd(mensaje);
  EscribirLineas(mensaje);
  EscribirSinci(mensaje);
  if (enviadaAntes) return std::nullopt;
  return identificador;
}

void GenerarFichero(std::int16_t cliente, const ClaveFactura& clave, bool pendiente) {
  Entorno& entorno = EntornoActual();
  const Empresa& empresa = EmpresaActual();
  Connection& conexion = ConexionActual();

  const auto raiz = RaizEnvios(entorno);
  const std::string carpeta = std::to_string(clave.ejercicio);
  entorno.MakeFolder(raiz / carpeta);
  entorno.MakeFolder(raiz / "Temp");

  const std::string nombre =
      "La factura " + std::to_string(clave.serie) + "/" + std::to_string(clave.codigo);
  const auto reserva =
      Reservar(entorno, raiz / "Temp" / NombreReserva(clave), nombre + " la está enviando");
  const auto factura =
      conexion.Open(invoic::ConsultaFactura(clave, empresa.EmpresaClientes(), cliente));
  if (pendiente && !factura->Eof() && Enviada(Fila(*factura))) ThrowYaEnviada(nombre);
  FicheroEnvio fichero(entorno, raiz, carpeta, NombreFichero);
  std::optional<std::string> registro;
  if (!factura->Eof()) {
    const Fila fila(*factura);
    const invoic::Mensaje mensaje{conexion, empresa,       entorno.Region(),
                                  fila,     ClaveDe(fila), fichero.Texto()};
    const auto identificador = EscribirMensaje(mensaje, entorno);
    if (identificador) registro = InsertarEnvio(mensaje.clave, *identificador, fichero.Nombre());
  }
  factura->Close();
  fichero.Preparar();
  if (registro) conexion.Execute(*registro);
  fichero.Publicar();
}

}  // namespace

bool INVOIC(std::int16_t cliente, std::int16_t serie, std::int32_t codigo, std::int16_t tipoDoc,
            std::int16_t ejercicio, bool pendiente) {
  return Accion("clsSeres:INVOIC", [&] {
    const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
    GenerarFichero(cliente, {empresa, ejercicio, serie, codigo, tipoDoc}, pendiente);
  });
}

}  // namespace kvraedi
