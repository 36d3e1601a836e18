#include "host/demo/maestros.h"

#include <algorithm>
#include <optional>

#include "host/demo/codigos_postales.h"
#include "host/demo/tabla.h"

namespace kvraedi::demo {
namespace {

constexpr std::int16_t kFicheroClientes = 1;   // both companies use the first one's customers
constexpr std::int16_t kFicheroArticulos = 1;  // and its articles
constexpr std::int32_t kPrimerGenerado = 1001;
constexpr std::int16_t kEspana = 1;  // in Paises

void CrearEmpresas(Connection& conexion) {
  Tabla empresas(conexion, "Empresas",
                 "Codigo, Nombre_1, Nombre_2, Direccion, CP, Localidad, Provincia, Pais, Telefono,"
                 " Fax, Nif, email, Emp_Articulos, Emp_Clientes, Emp_Proveedores, Aplica_IGIC");
  Tabla almacenes(conexion, "Almacenes",
                  "Cod_Empresa, Codigo, Nombre, Direccion, CP, Localidad, Provincia, EDI_GLN,"
                  " PedProv_Consignacion");
  for (const EmpresaDemo& e : kEmpresas) {
    const LugarDemo& sede = kLugares[static_cast<std::size_t>(e.codigo)];
    empresas.Insertar(e.codigo, e.nombre1, e.nombre2, sede.direccion, sede.cp, sede.localidad,
                      sede.provincia, "ESPAÑA", "928 00 11 22", "928 00 11 23", e.nif,
                      "facturas@kestrova.example", kFicheroArticulos, kFicheroClientes, 1,
                      e.aplicaIgic);
    for (std::int16_t a = 1; a <= e.almacenes; ++a) {
      const LugarDemo& lugar = kLugares[static_cast<std::size_t>(e.codigo + a)];
      almacenes.Insertar(e.codigo, a, "Almacén de " + std::string(lugar.localidad), lugar.direccion,
                         lugar.cp, lugar.localidad, lugar.provincia, Gln(e.codigo * 1000 + a),
                         "CONSIG-" + std::to_string(a));
    }
  }
}

void CrearTablasDeApoyo(Connection& conexion, const std::string& certificado) {
  Tabla parametros(conexion, "Empresas_Parametros", "Cod_Empresa, Nombre, Valor");
  for (const ParametroDemo& p : kParametros) parametros.Insertar(p.empresa, p.nombre, p.valor);
  Tabla series(conexion, "Series",
               "Cod_Empresa, Codigo, Nombre, rutaCertificado, contraseñaCertificado");
  for (int serie = 1; serie <= 3; ++serie) {
    series.Insertar(1, serie, "Serie " + std::to_string(serie), nullptr, nullptr);
  }
  series.Insertar(1, 4, "Serie 4, con certificado propio", certificado, "demo");
  Tabla impuestos(conexion, "Impuestos", "Codigo, Nombre, Porcentaje");
  for (const ImpuestoDemo& i : kImpuestos) {
    impuestos.Insertar(i.codigo, i.nombre, Currency::FromUnits(i.porcentaje));
  }
  Tabla tasas(conexion, "Igic_Tipos", "Cod_Empresa, Tipo, FechaI, FechaF, Imp_Valor");
  for (const EmpresaDemo& e : kEmpresas) {
    for (const ImpuestoDemo& i : kImpuestos) {
      tasas.Insertar(e.codigo, i.codigo, FechaHora{2020, 1, 1}, FechaHora{2099, 12, 31},
                     Currency::FromUnits(i.porcentaje));
    }
  }
  Tabla articulos(conexion, "Articulos", "Cod_Empresa, Codigo, Descripcion");
  for (const ArticuloDemo& a : kArticulos) {
    articulos.Insertar(kFicheroArticulos, a.codigo, a.descripcion);
  }
  Tabla paises(conexion, "Paises", "Cod_Pais, Nombre, ISOCodigo, ISO3Codigo");
  for (const PaisDemo& p : kPaises) paises.Insertar(p.codigo, p.nombre, p.iso, p.iso3);
  Tabla cadenas(conexion, "Cadenas", "Cod_Empresa, Nivel, Codigo, Nombre");
  for (const CadenaDemo& c : kCadenas) {
    cadenas.Insertar(kFicheroClientes, c.nivel, c.codigo, c.nombre);
  }
  Tabla plataformas(conexion, "EDI_Plataforma", "Cod_EDIPlat, Nombre");
  Tabla mensajes(conexion, "EDI_TipoMsg", "Cod_EDIPlat, Cod_EDITipoMsg, Nombre");
  for (const MensajeDemo& m : kMensajes) {
    if (m.mensaje == 0) {
      plataformas.Insertar(m.plataforma, m.nombre);
    } else {
      mensajes.Insertar(m.plataforma, m.mensaje, m.nombre);
    }
  }
}

void CrearCodigosPostales(Connection& conexion) {
  Tabla codigos(conexion, "Codigos_Postales", "Codigo, Localidad, Provincia, Cod_Pais");
  RecorrerCodigosPostales(
      [&](std::int32_t codigo, std::string_view localidad, std::string_view provincia) {
        codigos.Insertar(codigo, localidad, provincia, kEspana);
      });
}

void CrearCentros(Connection& conexion) {
  Tabla centros(conexion, "EDI_Centros_Administrativos",
                "Codigo, Nombre, Direccion, CodigoPostal, Localidad, Provincia, Cod_Pais,"
                " Descripcion");
  for (const CentroDemo& c : kCentros) {
    centros.Insertar(c.codigo, c.nombre, c.lugar.direccion, c.lugar.cp, c.lugar.localidad,
                     c.lugar.provincia, kEspana, c.descripcion);
  }
}

void AsignarRoles(Connection& conexion) {
  const auto centro = [](std::string_view codigo) {
    return codigo.empty() ? "NULL" : "'" + std::string(codigo) + "'";
  };
  for (const RolesDemo& r : kRoles) {
    conexion.Execute("UPDATE Clientes SET EDI_Rol_Fiscal = " + centro(r.fiscal) +
                     ", EDI_Rol_Receptor = " + centro(r.receptor) + ", EDI_Rol_Pagador = " +
                     centro(r.pagador) + ", EDI_Rol_Comprador = " + centro(r.comprador) +
                     " WHERE Cod_Empresa = " + std::to_string(kFicheroClientes) +
                     " AND Codigo = " + std::to_string(r.cliente));
  }
  // The other customers of Facturae share the offices of the first.
  const RolesDemo& comunes = kRoles.front();
  conexion.Execute("UPDATE Clientes SET EDI_Rol_Fiscal = " + centro(comunes.fiscal) +
                   ", EDI_Rol_Receptor = " + centro(comunes.receptor) +
                   ", EDI_Rol_Pagador = " + centro(comunes.pagador) +
                   " WHERE Cod_EDIPlat_Fra = 3 AND EDI_Rol_Fiscal IS NULL");
}

class TablaClientes {
 public:
  TablaClientes(Connection& conexion, Azar& azar)
      : tabla_(conexion, "Clientes",
               "Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Tipo, Nif, IntraCom, Direccion, CP,"
               " Localidad, Provincia, Cod_Pais, Telefono, Fax, EDI_GLN, Cad_Nivel_1, Cad_Nivel_2,"
               " Cad_Nivel_3, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra"),
        azar_(azar) {}

