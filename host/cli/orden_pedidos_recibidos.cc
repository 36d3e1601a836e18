#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "host/cli/entradas_log.h"
#include "host/cli/fallo.h"
#include "host/cli/numeros.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "host/cli/texto.h"
#include "host/cli/ultima_identidad.h"
#include "kvraedi/clsOrders.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

fs::path CarpetaOrders(const SesionCli& sesion) {
  return RutaUtf8(sesion.Parametro("EDI_PathFichRecibir")) / "ORDERS";
}

std::vector<std::string> EnTemp(Entorno& entorno, const fs::path& carpeta) {
  if (!entorno.FolderExists(carpeta / "Temp")) return {};
  return entorno.ListFiles(carpeta / "Temp", ".dat");
}

/// The received order that a customer order was made of last; later ones have greater numbers.
/// Nothing when the suite does not keep it.
std::optional<std::int32_t> UltimoHecho(Connection& conexion) {
  return UltimaIdentidad(conexion, "SELECT ISNULL(MAX(EDI_ID), 0) AS ID FROM Pedidos_Clientes");
}

void EscribirLineas(Connection& conexion, const std::string& condicion, std::ostream& salida) {
  const auto rs = conexion.Open(
      "SELECT Num_Linea, Cod_Articulo, Cod_Barras, Cantidad FROM Pedidos_Clientes_Lineas WHERE " +
      condicion + " ORDER BY Num_Linea");
  for (; !rs->Eof(); rs->MoveNext()) {
    salida << "    " << rs->Get<std::string>("Num_Linea") << ". artículo "
           << (rs->IsNull("Cod_Articulo") ? "desconocido" : rs->Get<std::string>("Cod_Articulo"))
           << " (" << rs->GetOrEmpty<std::string>("Cod_Barras")
           << "), cantidad: " << rs->GetOrEmpty<std::string>("Cantidad") << '\n';
  }
}

void EscribirPedidos(Connection& conexion, std::int32_t desde, std::ostream& salida) {
  const auto rs = conexion.Open(
      "SELECT p.Cod_Empresa, p.Cod_Ejercicio, p.Codigo, p.EDI_Doc_Num, p.Cod_Cliente,"
      " p.Cod_Almacen, (SELECT COUNT(*) FROM Pedidos_Clientes a WHERE a.Cod_Empresa = p.Cod_Empresa"
      " AND a.Cod_Cliente = p.Cod_Cliente AND a.EDI_Doc_Num = p.EDI_Doc_Num"
      " AND a.EDI_ID < p.EDI_ID) AS Anteriores FROM Pedidos_Clientes p WHERE p.EDI_ID > " +
      std::to_string(desde) + " ORDER BY p.EDI_ID");
  salida << "Pedidos de clientes creados:\n";
  if (rs->Eof()) salida << "  ninguno\n";
  for (; !rs->Eof(); rs->MoveNext()) {
    const auto ejercicio = rs->Get<std::string>("Cod_Ejercicio");
    const auto codigo = rs->Get<std::string>("Codigo");
    salida << "  " << ejercicio << '/' << codigo << ": pedido "
           << rs->Get<std::string>("EDI_Doc_Num") << ", cliente "
           << rs->Get<std::string>("Cod_Cliente") << ", almacén "
           << rs->Get<std::string>("Cod_Almacen")
           << (rs->Get<std::int64_t>("Anteriores") > 0 ? "; el cliente ya tenía uno de ese número\n"
                                                       : "\n");
    std::string clave = "Cod_Empresa = " + rs->Get<std::string>("Cod_Empresa");
    clave.append(" AND Cod_Ejercicio = ").append(ejercicio);
    clave.append(" AND Codigo = ").append(codigo);
    EscribirLineas(conexion, clave, salida);
  }
}

void EscribirLugares(Entorno& entorno, const fs::path& carpeta,
                     const std::vector<std::string>& nombres, std::ostream& salida) {
  salida << "Ficheros:\n";
  if (nombres.empty()) salida << "  ninguno\n";
  for (const std::string& nombre : nombres) {
    for (const char* lugar : {"Temp", "OK", "Error"}) {
      if (!entorno.FileExists(carpeta / lugar / RutaUtf8(nombre))) continue;
      salida << "  " << lugar << ": " << nombre << '\n';
      break;
    }
  }
}

/// Why an order is still staged, as far as its own row and lines tell; "" when nothing is wrong.
std::string Motivo(Connection& conexion, const Recordset& rs, std::int16_t empresaClientes) {
  const auto cuenta = [&rs](const char* campo) { return rs.Get<std::int64_t>(campo); };
  const auto cliente = rs.GetOrEmpty<std::string>("GLN_Cliente");
  const auto entrega = rs.GetOrEmpty<std::string>("GLN_ClienteEntrega");
  if (cuenta("Lineas") == 0) return "no tiene líneas; hasta que las tenga no se crea ninguno";
  if (cuenta("Almacenes") != 1) {
    return "el GLN de entrega «" + entrega + "» es el de " + rs.Get<std::string>("Almacenes") +
           " almacenes";
  }
  if (rs.IsNull("Fecha_Emision")) return "no tiene fecha de emisión";
  if (cuenta("Clientes") > 1) return "el GLN de cliente «" + cliente + "» es el de varios clientes";
  if (cuenta("Clientes") == 1) return {};
  const auto codigo = Entero<std::int32_t>(cliente);
  if (codigo &&
      !conexion
           .Open("SELECT Codigo FROM Clientes WHERE Cod_Empresa = " +
                 std::to_string(empresaClientes) + " AND Codigo = " + std::to_string(*codigo))
           ->Eof()) {
    return {};
  }
  return "el GLN de cliente «" + cliente + "» no es el de ninguno";
}

