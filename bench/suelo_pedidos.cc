#include "bench/suelo_pedidos.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <stdexcept>

#include "bench/datos.h"

namespace kvraedi::bench {
namespace {

constexpr std::string_view kPedido =
    "SELECT pp.Codigo, pp.Cod_Proveedor, pp.Fecha, pp.Fecha_Esperada, pp.Fecha_EsperadaFin,"
    " emp.Nombre_1, emp.Direccion, emp.Localidad, emp.cp, emp.Nif, p.Nombre, p.Direccion, p.CP,"
    " p.Localidad, p.Nif, ifnull(pgln.GLN, ''), alm.EDI_GLN, alm.Nombre, alm.Direccion,"
    " alm.Localidad, alm.cp, pp.Importe, SUM(ppl.Bultos), SUM(ppl.Unidades), SUM(ppl.Palets)"
    " FROM Pedidos_Proveedores pp INNER JOIN Pedidos_Proveedores_Lineas ppl"
    " ON ppl.Cod_Empresa = pp.Cod_Empresa AND ppl.Codigo = pp.Codigo"
    " LEFT JOIN Proveedores_GLN pgln ON pgln.Cod_Empresa = ?1"
    " AND pgln.Cod_Prov = pp.Cod_Proveedor AND Principal = 1"
    " INNER JOIN Proveedores p ON p.Cod_Empresa = ?1 AND p.Codigo = pp.Cod_Proveedor"
    " INNER JOIN Almacenes alm ON alm.Cod_Empresa = ?1 AND alm.Codigo = pp.Cod_Almacen"
    " INNER JOIN Empresas emp ON emp.Codigo = ?1 WHERE pp.Cod_Empresa = ?1 AND pp.Codigo = ?2"
    " GROUP BY pp.Codigo, pp.Cod_Proveedor, pp.Cod_Almacen, pp.Fecha, pp.Fecha_Esperada,"
    " pp.Fecha_EsperadaFin, pp.Num_Lineas, emp.Nombre_1, emp.Direccion, emp.Localidad, emp.cp,"
    " emp.Nif, p.Nombre, p.Direccion, p.CP, p.Localidad, p.Nif, pgln.GLN, alm.EDI_GLN, pp.Importe,"
    " alm.Nombre, alm.Direccion, alm.Localidad, alm.cp";

constexpr std::string_view kLineas =
    "SELECT ppl.Cod_Articulo, ppl.Descripcion, ppl.Unidades, ppl.CFraCImp,"
    " ifnull(b.Cod_Barras, ''), ifnull(ref.Ref, ''), pp.Cod_Proveedor, ppl.Num_Linea"
    " FROM Pedidos_Proveedores pp INNER JOIN Pedidos_Proveedores_Lineas ppl"
    " ON ppl.Cod_Empresa = pp.Cod_Empresa AND ppl.Codigo = pp.Codigo"
    " INNER JOIN Articulos art ON art.Cod_Empresa = ?1 AND art.Codigo = ppl.Cod_Articulo"
    " LEFT JOIN Articulos_CBarras b ON b.Cod_Empresa = art.Cod_Empresa"
    " AND b.Cod_Articulo = ppl.Cod_Articulo AND b.Principal = 1"
    " LEFT JOIN Articulos_Ref ref ON ref.Cod_Empresa = art.Cod_Empresa"
    " AND ref.Cod_Articulo = art.Codigo AND ref.Cod_Prov = pp.Cod_Proveedor AND ref.Principal = 1"
    " WHERE pp.Cod_Empresa = ?1 AND pp.Codigo = ?2";

constexpr std::string_view kEntrada =
    "SELECT e.Codigo, e.Fecha, e.Cod_Pedido, e.Documento, e.ImporteFra, e.ImporteTotal,"
    " ifnull(pgln.GLN, ''), alm.EDI_GLN FROM Entradas e LEFT JOIN Proveedores_GLN pgln"
    " ON pgln.Cod_Empresa = ?1 AND pgln.Cod_Prov = e.Proveedor AND Principal = 1"
    " INNER JOIN Almacenes alm ON alm.Cod_Empresa = ?1 AND alm.Codigo = e.Cod_Almacen"
    " WHERE e.Cod_Empresa = ?1 AND e.Cod_Ejercicio = ?2 AND e.Cod_Almacen = 3 AND e.Codigo = ?3";

constexpr std::string_view kImpuestos =
    "SELECT e.Codigo, e.ImporteFra, e.ImporteTotal, ifnull(ei.Base, 0), ifnull(ei.Importe, 0),"
    " ifnull(ei.Tipo, 0), ifnull(ei.Valor_Tipo, 0), ifnull(ref.Cod_Barras, '') FROM Entradas e"
    " LEFT JOIN Entradas_Impuestos ei ON ei.Cod_Empresa = e.Cod_Empresa"
    " AND ei.Cod_Ejercicio = e.Cod_Ejercicio AND ei.Cod_Almacen = e.Cod_Almacen"
    " AND ei.Codigo = e.Codigo LEFT JOIN Articulos_CBarras ref ON ref.Cod_Empresa = ?1"
    " AND ref.Cod_Articulo = (80000 + ei.Tipo) AND ref.Principal = 1 WHERE e.Cod_Empresa = ?1"
    " AND e.Cod_Ejercicio = ?2 AND e.Cod_Almacen = 3 AND e.Codigo = ?3";

constexpr std::string_view kGlnEmpresa = "8400000000017";

void Anadir(std::string& destino, std::initializer_list<std::string_view> textos) {
  for (const auto texto : textos) destino += texto;
}

std::string Numero(double valor) {
  std::array<char, 32> texto{};
  std::snprintf(texto.data(), texto.size(), "%.15g", valor);
  return texto.data();
}

/// "2026-05-15" as it is stored, without its marks.
std::string Fecha(std::string_view texto) {
  std::string fecha(texto.substr(0, 4));
  return fecha.append(texto.substr(5, 2)).append(texto.substr(8, 2));
}

void Escribir(const std::string& bytes, const std::filesystem::path& ruta) {
  const int fichero = ::open(ruta.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  const auto largo = static_cast<ssize_t>(bytes.size());
  if (fichero < 0 || ::write(fichero, bytes.data(), bytes.size()) != largo ||
      ::close(fichero) != 0) {
    throw std::runtime_error("file operation of the floor failed");
  }
}

}  // namespace

SueloOrders::SueloOrders(const BaseSuelo& base) : pedido_(base, kPedido), lineas_(base, kLineas) {}

void SueloOrders::Generar(int pedido, const std::filesystem::path& fichero) {
  ::mkdir(fichero.parent_path().c_str(), 0755);
  bytes_.clear();
  pedido_.Poner({1, pedido});
  if (!pedido_.Paso()) throw std::runtime_error("no order");
  const auto t = [&](int columna) { return pedido_.Texto(columna); };
  Anadir(bytes_, {"ORDERS_D_96A_UN_EAN008\r\nORD|", t(0), "|220|9\r\nDTM|", Fecha(t(2)), "|"});
  Anadir(bytes_, {Fecha(t(3)), "|", Fecha(t(4)), "\r\nNADSU|", t(15), "|", t(1), "\r\nNADBY|"});
  Anadir(bytes_, {kGlnEmpresa, "||||", t(5), "|", t(6), "|", t(7), "|", t(8), "|", t(9)});
  Anadir(bytes_, {"\r\nNADDP|", t(16), "||", t(17), "|", t(18), "|", t(19), "|", t(20), "\r\n"});
  int escritas = 0;
  lineas_.Poner({1, pedido});
  for (; lineas_.Paso(); ++escritas) {
    const double unidades = lineas_.Real(2);
    Anadir(bytes_,
           {"LIN|", lineas_.Texto(0), "|EN\r\nIMDLIN|F|M||", lineas_.Texto(1), "\r\nQTYLIN|21|",
            Numero(unidades), "\r\nMOALIN|", Numero(unidades * lineas_.Real(3)), "\r\n"});
  }
  const std::string importe = Numero(pedido_.Real(21));
  Anadir(bytes_, {"MOARES|", importe, "|", importe, "||", importe, "\r\nCNTRES|",
                  Numero(pedido_.Real(22)), "|", Numero(pedido_.Real(24)), "|",
                  Numero(pedido_.Real(23)), "|", std::to_string(escritas), "\r\n"});
  pedido_.Reiniciar();
  Escribir(bytes_, fichero);
}

SueloRecadv::SueloRecadv(const BaseSuelo& base)
    : entrada_(base, kEntrada), impuestos_(base, kImpuestos) {}

void SueloRecadv::Generar(int entrada, const std::filesystem::path& carpeta) {
  ::mkdir(carpeta.parent_path().parent_path().c_str(), 0755);
  ::mkdir(carpeta.parent_path().c_str(), 0755);
  ::mkdir(carpeta.c_str(), 0755);
  bytes_.clear();
  entrada_.Poner({1, kEjercicio, entrada});
  if (!entrada_.Paso()) throw std::runtime_error("no receipt");
  Anadir(bytes_,
         {"RECADV_D_96A_UN_EAN003\r\nBGM|", entrada_.Texto(3), "\r\nDTM|", Fecha(entrada_.Texto(1)),
          "\r\nRFF|ON|", entrada_.Texto(2), "\r\nNADBY|", kGlnEmpresa, "\r\nNADSU|",
          entrada_.Texto(6), "\r\nNADDP|", entrada_.Texto(7), "\r\nCPS|1\r\n"});
  entrada_.Reiniciar();
  int escritos = 0;
  impuestos_.Poner({1, kEjercicio, entrada});
  for (; impuestos_.Paso(); ++escritos) {
    Anadir(bytes_, {"LIN|", impuestos_.Texto(7), "|EN\r\nQTYLIN|1\r\nPRILIN|AAA|",
                    Numero(impuestos_.Real(3)), "\r\nTAXLIN|IGIC|", Numero(impuestos_.Real(6)), "|",
                    Numero(impuestos_.Real(4)), "\r\n"});
  }
  Anadir(bytes_, {"CNTRES|", std::to_string(escritos), "\r\n"});
  std::array<char, 64> nombre{};
  std::snprintf(nombre.data(), nombre.size(), "RECADV_003_%04d_%08d.dat", kEjercicio, entrada);
  Escribir(bytes_, carpeta / nombre.data());
}

}  // namespace kvraedi::bench
