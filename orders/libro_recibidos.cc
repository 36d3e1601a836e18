#include "orders/libro_recibidos.h"

#include <cstdint>
#include <string_view>

#include "frame/formato.h"
#include "frame/sql.h"

namespace kvraedi {
namespace {

std::string_view Nombre(TipoRecibido tipo) {
  return tipo == TipoRecibido::kOrders ? "ORDERS" : "DESADV";
}

}  // namespace

std::string Recibido::Texto() const {
  return fichero + ", leído el " + FechaTexto(hora) + " en " + terminal +
         " (documentos: " + std::to_string(documentos) + ")";
}

LibroRecibidos::LibroRecibidos(Connection& conexion, Entorno& entorno, TipoRecibido tipo)
    : conexion_(conexion),
      entorno_(entorno),
      tipo_(tipo),
      existe_(!conexion.Open("SELECT OBJECT_ID('EDI_Ficheros_Recibidos') AS Libro")->IsNull(0)) {}

/// The condition that finds the entries of a content.
std::string LibroRecibidos::Contenido() const {
  return Sql(" WHERE SHA256 =", SqlTexto{huella_.sha256}, " AND Tipo =", SqlTexto{Nombre(tipo_)},
             " AND Reprocesar = 0");
}

std::optional<Recibido> LibroRecibidos::Buscar(const std::filesystem::path& fichero) {
  if (!existe_) return std::nullopt;
  huella_ = entorno_.Digest(fichero);
  const auto rs =
      conexion_.Open(Sql("SELECT Fichero, Hora, Terminal, Documentos FROM EDI_Ficheros_Recibidos",
                         Contenido(), " ORDER BY ID DESC"));
  if (rs->Eof()) return std::nullopt;
  return Recibido{rs->Get<std::string>("Fichero"), rs->Get<FechaHora>("Hora"),
                  rs->Get<std::string>("Terminal"), rs->Get<std::int32_t>("Documentos")};
}

void LibroRecibidos::Anotar(const std::string& nombre, std::int32_t documentos) {
  if (!existe_) return;
  const std::string ahora = FechaTexto(entorno_.Now());
  const std::string terminal = entorno_.TerminalName();
  conexion_.Execute(
      Sql("INSERT INTO EDI_Ficheros_Recibidos"
          " (Tipo, Fichero, SHA256, Bytes, Hora, Terminal, Documentos) VALUES (",
          SqlTexto{Nombre(tipo_)}, ", ", SqlTexto{nombre}, ", ", SqlTexto{huella_.sha256}, ", ",
          huella_.bytes, ", ", SqlTexto{ahora}, ", ", SqlTexto{terminal}, ", ", documentos, ")"));
}

void LibroRecibidos::Permitir() {
  if (!existe_) return;
  conexion_.Execute(Sql("UPDATE EDI_Ficheros_Recibidos SET Reprocesar = 1", Contenido()));
}

}  // namespace kvraedi