  Cliente Crear(std::int16_t fichero, const ClienteDemo& c) {
    const LugarDemo& lugar = azar_.Elegir(kLugares);
    const std::string telefono = "928 " + std::to_string(azar_.Entre(100000, 999999));
    std::optional<std::string> gln;
    std::optional<std::int16_t> plataforma;
    std::optional<std::int16_t> mensaje;
    if (c.plataforma != kSinCanal) {
      gln = Gln(500000000 + c.codigo);
      plataforma = c.plataforma;
      mensaje = c.mensaje;
    }
    std::optional<std::string> fax;
    if (c.codigo % 2 == 0) fax = telefono;
    tabla_.Insertar(fichero, c.codigo, c.nombre, c.nombre, c.tipo, c.nif,
                    c.regimen == Regimen::kIntracomunitario, lugar.direccion, lugar.cp,
                    lugar.localidad, lugar.provincia, c.pais, telefono, fax, gln, c.cadena1,
                    c.cadena2, c.cadena3, plataforma, mensaje);
    const auto pais = std::find_if(kPaises.begin(), kPaises.end(),
                                   [&](const PaisDemo& p) { return p.codigo == c.pais; });
    return {c.codigo, std::string(c.nombre), std::string(c.nif), c.regimen, c.plataforma, c.mensaje,
            &lugar,   pais->nombre};
  }

 private:
  Tabla tabla_;
  Azar& azar_;
};

// One customer in four has no channel, one in four takes Facturae, the others INVOIC.
ClienteDemo Canal(std::int32_t codigo) {
  ClienteDemo c{codigo, {}, {}};
  c.cadena1 = static_cast<std::int16_t>(codigo % 3 + 1);
  if (codigo % 4 == 3) return c;
  c.plataforma = codigo % 4 == 2 ? 3 : 2;
  c.mensaje = 1;
  return c;
}

}  // namespace

std::string Gln(std::int64_t numero) {
  std::string digits = std::to_string(numero);
  digits = "843" + std::string(9 - std::min<std::size_t>(digits.size(), 9), '0') + digits;
  int sum = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) sum += (digits[i] - '0') * (i % 2 == 0 ? 1 : 3);
  return digits + std::to_string((10 - sum % 10) % 10);
}

std::vector<Cliente> CrearMaestros(Connection& conexion, Azar& azar, std::int32_t generados,
                                   const std::string& certificado) {
  CrearEmpresas(conexion);
  CrearTablasDeApoyo(conexion, certificado);
  CrearCodigosPostales(conexion);
  CrearCentros(conexion);
  TablaClientes tabla(conexion, azar);
  std::vector<Cliente> clientes;
  for (const ClienteDemo& c : kClientes) clientes.push_back(tabla.Crear(kFicheroClientes, c));
  for (std::int32_t codigo = kPrimerGenerado; codigo < kPrimerGenerado + generados; ++codigo) {
    ClienteDemo c = Canal(codigo);
    std::string nombre(azar.Elegir(kGiros));
    nombre.append(" ").append(azar.Elegir(kApellidos));
    nombre.append(" y ").append(azar.Elegir(kApellidos)).append(" S.L.");
    const std::string nif = "B" + std::to_string(35900000 + codigo);
    c.nombre = nombre;
    c.nif = nif;
    clientes.push_back(tabla.Crear(kFicheroClientes, c));
  }
  conexion.Execute(
      "UPDATE Clientes SET Cad_Nivel_4 = 1, Cad_Nivel_5 = 1, Cad_Nivel_6 = 1, Cad_Nivel_7 = 7,"
      " Cad_Nivel_8 = 1, Cad_Nivel_9 = 1, Cad_Nivel_10 = 3 WHERE Codigo = 4");
  AsignarRoles(conexion);
  // Another customer file with the same codes: none of its customers belongs to these companies.
  tabla.Crear(kFicheroClientes + 1, {1, "Cliente de otro fichero", "B00000001"});
  tabla.Crear(kFicheroClientes + 1, {70, "Otro cliente de otro fichero", "B00000070"});
  return clientes;
}

}  // namespace kvraedi::demo
