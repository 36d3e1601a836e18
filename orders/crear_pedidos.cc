#include "orders/crear_pedidos.h"

#include <charconv>
#include <cstdint>
#include <exception>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/recortar.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "frame/transaccion.h"
#include "kvraedi/error.h"
#include "orders/bitacora.h"
#include "orders/codigo_gln.h"
#include "orders/lector_barras.h"

namespace kvraedi {
namespace {

constexpr std::string_view kRutina = "CrearPedidosClientes";

/// A row of the staging table with its warehouse.
struct PedidoRecibido {
  std::string numero;
  std::optional<std::int16_t> almacen;
  std::optional<FechaHora> emision;
  std::optional<FechaHora> envio;
  std::optional<FechaHora> envioFin;
  std::string glnCliente;
  std::int32_t id = 0;
  std::string nombre;
  std::string direccion;
  std::string localidad;
  std::string cp;
};

[[noreturn]] void Fallar(const std::string& numero, const std::string& motivo) {
  throw Error(kErrorItemNotFound, "kvraedi", "Pedido " + numero + ": " + motivo);
}

/// The text as a whole number, blanks around it; nothing when it is anything else.
std::optional<std::int32_t> Numero(std::string_view texto) {
  texto = Recortar(texto);
  std::int32_t valor = 0;
  const char* const fin = texto.data() + texto.size();
  const auto [leido, error] = std::from_chars(texto.data(), fin, valor);
  if (error != std::errc{} || leido != fin || valor < 0) return std::nullopt;
  return valor;
}

/// A staged day; nothing when it is null or none.
std::optional<FechaHora> Fecha(const Recordset& rs, std::string_view campo) {
  return DiaUsable(rs.GetOrEmpty<std::string_view>(campo));
}

/// The same for a day of delivery: the database keeps an empty one as 01/01/1900.
std::optional<FechaHora> FechaDeEntrega(const Recordset& rs, std::string_view campo) {
  constexpr FechaHora kVacia{1900, 1, 1};
  const auto fecha = Fecha(rs, campo);
  return fecha == kVacia ? std::nullopt : fecha;
}

PedidoRecibido LeerPedido(const Recordset& rs) {
  PedidoRecibido pedido;
  pedido.numero = rs.Get<std::string>("Doc_Num");
  if (!rs.IsNull("Cod_Almacen")) pedido.almacen = rs.Get<std::int16_t>("Cod_Almacen");
  pedido.emision = Fecha(rs, "Fecha_Emision");
  pedido.envio = FechaDeEntrega(rs, "Fecha_Envio");
  pedido.envioFin = FechaDeEntrega(rs, "Fecha_EnvioFin");
  pedido.glnCliente = rs.GetOrEmpty<std::string>("GLN_Cliente");
  pedido.id = rs.Get<std::int32_t>("ID");
  pedido.nombre = rs.GetOrEmpty<std::string>("Nombre_ClienteEntrega");
  pedido.direccion = rs.GetOrEmpty<std::string>("Direccion_ClienteEntrega");
  pedido.localidad = rs.GetOrEmpty<std::string>("Localidad_ClienteEntrega");
  pedido.cp = rs.GetOrEmpty<std::string>("CP_ClienteEntrega");
  return pedido;
}

class Creacion {
 public:
  explicit Creacion(const std::filesystem::path& carpeta)
      : conexion_(ConexionActual()),
        log_(EntornoActual(), carpeta / "Log" / "CrearPedidosClientes.log", kRutina) {}

  void Ejecutar() {
    try {
      Crear();
    } catch (const std::exception& error) {
      log_.AnotarFallo(std::string("Error: ") + error.what());
      throw;
    }
  }

 private:
  void Crear();
  bool Congruentes();
  std::vector<PedidoRecibido> LeerPedidos();
  std::int16_t BuscarAlmacen(const PedidoRecibido& pedido);
  std::int32_t BuscarCliente(const PedidoRecibido& pedido);
  void Guardar(const PedidoRecibido& pedido);

