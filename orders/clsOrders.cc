#include "kvraedi/clsOrders.h"

#include <filesystem>
#include <memory>

#include "frame/accion.h"
#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "orders/escritor_campos.h"
#include "orders/valores_mensaje.h"

namespace kvraedi {
namespace {

constexpr std::size_t kAnchoTexto = 70;
constexpr std::size_t kAnchoCorto = 10;  // postal codes and tax numbers

std::filesystem::path CrearCarpeta() {
  auto carpeta = RaizEnvios() / "TempOrders";
  EntornoActual().MakeFolder(carpeta);
  return carpeta;
}

std::unique_ptr<Recordset> AbrirPedido(std::int32_t pedido) {
  const Empresa& empresa = EmpresaActual();
  const std::int16_t propia = empresa.CodigoEmpresa();
  const std::int16_t proveedores = empresa.EmpresaProveedores();
  return ConexionActual().Open(
      Sql("SELECT pp.Codigo, pp.Cod_Proveedor, pp.Cod_Almacen, pp.Fecha, pp.Fecha_Esperada,"
          " pp.Fecha_EsperadaFin, ",
          " emp.Nombre_1, emp.Direccion AS DirEmp, emp.Localidad AS LocEmp, emp.cp AS CPEmp,"
          " emp.Nif AS NifEmp, ",
          " p.Nombre, p.Direccion, p.CP, p.Localidad, p.Nif, ISNULL(pgln.GLN,'') AS GLN,"
          " alm.EDI_GLN, ",
          " alm.Nombre AS Nombre_Almacen, alm.Direccion AS DirAlm, alm.Localidad AS LocAlm,"
          " alm.cp AS CPAlm, ",
          " pp.Importe, SUM(ppl.Bultos) AS NumBultos, SUM(ppl.Unidades) AS NumUnidades,"
          " SUM(ppl.Palets) AS NumPalets ",
          "  FROM Pedidos_Proveedores pp ", " INNER JOIN Pedidos_Proveedores_Lineas ppl ",
          "         ON ppl.Cod_Empresa = pp.Cod_Empresa AND ppl.Codigo = pp.Codigo ",
          "  LEFT JOIN Proveedores_GLN pgln ", "         ON pgln.Cod_Empresa = ", proveedores,
          " AND pgln.Cod_Prov = pp.Cod_Proveedor AND Principal = 1 ", " INNER JOIN Proveedores p ",
          "         ON p.Cod_Empresa =", proveedores, " AND p.Codigo = pp.Cod_Proveedor ",
          " INNER JOIN Almacenes alm ", "         ON alm.Cod_Empresa =", propia,
          " AND alm.Codigo = pp.Cod_Almacen", " INNER JOIN Empresas emp ON emp.Codigo =", propia,
          " WHERE pp.Cod_Empresa =", propia, "   AND pp.Codigo =", pedido,
          " GROUP BY pp.Codigo, pp.Cod_Proveedor, pp.Cod_Almacen, pp.Fecha, pp.Fecha_Esperada,"
          " pp.Fecha_EsperadaFin, pp.Num_Lineas, ",
          " emp.Nombre_1, emp.Direccion, emp.Localidad, emp.cp, emp.Nif, ",
          " p.Nombre, p.Direccion, p.CP, p.Localidad, p.Nif, pgln.GLN, alm.EDI_GLN, pp.Importe,"
          " alm.Nombre, alm.Direccion, alm.Localidad, alm.cp"));
}

std::unique_ptr<Recordset> AbrirLineas(std::int32_t pedido) {
  const Empresa& empresa = EmpresaActual();
  return ConexionActual().Open(Sql(
      "SELECT pp.Codigo, pp.Cod_Proveedor, ppl.Num_Linea, ppl.Cod_Articulo, ppl.Descripcion,"
      " ppl.Unidades, ",
      " ISNULL(artBarras.Cod_Barras,'') AS Cod_Barras, ppl.CFraCImp, ISNULL(ref.Ref,'') AS Ref",
      "  FROM Pedidos_Proveedores pp ", " INNER JOIN Pedidos_Proveedores_Lineas ppl ",
      "         ON ppl.Cod_Empresa = pp.Cod_Empresa AND ppl.Codigo = pp.Codigo ",
      " INNER JOIN Articulos art ", "         ON art.Cod_Empresa = ", empresa.EmpresaArticulos(),
      " AND art.Codigo = ppl.Cod_Articulo ", " LEFT JOIN Articulos_CBarras artBarras ",
      "         ON artBarras.Cod_Empresa = art.Cod_Empresa ",
      "   AND artBarras.Cod_Articulo = ppl.Cod_Articulo", "   AND artBarras.Principal = 1",
      " LEFT JOIN Articulos_Ref ref ON ref.Cod_Empresa = art.Cod_Empresa",
      " AND ref.Cod_Articulo = art.Codigo AND ref.Cod_Prov = pp.Cod_Proveedor",
      " AND ref.Principal = 1", " WHERE pp.Cod_Empresa =", empresa.CodigoEmpresa(),
      "  AND pp.Codigo =", pedido));
}

std::string NombreFichero(const Recordset& pedido) {
  return "Order_" + CodigoConCeros(pedido.Get<std::int16_t>("Cod_Almacen"), 2) + "_" +
         CodigoConCeros(pedido.Get<std::int32_t>("Codigo"), 10) + ".dat";
}

void EscribirCabecera(const Recordset& p, EscritorCampos& fichero) {
  const auto texto = [&](std::string_view campo, std::size_t ancho) {
    return TextoCortado(p, campo, ancho);
  };
  fichero.Registro({"ORDERS_D_96A_UN_EAN008"});
  fichero.Registro({"ORD", std::to_string(p.Get<std::int32_t>("Codigo")), "220", "9"});
  fichero.Registro({"DTM", FechaMensaje(p, "Fecha"), FechaMensaje(p, "Fecha_Esperada"),
                    FechaMensaje(p, "Fecha_EsperadaFin")});
  fichero.Registro({"NADSU", GlnMensaje(p.GetOrEmpty<std::string_view>("GLN")),
                    std::to_string(p.Get<std::int32_t>("Cod_Proveedor"))});
  fichero.Registro({"NADBY", GlnMensaje(ParametroTexto("EDI_GLNEmpresa")), "", "", "",
                    texto("Nombre_1", kAnchoTexto), texto("DirEmp", kAnchoTexto),
                    texto("LocEmp", kAnchoTexto), texto("CPEmp", kAnchoCorto),
                    texto("NifEmp", kAnchoCorto)});
  fichero.Registro({"NADDP", GlnMensaje(p.GetOrEmpty<std::string_view>("EDI_GLN")), "",
                    texto("Nombre_Almacen", kAnchoTexto), texto("DirAlm", kAnchoTexto),
                    texto("LocAlm", kAnchoTexto), texto("CPAlm", kAnchoCorto)});
}

/// Gives back how many lines were written.
std::int16_t EscribirLineas(std::int32_t pedido, EscritorCampos& fichero) {
  const auto lineas = AbrirLineas(pedido);
  const int articulo = lineas->Field("Cod_Articulo");
  const int descripcion = lineas->Field("Descripcion");
  const int unidades = lineas->Field("Unidades");
  const int coste = lineas->Field("CFraCImp");
  std::int16_t escritas = 0;
  for (; !lineas->Eof(); lineas->MoveNext()) {
    const double cantidad = lineas->Get<double>(unidades);
    const double importe = cantidad * lineas->Get<double>(coste);
    fichero.Registro({"LIN", std::to_string(lineas->Get<std::int32_t>(articulo)), "EN"});
    fichero.Registro(
        {"IMDLIN", "F", "M", "",
         PrimerosCaracteres(lineas->GetOrEmpty<std::string_view>(descripcion), kAnchoTexto)});
    fichero.Registro({"QTYLIN", "21", TextoDe(cantidad)});
    fichero.Registro({"MOALIN", TextoDe(importe)});
    escritas = Estrechar<std::int16_t>(escritas + 1);
  }
  return escritas;
}

void EscribirTotales(const Recordset& p, std::int16_t lineas, EscritorCampos& fichero) {
  const std::string importe = TextoDe(p.Get<double>("Importe"));
  fichero.Registro({"MOARES", importe, importe, "", importe});
  fichero.Registro({"CNTRES", NumeroPositivo(p.GetOrEmpty<double>("NumBultos")),
                    NumeroPositivo(p.GetOrEmpty<double>("NumPalets")),
                    NumeroPositivo(p.GetOrEmpty<double>("NumUnidades")), NumeroPositivo(lineas)});
}

}  // namespace

bool clsOrders::Generar(std::int32_t lngPedido) {
  return Accion("clsOrders:Generar", [&] {
    const auto carpeta = CrearCarpeta();
    const auto pedido = AbrirPedido(lngPedido);
    if (pedido->Eof()) return;
    const auto ruta = carpeta / NombreFichero(*pedido);
    pathFicheroGenerado_ = TextoRuta(ruta);
    EscritorCampos fichero(ruta, kBarra);
    EscribirCabecera(*pedido, fichero);
    const std::int16_t lineas = EscribirLineas(lngPedido, fichero);
    EscribirTotales(*pedido, lineas, fichero);
    fichero.Cerrar();
  });
}

}  // namespace kvraedi