void EscribirRecibidos(Connection& conexion, const Empresa& empresa, std::ostream& salida) {
  const auto rs = conexion.Open(
      "SELECT cli.ID, cli.Doc_Num, cli.Fichero, cli.Hora, cli.Fecha_Emision, cli.GLN_Cliente,"
      " cli.GLN_ClienteEntrega,"
      " (SELECT COUNT(*) FROM EDI_PedidosClientes_Lineas lin WHERE lin.Doc_Num = cli.Doc_Num)"
      " AS Lineas,"
      " (SELECT COUNT(*) FROM Almacenes alm WHERE alm.Cod_Empresa = " +
      std::to_string(empresa.CodigoEmpresa()) +
      " AND REPLACE(alm.EDI_GLN, '.', '') = REPLACE(cli.GLN_ClienteEntrega, '.', '')) AS Almacenes,"
      " (SELECT COUNT(*) FROM Clientes c WHERE c.Cod_Empresa = " +
      std::to_string(empresa.EmpresaClientes()) +
      " AND REPLACE(c.EDI_GLN, '.', '') = REPLACE(cli.GLN_Cliente, '.', '')) AS Clientes"
      " FROM EDI_PedidosClientes cli ORDER BY cli.ID");
  salida << "Pedidos recibidos sin crear:\n";
  if (rs->Eof()) salida << "  ninguno\n";
  for (; !rs->Eof(); rs->MoveNext()) {
    const std::string motivo = Motivo(conexion, *rs, empresa.EmpresaClientes());
    salida << "  " << rs->Get<std::string>("Doc_Num") << " (" << rs->Get<std::string>("Fichero")
           << ", líneas " << rs->Get<std::string>("Lineas")
           << "): " << (motivo.empty() ? "nada en él lo impide" : motivo) << '\n';
  }
}

void EscribirLineasSueltas(Connection& conexion, std::ostream& salida) {
  const auto rs = conexion.Open(
      "SELECT lin.Doc_Num, COUNT(*) AS Lineas FROM EDI_PedidosClientes_Lineas lin"
      " LEFT JOIN EDI_PedidosClientes cli ON cli.Doc_Num = lin.Doc_Num"
      " WHERE cli.Doc_Num IS NULL GROUP BY lin.Doc_Num ORDER BY lin.Doc_Num");
  for (; !rs->Eof(); rs->MoveNext()) {
    salida << "  " << rs->Get<std::string>("Doc_Num") << ": hay líneas ("
           << rs->Get<std::string>("Lineas")
           << ") sin su pedido; hasta que lo tengan no se crea ninguno\n";
  }
}

/// Whether anything is still staged: everything is created in a run, or nothing.
bool QuedanSinCrear(Connection& conexion) {
  for (const char* tabla : {"EDI_PedidosClientes", "EDI_PedidosClientes_Lineas"}) {
    if (!conexion.Open(std::string("SELECT TOP 1 Doc_Num FROM ") + tabla)->Eof()) return true;
  }
  return false;
}

}  // namespace

int EjecutarOrdersInsertar(const Argumentos& argumentos, const Salida& salida) {
  SesionCli sesion(argumentos, salida.mensajes);
  Entorno& entorno = sesion.EntornoActual();
  const fs::path carpeta = CarpetaOrders(sesion);
  const auto ficheros = EnTemp(entorno, carpeta);
  const EntradasLog lectura(entorno, carpeta / "Log" / "ProcesarFicheros.log");
  const EntradasLog creacion(entorno, carpeta / "Log" / "CrearPedidosClientes.log");
  const auto ultimo = UltimoHecho(*sesion.Conexion());
  clsOrders orders;
  orders.EmpresaKestrova(sesion.EmpresaActual());
  orders.ConexionKestrova(sesion.Conexion());
  orders.Insertar();
  if (ultimo) EscribirPedidos(*sesion.Conexion(), *ultimo, salida.resultado);
  EscribirLugares(entorno, carpeta, ficheros, salida.resultado);
  salida.resultado << "Registro:\n" << lectura.Nuevas() << creacion.Nuevas();
  const bool quedan = QuedanSinCrear(*sesion.Conexion());
  if (quedan) {
    salida.mensajes << "kvraedi: quedan pedidos sin crear; «orders pendientes» dice por qué\n";
  }
  sesion.Cerrar();
  return sesion.Pantallas().Messages().empty() && !quedan ? kHecho : kRechazado;
}

int EjecutarOrdersPendientes(const Argumentos& argumentos, const Salida& salida) {
  SesionCli sesion(argumentos, salida.mensajes);
  EscribirRecibidos(*sesion.Conexion(), *sesion.EmpresaActual(), salida.resultado);
  EscribirLineasSueltas(*sesion.Conexion(), salida.resultado);
  salida.resultado << "Ficheros sin leer:\n";
  const auto ficheros = EnTemp(sesion.EntornoActual(), CarpetaOrders(sesion));
  if (ficheros.empty()) salida.resultado << "  ninguno\n";
  for (const std::string& nombre : ficheros) salida.resultado << "  " << nombre << '\n';
  sesion.Cerrar();
  return kHecho;
}

}  // namespace kvraedi::cli
