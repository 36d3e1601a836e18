#include <filesystem>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>

#include "host/cli/entradas_log.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "host/cli/texto.h"
#include "host/cli/ultima_identidad.h"
#include "kvraedi/clsDesadv.h"

namespace kvraedi::cli {
namespace {

std::optional<std::int32_t> UltimaCompra(Connection& conexion) {
  return UltimaIdentidad(conexion, "SELECT ISNULL(MAX(ID), 0) AS ID FROM Compras_Mini");
}

void EscribirCompras(Connection& conexion, std::int32_t desde, std::ostream& salida) {
  const auto rs = conexion.Open(
      "SELECT c.Cod_Ejercicio, c.Codigo, c.Documento, c.Cod_Proveedor, c.Cod_Almacen,"
      " (SELECT COUNT(*) FROM Compras_Mini_Lineas l WHERE l.Cod_Empresa = c.Cod_Empresa"
      " AND l.Cod_Ejercicio = c.Cod_Ejercicio AND l.Codigo = c.Codigo) AS Lineas"
      " FROM Compras_Mini c WHERE c.ID > " +
      std::to_string(desde) + " ORDER BY c.ID");
  salida << "Compras creadas:\n";
  if (rs->Eof()) salida << "  ninguna\n";
  for (; !rs->Eof(); rs->MoveNext()) {
    salida << "  " << rs->Get<std::string>("Cod_Ejercicio") << '/' << rs->Get<std::string>("Codigo")
           << ": albarán " << rs->Get<std::string>("Documento") << ", proveedor "
           << rs->Get<std::string>("Cod_Proveedor") << ", almacén "
           << rs->Get<std::string>("Cod_Almacen") << ", líneas " << rs->Get<std::string>("Lineas")
           << '\n';
  }
}

void EscribirLugar(Entorno& entorno, const std::filesystem::path& raiz, const std::string& nombre,
                   bool bien, std::ostream& salida) {
  salida << "Fichero: ";
  const std::filesystem::path fichero = RutaUtf8(nombre);
  if (fichero.filename() == fichero) {
    for (const char* carpeta : {"Rx", "OK", "Error"}) {
      const bool posible = bien == (std::string_view(carpeta) == "OK");
      if (!posible || !entorno.FileExists(raiz / carpeta / fichero)) continue;
      salida << (raiz / carpeta / fichero).string() << '\n';
      return;
    }
  }
  salida << "no está en la carpeta de recepción\n";
}

}  // namespace

int EjecutarDesadvInsertar(const Argumentos& argumentos, const Salida& salida) {
  SesionCli sesion(argumentos, salida.mensajes);
  Entorno& entorno = sesion.EntornoActual();
  const std::string raizTexto = sesion.Parametro("EDI_PathFichRecibir");
  const std::filesystem::path raiz = RutaUtf8(raizTexto);
  const EntradasLog log(entorno, raiz / "OrmoPCCOM.log");
  const auto ultima = UltimaCompra(*sesion.Conexion());
  clsDesadv desadv;
  desadv.EmpresaKestrova(sesion.EmpresaActual());
  desadv.ConexionKestrova(sesion.Conexion());
  desadv.Insertar(argumentos.fichero);
  const std::string entradas = log.Nuevas();
  const bool bien = !entradas.empty() && entradas.find("\tInsertar\tError: ") == std::string::npos;
  EscribirLugar(entorno, raiz, argumentos.fichero, bien, salida.resultado);
  if (ultima) EscribirCompras(*sesion.Conexion(), *ultima, salida.resultado);
  salida.resultado << "Registro:\n" << entradas;
  sesion.Cerrar();
  return bien ? kHecho : kRechazado;
}

}  // namespace kvraedi::cli
