#include "kvraedi/clsRecadv.h"

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

constexpr std::size_t kAnchoDocumento = 17;

struct ClaveEntrada {
  std::int16_t ejercicio;
  std::int16_t almacen;
  std::int32_t codigo;
};

std::filesystem::path CrearCarpeta(const ClaveEntrada& entrada) {
  std::filesystem::path carpeta = RaizEnvios();
  for (const std::string& nivel : {std::string("TempRECADV"), std::to_string(entrada.ejercicio),
                                   std::to_string(entrada.almacen)}) {
    carpeta /= nivel;
    EntornoActual().MakeFolder(carpeta);
  }
  return carpeta;
}

std::string NombreFichero(const ClaveEntrada& entrada) {
  return "RECADV_" + CodigoConCeros(entrada.almacen, 3) + "_" +
         CodigoConCeros(entrada.ejercicio, 4) + "_" + CodigoConCeros(entrada.codigo, 8) + ".dat";
}

/// The articles that stand for the tax types of a warehouse are numbered from here.
std::int32_t PrimerArticuloDeImpuesto(std::int16_t almacen) {
  switch (almacen) {
    case 3:
      return 80000;
    case 4:
      return 81000;
    case 5:
      return 82000;
    default:
      return 0;
  }
}

std::unique_ptr<Recordset> AbrirEntrada(const ClaveEntrada& entrada) {
  const Empresa& empresa = EmpresaActual();
  const std::int16_t propia = empresa.CodigoEmpresa();
  return ConexionActual().Open(Sql(
      "SELECT e.Codigo, e.Fecha, e.Cod_Pedido, e.Documento, e.ImporteFra,"
      " e.ImporteTotal,ISNULL(pgln.GLN,'') AS GLN, alm.EDI_GLN ",
      " FROM Entradas e", "  LEFT JOIN Proveedores_GLN pgln ON pgln.Cod_Empresa = ",
      empresa.EmpresaProveedores(), " AND pgln.Cod_Prov = e.Proveedor AND Principal = 1 ",
      " INNER JOIN Almacenes alm ON alm.Cod_Empresa =", propia, " AND alm.Codigo = e.Cod_Almacen",
      " WHERE e.Cod_Empresa =", propia, " AND e.Cod_Ejercicio =", entrada.ejercicio,
      " AND e.Cod_Almacen =", entrada.almacen, " AND e.Codigo =", entrada.codigo));
}

std::unique_ptr<Recordset> AbrirImpuestos(const ClaveEntrada& entrada) {
  const Empresa& empresa = EmpresaActual();
  return ConexionActual().Open(
      Sql("SELECT e.Codigo, e.ImporteFra, e.ImporteTotal, ",
          " ISNULL(ei.Base,0) AS Base,  ISNULL(ei.Importe,0) AS Importe,",
          " ISNULL(ei.Tipo,0) AS Tipo, ISNULL(ei.Valor_Tipo,0) AS Valor_Tipo,",
          " ISNULL(ref.Cod_Barras,'') AS Ref", " FROM Entradas e",
          " LEFT JOIN Entradas_Impuestos ei ON ei.Cod_Empresa = e.Cod_Empresa"
          " AND ei.Cod_Ejercicio = e.Cod_Ejercicio AND ei.Cod_Almacen = e.Cod_Almacen"
          " AND ei.Codigo = e.Codigo",
          " LEFT JOIN Articulos_CBarras ref ON ref.Cod_Empresa =", empresa.EmpresaArticulos(),
          " AND ref.Cod_Articulo = (", PrimerArticuloDeImpuesto(entrada.almacen),
          " + ei.Tipo) AND ref.Principal = 1", " WHERE e.Cod_Empresa =", empresa.CodigoEmpresa(),
          " AND e.Cod_Ejercicio =", entrada.ejercicio, " AND e.Cod_Almacen =", entrada.almacen,
          " AND e.Codigo =", entrada.codigo));
}

void EscribirCabecera(const Recordset& entrada, EscritorCampos& fichero) {
  fichero.Registro({"RECADV_D_96A_UN_EAN003"});
  fichero.Registro({"BGM", TextoCortado(entrada, "Documento", kAnchoDocumento)});
  fichero.Registro({"DTM", FechaMensaje(entrada, "Fecha")});
  const auto pedido = entrada.GetOrEmpty<std::int32_t>("Cod_Pedido");
  if (pedido > 0) fichero.Registro({"RFF", "ON", std::to_string(pedido)});
  fichero.Registro({"NADBY", GlnMensaje(ParametroTexto("EDI_GLNEmpresa"))});
  fichero.Registro({"NADSU", GlnMensaje(entrada.GetOrEmpty<std::string_view>("GLN"))});
  fichero.Registro({"NADDP", GlnMensaje(entrada.GetOrEmpty<std::string_view>("EDI_GLN"))});
  fichero.Registro({"CPS", "1"});
}

/// Gives back how many tax rows were written.
std::int16_t EscribirImpuestos(const ClaveEntrada& entrada, EscritorCampos& fichero) {
  const bool igic = EmpresaActual().AplicaIGIC();
  const auto impuestos = AbrirImpuestos(entrada);
  std::int16_t escritos = 0;
  for (; !impuestos->Eof(); impuestos->MoveNext()) {
    const auto numero = [&](std::string_view campo) {
      return TextoDe(impuestos->Get<double>(campo));
    };
    fichero.Registro({"LIN", impuestos->Get<std::string_view>("Ref"), "EN"});
    fichero.Registro({"QTYLIN", "1"});
    fichero.Registro({"PRILIN", "AAA", numero("Base")});
    if (igic) fichero.Registro({"TAXLIN", "IGIC", numero("Valor_Tipo"), numero("Importe")});
    escritos = Estrechar<std::int16_t>(escritos + 1);
  }
  return escritos;
}

}  // namespace

bool clsRecadv::Generar(std::int16_t intEjercicio, std::int16_t intAlmacen,
                        std::int32_t lngEntrada) {
  return Accion("clsRecadv:Generar", [&] {
    const ClaveEntrada clave{intEjercicio, intAlmacen, lngEntrada};
    const auto carpeta = CrearCarpeta(clave);
    const auto entrada = AbrirEntrada(clave);
    if (entrada->Eof()) return;
    const auto ruta = carpeta / NombreFichero(clave);
    pathFicheroGenerado_ = TextoRuta(ruta);
    EscritorCampos fichero(ruta, kBarra);
    EscribirCabecera(*entrada, fichero);
    const std::int16_t impuestos = EscribirImpuestos(clave, fichero);
    fichero.Registro({"CNTRES", NumeroPositivo(impuestos)});
    fichero.Cerrar();
  });
}

}  // namespace kvraedi
