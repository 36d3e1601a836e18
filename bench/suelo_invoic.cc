#include "bench/suelo_invoic.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "bench/datos.h"

namespace kvraedi::bench {
namespace {

constexpr std::string_view kFactura =
    "SELECT f.*, c.EDI_GLN, c.IntraCom, c.Nombre, c.Direccion, c.CP, c.Localidad, c.Provincia,"
    " ifnull(p.ISOCodigo, ''), c.Telefono, c.Fax, c.Nif,"
    " (SELECT ifnull(SUM(ROUND(ROUND(l.Precio*l.Unidades-(l.Precio*l.Unidades*l.PDescuento)/100.0,"
    " 4), 3)), 0) FROM Facturas_Lineas l WHERE l.Cod_Empresa = f.Cod_Empresa"
    " AND l.Cod_Ejercicio = f.Cod_Ejercicio AND l.Serie = f.Serie AND l.Codigo = f.Codigo"
    " AND l.TipoDoc = f.TipoDoc AND l.Cod_Articulo <> -1),"
    " (SELECT ifnull(SUM(ROUND(l.PrecioG*l.Unidades, 4)), 0) FROM Facturas_Lineas l"
    " WHERE l.Cod_Empresa = f.Cod_Empresa AND l.Cod_Ejercicio = f.Cod_Ejercicio"
    " AND l.Serie = f.Serie AND l.Codigo = f.Codigo AND l.TipoDoc = f.TipoDoc"
    " AND l.Cod_Articulo <> -1),"
    " (SELECT COUNT(*) FROM Facturas_PrevCobros v WHERE v.Cod_Empresa = f.Cod_Empresa"
    " AND v.Cod_Ejercicio = f.Cod_Ejercicio AND v.Serie = f.Serie AND v.Codigo = f.Codigo"
    " AND v.TipoDoc = f.TipoDoc),"
    " e.Nombre_1, e.Nombre_2, e.Direccion, e.CP, e.Localidad, e.Provincia, e.Pais, e.Telefono,"
    " e.Fax, e.Nif, ifnull(ef.Cod_EDIPlat, 0), ifnull(ef.EDIFichero, '')"
    " FROM Clientes c INNER JOIN Facturas f ON c.Cod_Empresa = ?1 AND f.Cliente = c.Codigo"
    " INNER JOIN Empresas e ON e.Codigo = f.Cod_Empresa LEFT JOIN Paises p"
    " ON c.Cod_Pais = p.Cod_Pais LEFT JOIN EDI_Envio_Facturas ef ON f.Cod_Empresa = ef.Cod_Empresa"
    " AND f.Cod_Ejercicio = ef.Cod_Ejercicio AND f.Serie = ef.Serie AND f.Codigo = ef.Codigo"
    " AND f.TipoDoc = ef.TipoDoc WHERE f.Cod_Empresa = ?1 AND c.Codigo = ?2"
    " AND f.Cod_Ejercicio = ?3 AND f.Serie = ?4 AND f.Codigo = ?5 AND f.TipoDoc = ?6"
    " ORDER BY f.Fecha, f.Serie, f.Codigo, f.TipoDoc, f.Hora";

constexpr std::string_view kLineas =
    "SELECT fl.Num_Linea, fl.Cod_Articulo, fl.Descripcion, fl.Peso, fl.PrecioG, fl.Precio,"
    " fl.Unidades, c.IntraCom, fl.Bultos, fl.Descripcion, fl.PDescuento, fl.Descuento, fl.Impuesto"
    " FROM Facturas f INNER JOIN Facturas_Lineas fl ON f.Cod_Empresa = fl.Cod_Empresa"
    " AND f.Cod_Ejercicio = fl.Cod_Ejercicio AND f.Serie = fl.Serie AND f.Codigo = fl.Codigo"
    " AND f.TipoDoc = fl.TipoDoc INNER JOIN Clientes c ON c.Cod_Empresa = ?1"
    " AND f.Cliente = c.Codigo WHERE f.Cod_Empresa = ?1 AND f.Cod_Ejercicio = ?2 AND f.Serie = ?3"
    " AND f.Codigo = ?4 AND f.TipoDoc = ?5 ORDER BY fl.Num_Linea";

constexpr std::string_view kImpuestos =
    "SELECT Base, Tipo, Importe FROM Facturas_Impuestos WHERE Cod_Empresa = ?1"
    " AND Cod_Ejercicio = ?2 AND Serie = ?3 AND Codigo = ?4 AND TipoDoc = ?5 AND Tipo > 0"
    " ORDER BY Tipo";

constexpr std::string_view kVencimientos =
    "SELECT Fecha_Vto, Importe FROM Facturas_PrevCobros WHERE Cod_Empresa = ?1"
    " AND Cod_Ejercicio = ?2 AND Serie = ?3 AND Codigo = ?4 AND TipoDoc = ?5 ORDER BY Apunte";

constexpr std::string_view kInsertar =
    "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, "
    "Serie,"
    " Codigo, TipoDoc, IdentificadorMsg, EDIFichero) VALUES (2, 1, ?1, ?2, ?3, ?4, ?5, ?6, ?7)";

// Header records with their line ends, the tax record and the due date.
constexpr std::size_t kBytesFijos = 136 + 372 + 7 * 775 + 84 + 40 + 58;
constexpr std::size_t kBytesPorLinea = 525;
constexpr std::size_t kBytesPorDescuento = 151;

void Comprobar(bool bien) {
  if (!bien) throw std::runtime_error("file operation of the floor failed");
}

void Copiar(const std::string& de, const std::string& a) {
  const int origen = ::open(de.c_str(), O_RDONLY | O_CLOEXEC);
  const int destino = ::open(a.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  Comprobar(origen >= 0 && destino >= 0);
  static std::array<char, 65536> bloque;
  for (ssize_t leidos = 0; (leidos = ::read(origen, bloque.data(), bloque.size())) > 0;) {
    Comprobar(::write(destino, bloque.data(), static_cast<std::size_t>(leidos)) == leidos);
  }
  Comprobar(::fsync(destino) == 0 && ::close(destino) == 0 && ::close(origen) == 0);
}

}  // namespace

std::string FicheroSuelo::Anual() const {
  return envios_.string() + "/" + std::to_string(kEjercicio);
}

void FicheroSuelo::Preparar() {
  struct stat estado {};
  Comprobar(::stat(envios_.c_str(), &estado) == 0);
  ::mkdir(Anual().c_str(), 0755);
  ::mkdir((envios_ / "Temp").c_str(), 0755);
}

void FicheroSuelo::Escribir(std::size_t bytes) {
  struct stat estado {};
  nombre_ = "INVOIC" + std::to_string(20260515000000 + numero_++) + ".txt";
  const std::string provisional = envios_ / "Temp" / nombre_;
  ::stat(Definitivo().c_str(), &estado);
  const int fichero = ::open(provisional.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  bytes_.resize(bytes, ' ');
  Comprobar(fichero >= 0 && ::write(fichero, bytes_.data(), bytes) == static_cast<ssize_t>(bytes));
  Comprobar(::close(fichero) == 0);
  Copiar(provisional, Definitivo() + ".parcial");
  Comprobar(::unlink(provisional.c_str()) == 0);
}

void FicheroSuelo::Terminar() {
  Comprobar(::rename((Definitivo() + ".parcial").c_str(), Definitivo().c_str()) == 0);
  const int carpeta = ::open(Anual().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  Comprobar(carpeta >= 0 && ::fsync(carpeta) == 0 && ::close(carpeta) == 0);
}

std::size_t BytesDeFactura(int lineas) {
  const auto cuantas = static_cast<std::size_t>(lineas);
  return kBytesFijos + cuantas * kBytesPorLinea + (cuantas + 1) / 2 * kBytesPorDescuento;
}

SueloInvoic::SueloInvoic(const BaseSuelo& base, std::filesystem::path envios)
    : fichero_(std::move(envios)),
      factura_(base, kFactura),
      lineas_(base, kLineas),
      impuestos_(base, kImpuestos),
      vencimientos_(base, kVencimientos),
      insertar_(base, kInsertar) {}

void SueloInvoic::Enviar(int codigo) {
  fichero_.Preparar();
  std::string fila;
  factura_.Poner({1, kCliente, kEjercicio, 1, codigo, 0});
  Comprobar(factura_.Paso());
  factura_.CopiarFila(fila);
  factura_.Reiniciar();
  vencimientos_.Poner({1, kEjercicio, 1, codigo, 0});
  while (vencimientos_.Paso()) vencimientos_.CopiarFila(fila);
  lineas_.Poner({1, kEjercicio, 1, codigo, 0});
  int lineas = 0;
  for (; lineas_.Paso(); ++lineas) {
    fila.clear();
    lineas_.CopiarFila(fila);
  }
  impuestos_.Poner({1, kEjercicio, 1, codigo, 0});
  while (impuestos_.Paso()) impuestos_.CopiarFila(fila);

  fichero_.Escribir(BytesDeFactura(lineas));
  insertar_.Poner({1, kEjercicio, 1, codigo, 0});
  insertar_.PonerTexto(6, "00000000-0000-4000-8000-000000000000");
  insertar_.PonerTexto(7, fichero_.Nombre());
  insertar_.Paso();
  fichero_.Terminar();
}

}  // namespace kvraedi::bench