  Connection& conexion_;
  Bitacora log_;
  std::set<std::int32_t> hechos_;  // a row stands once for each warehouse of its GLN
};

bool Creacion::Congruentes() {
  return conexion_
             .Open(
                 "SELECT COUNT(*) AS Existe"
                 " FROM EDI_PedidosClientes cli"
                 " FULL OUTER JOIN  EDI_PedidosClientes_Lineas lin"
                 " ON lin.Doc_Num = cli.Doc_Num"
                 " WHERE cli.Doc_Num IS NULL OR lin.Doc_Num IS NULL")
             ->Get<std::int64_t>("Existe") == 0;
}

/// All of them before the first is made: making one changes the table.
std::vector<PedidoRecibido> Creacion::LeerPedidos() {
  const auto rs = conexion_.Open(
      Sql("SELECT cli.Doc_Num, alm.Codigo AS Cod_Almacen, cli.Fecha_Emision, cli.Fecha_Envio,"
          " cli.Fecha_EnvioFin, GLN_Cliente, cli.ID, cli.Nombre_ClienteEntrega,"
          " cli.Direccion_ClienteEntrega, cli.Localidad_ClienteEntrega, cli.CP_ClienteEntrega "
          " FROM EDI_PedidosClientes cli "
          " LEFT JOIN Almacenes alm ON alm.Cod_Empresa =",
          EmpresaActual().CodigoEmpresa(), " AND EDI_GLN = cli.GLN_ClienteEntrega"));
  std::vector<PedidoRecibido> pedidos;
  for (; !rs->Eof(); rs->MoveNext()) pedidos.push_back(LeerPedido(*rs));
  return pedidos;
}

/// A second look for the warehouse, whose GLN may be stored with dots.
std::int16_t Creacion::BuscarAlmacen(const PedidoRecibido& pedido) {
  const auto rs = conexion_.Open(
      Sql("SELECT GLN_ClienteEntrega FROM EDI_PedidosClientes WHERE ID =", pedido.id));
  const auto gln = rs->Eof() ? std::string() : rs->GetOrEmpty<std::string>(0);
  const auto codigos = CodigosSinPuntos("Almacenes", EmpresaActual().CodigoEmpresa(), gln);
  if (codigos.empty()) Fallar(pedido.numero, "su GLN de entrega no es el de ningún almacén");
  if (codigos.size() > 1) Fallar(pedido.numero, "su GLN de entrega es el de más de un almacén");
  return Estrechar<std::int16_t>(codigos.front());
}

/// The customer of that GLN; otherwise the value is the customer's code.
std::int32_t Creacion::BuscarCliente(const PedidoRecibido& pedido) {
  const std::string& gln = pedido.glnCliente;
  const auto clientes = [this](const std::string& condicion) {
    return conexion_.Open(Sql("SELECT Codigo FROM Clientes WHERE Cod_Empresa =",
                              EmpresaActual().EmpresaClientes(), condicion));
  };
  if (Recortar(gln).empty()) Fallar(pedido.numero, "no tiene GLN de cliente (NADBY, campo 1)");
  const auto porGln = clientes(Sql(" AND EDI_GLN =", SqlTexto{gln}));
  if (!porGln->Eof()) {
    const auto codigo = porGln->Get<std::int32_t>("Codigo");
    porGln->MoveNext();
    if (!porGln->Eof()) Fallar(pedido.numero, "el GLN " + gln + " es el de más de un cliente");
    return codigo;
  }
  const auto sinPuntos = CodigosSinPuntos("Clientes", EmpresaActual().EmpresaClientes(), gln);
  if (sinPuntos.size() > 1) Fallar(pedido.numero, "el GLN " + gln + " es el de más de un cliente");
  if (!sinPuntos.empty()) return sinPuntos.front();
  const auto codigo = Numero(gln);
  if (!codigo || clientes(Sql(" AND Codigo =", *codigo))->Eof()) {
    Fallar(pedido.numero, "el GLN " + gln + " no es el de ningún cliente");
  }
  return *codigo;
}

void Creacion::Guardar(const PedidoRecibido& pedido) {
  const std::int16_t almacen = pedido.almacen ? *pedido.almacen : BuscarAlmacen(pedido);
  if (!hechos_.insert(pedido.id).second) {
    Fallar(pedido.numero, "su GLN de entrega es el de más de un almacén");
  }
  if (!pedido.emision) Fallar(pedido.numero, "no tiene fecha de emisión");
  const auto nuevo =
      SuiteActual().NuevoPedidoCliente(SesionActual().conexion, SesionActual().empresa);
  nuevo->Almacen(almacen);
  nuevo->Codigo(nuevo->NuevoCodigo(pedido.emision->year));
  nuevo->Cliente(BuscarCliente(pedido));
  nuevo->FechaPedido(*pedido.emision);
  nuevo->FechaEntrega(pedido.envio.value_or(FechaHora()));
  nuevo->FechaEntregaFin(pedido.envioFin.value_or(FechaHora()));
  nuevo->Usuario(Entero<std::int16_t>(ParametroTexto("UsuarioActual")));
  nuevo->EntregaNombre(pedido.nombre);
  nuevo->EntregaNombre2(pedido.nombre);
  nuevo->EntregaDireccion(pedido.direccion);
  nuevo->EntregaCodigoPostal(Numero(pedido.cp).value_or(0));
  nuevo->EntregaLocalidad(pedido.localidad);
  nuevo->Guardar();
}

void Creacion::Crear() {
  log_.Anotar("Inicio Creación de Pedidos Clientes.");
  Transaccion transaccion(conexion_);
  if (!Congruentes()) {
    log_.Anotar("Las Tablas de EDI_PedidosClientes no están congruentes.");
    return;
  }
  for (const PedidoRecibido& pedido : LeerPedidos()) {
    log_.Anotar("Se inserta la entrada en el sistema.");
    Guardar(pedido);
    conexion_.Execute(Sql("UPDATE EDI_PedidosClientes SET OK = 1 WHERE ID =", pedido.id));
  }
  conexion_.Execute("DELETE FROM EDI_PedidosClientes WHERE OK = 1");
  conexion_.Execute("DELETE FROM EDI_PedidosClientes_Lineas WHERE OK = 1");
  transaccion.Confirmar();
  log_.Anotar("Fin Creación de Pedidos Clientes.");
  log_.DescartarAntiguas();
}

}  // namespace

void CrearPedidosClientes(const std::filesystem::path& carpeta) { Creacion(carpeta).Ejecutar(); }

}  // namespace kvraedi
