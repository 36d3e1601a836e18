#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "frame/accion.h"
#include "frame/fichero_envio.h"
#include "frame/formato.h"
#include "frame/marca.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"
#include "seres/consultas_invoic.h"
#include "seres/escritores_invoic.h"
#include "seres/modSeres.h"

namespace kvraedi {
namespace {

using invoic::ClaveFactura;

constexpr const char* kInicioMarca = "INVOIC";
constexpr const char* kFinalMarca = ".enviando";

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

std::string NombreFactura(const ClaveFactura& clave) {
  return "La factura " + std::to_string(clave.serie) + "/" + std::to_string(clave.codigo);
}

std::string NombreMarca(const ClaveFactura& clave) {
  std::string nombre = kInicioMarca;
  for (const std::int32_t parte :
       {std::int32_t{clave.empresa}, std::int32_t{clave.ejercicio}, std::int32_t{clave.serie},
        clave.codigo, std::int32_t{clave.tipoDoc}}) {
    nombre += '_' + std::to_string(parte);
  }
  return nombre + kFinalMarca;
}

/// The invoice for this terminal alone. What interrupted sendings of any invoice left is put right
/// first: a file whose sending is recorded was only waiting for its name.
std::unique_ptr<FileHold> ReservarFactura(Entorno& entorno, const std::filesystem::path& raiz,
                                          const ClaveFactura& clave) {
  const auto atender = [&](const Notas& notas) {
    const std::string fichero = notas["fichero"];
    if (fichero.empty()) return;
    const bool registrado = !ConexionActual().Open(invoic::ConsultaEnvio(fichero))->Eof();
    ConcluirEnvio(entorno, raiz, notas["carpeta"], fichero, registrado);
  };
  AtenderInterrupciones(entorno, raiz / "Temp", kInicioMarca, kFinalMarca, atender);
  return Reservar(entorno, raiz / "Temp" / NombreMarca(clave),
                  NombreFactura(clave) + " la está enviando", kEsperaBreve, atender);
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

/// A recorded file that does not get its name keeps the mark, so that the next run gives it to it.
void Publicar(FicheroEnvio& fichero, FileHold& marca, bool registrado) {
  try {
    fichero.Publicar();
  } catch (const Error&) {
    if (registrado) marca.Leave();
    throw;
  }
}

void GenerarFichero(std::int16_t cliente, const ClaveFactura& clave, bool pendiente) {
  Entorno& entorno = EntornoActual();
  const Empresa& empresa = EmpresaActual();
  Connection& conexion = ConexionActual();

  const auto raiz = RaizEnvios(entorno);
  const std::string carpeta = std::to_string(clave.ejercicio);
  entorno.MakeFolder(raiz / carpeta);
  entorno.MakeFolder(raiz / "Temp");

  const auto marca = ReservarFactura(entorno, raiz, clave);
  const auto factura =
      conexion.Open(invoic::ConsultaFactura(clave, empresa.EmpresaClientes(), cliente));
  FicheroEnvio fichero(entorno, raiz, carpeta, NombreFichero);
  Anotar(*marca, {{"carpeta", carpeta}, {"fichero", fichero.Nombre()}});
  std::optional<std::string> registro;
  if (!factura->Eof()) {
    const Fila fila(*factura);
    const invoic::Mensaje mensaje{conexion, empresa,       entorno.Region(),
                                  fila,     ClaveDe(fila), fichero.Texto()};
    const auto identificador = EscribirMensaje(mensaje, entorno);
    if (identificador) registro = InsertarEnvio(mensaje.clave, *identificador, fichero.Nombre());
    for (; pendiente && !factura->Eof(); factura->MoveNext()) {  // a row for each of its sendings
      if (Enviada(fila)) ThrowYaEnviada(NombreFactura(clave));
    }
  }
  factura->Close();
  fichero.Preparar();
  if (registro) conexion.Execute(*registro);
  Publicar(fichero, *marca, registro.has_value());
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
