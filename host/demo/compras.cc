#include "host/demo/compras.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "host/demo/azar.h"
#include "host/demo/datos.h"
#include "host/demo/documentos_compra.h"
#include "host/demo/maestros.h"
#include "host/demo/tabla.h"

namespace kvraedi::demo {
namespace {

constexpr std::int16_t kFicheroProveedores = 1;  // both companies use it
constexpr std::int16_t kFicheroArticulos = 1;
constexpr std::int16_t kOtroFichero = 2;  // no company uses it
constexpr std::int64_t kPrimerCodigoDeBarras = 600000000;

enum class TipoGln { kSin, kPrincipal, kConPuntos, kNoPrincipal };

struct ProveedorDemo {
  std::int32_t codigo;
  std::string_view nombre;
  std::string_view nif;
  std::int16_t plataforma = kSinCanal;
  std::int16_t mensaje = kSinCanal;
  TipoGln gln = TipoGln::kPrincipal;
};

constexpr auto kProveedores = std::to_array<ProveedorDemo>({
    {1, "Conservas Atlántico S.A.", "A36000001", 4, 1},
    {2, "Lácteos de la Montaña S.L.", "B39000002", 4, 2},
    {3, "Bebidas y Refrescos Ñam S.A.", "A28000003", 5, 1},
    {4, "Harinas del Norte S.L.", "B48000004", 4, 3, TipoGln::kConPuntos},
    {5, "Perfumería Selecta S.A.", "A08000005", 9, 1},
    {6, "Hortalizas Güímar S.L.", "B38000006", 0, 0, TipoGln::kSin},
    {7, "Pescados Mar Azul S.L.", "B35000007", kSinCanal, kSinCanal, TipoGln::kSin},
    {8, "Aceites Jiménez e Hijos S.A.", "A14000008", 4, 1, TipoGln::kConPuntos},
    {9, "Bodegas O'Shanahan \"El Lagar\" S.L.", "B38000009", 5, 2, TipoGln::kNoPrincipal},
    {10, "Cafés Tostados del Sur S.A.", "A41000010", 4, 2, TipoGln::kSin},
    {11, "Papelería Central; Suministros S.L.", "B50000011", 4, 0},
    {12, "Electrodomésticos Müller España S.A.", "A08000012", kSinCanal, kSinCanal,
     TipoGln::kConPuntos},
});

// "8412345678901" as people write it on paper: "841.2345.678901".
std::string ConPuntos(std::string gln) { return gln.insert(7, 1, '.').insert(3, 1, '.'); }

std::optional<std::int16_t> Canal(std::int16_t codigo) {
  return codigo == kSinCanal ? std::nullopt : std::optional(codigo);
}

void CrearProveedores(Connection& conexion, Azar& azar) {
  Tabla proveedores(conexion, "Proveedores",
                    "Cod_Empresa, Codigo, Nombre, Nif, Direccion, CP, Localidad, Provincia,"
                    " Cod_EDIPlat, Cod_EDITipoMsg");
  Tabla glns(conexion, "Proveedores_GLN", "Cod_Empresa, Cod_Prov, GLN, Principal");
  const auto crear = [&](std::int16_t fichero, const ProveedorDemo& p) {
    const LugarDemo& lugar = azar.Elegir(kLugares);
    proveedores.Insertar(fichero, p.codigo, p.nombre, p.nif, lugar.direccion, lugar.cp,
                         lugar.localidad, lugar.provincia, Canal(p.plataforma), Canal(p.mensaje));
    if (p.gln == TipoGln::kSin) return;
    const std::string gln = Gln(400000000 + fichero * 1000 + p.codigo);
    glns.Insertar(fichero, p.codigo, p.gln == TipoGln::kConPuntos ? ConPuntos(gln) : gln,
                  p.gln != TipoGln::kNoPrincipal);
    glns.Insertar(fichero, p.codigo, Gln(410000000 + fichero * 1000 + p.codigo), false);
  };
  for (const ProveedorDemo& p : kProveedores) crear(kFicheroProveedores, p);
  crear(kOtroFichero, {1, "Proveedor de otro fichero", "B00000001", 5, 1});
  crear(kOtroFichero, {13, "Otro proveedor de otro fichero", "B00000013", 4, 1});
}

void CrearAlmacenes(Connection& conexion) {
  Tabla almacenes(conexion, "Almacenes",
                  "Cod_Empresa, Codigo, Nombre, Direccion, CP, Localidad, Provincia, EDI_GLN,"
                  " PedProv_Consignacion");
  const LugarDemo& sur = kLugares[6];
  almacenes.Insertar(1, 5, "Almacén de " + std::string(sur.localidad), sur.direccion, sur.cp,
                     sur.localidad, sur.provincia, ConPuntos(Gln(1005)), "CONSIG-5");
  almacenes.Insertar(1, 6, "Almacén sin códigos", nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr);
}

// One article in five has no principal bar code, one in three has a second one.
void CrearCodigosDeBarras(Connection& conexion) {
  Tabla codigos(conexion, "Articulos_CBarras", "Cod_Empresa, Cod_Articulo, Cod_Barras, Principal");
  std::int64_t siguiente = kPrimerCodigoDeBarras;
  for (std::size_t i = 0; i < kArticulos.size(); ++i) {
    const std::int32_t articulo = kArticulos[i].codigo;
    codigos.Insertar(kFicheroArticulos, articulo, Gln(siguiente++), i % 5 != 4);
    if (i % 3 == 0) codigos.Insertar(kFicheroArticulos, articulo, Gln(siguiente++), false);
  }
}

void CrearArticulosDeImpuesto(Connection& conexion) {
  Tabla articulos(conexion, "Articulos", "Cod_Empresa, Codigo, Descripcion");
  Tabla codigos(conexion, "Articulos_CBarras", "Cod_Empresa, Cod_Articulo, Cod_Barras, Principal");
  for (const std::int32_t base : {80000, 81000, 82000}) {
    for (const ImpuestoDemo& i : kImpuestos) {
      const std::int32_t articulo = base + i.codigo;
      articulos.Insertar(kFicheroArticulos, articulo, i.nombre);
      const bool principal = articulo != 82005;
      codigos.Insertar(kFicheroArticulos, articulo, Gln(kPrimerCodigoDeBarras + articulo),
                       principal);
    }
  }
}

void CrearReferencias(Connection& conexion) {
  Tabla referencias(conexion, "Articulos_Ref",
                    "Cod_Empresa, Cod_Articulo, Cod_Prov, Ref, Principal");
  for (std::size_t i = 0; i < kArticulos.size(); ++i) {
    const std::int32_t articulo = kArticulos[i].codigo;
    for (std::int32_t proveedor = 1; proveedor <= 3; ++proveedor) {
      referencias.Insertar(kFicheroArticulos, articulo, proveedor,
                           "R" + std::to_string(proveedor) + "-" + std::to_string(i + 1),
                           i % 4 != 3);
    }
  }
}

}  // namespace

void CrearCompras(Connection& conexion, std::uint64_t semilla) {
  Azar azar(semilla);
  CrearProveedores(conexion, azar);
  CrearAlmacenes(conexion);
  CrearCodigosDeBarras(conexion);
  CrearArticulosDeImpuesto(conexion);
  CrearReferencias(conexion);
  CrearPedidosProveedores(conexion, azar);
  CrearEntradas(conexion, azar);
}

}  // namespace kvraedi::demo
