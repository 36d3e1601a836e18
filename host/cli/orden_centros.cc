#include <algorithm>
#include <array>
#include <functional>
#include <ostream>

#include "host/cli/al_abrir.h"
#include "host/cli/controles.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/sesion_cli.h"
#include "host/cli/tabla.h"
#include "kvraedi/frmclsCentrosAdministrativos.h"

namespace kvraedi::cli {
namespace {

/// Columns of the list vsCentros.
enum Columna : int {
  kCodigo,
  kNombre,
  kDireccion,
  kCodigoPostal,
  kLocalidad,
  kProvincia,
  kCodPais,
  kPais,
  kDescripcion,
  kColumnas
};

constexpr std::array<std::string_view, kColumnas> kNombresJson = {
    "codigo",    "nombre",   "direccion", "codigo_postal", "localidad",
    "provincia", "cod_pais", "pais",      "descripcion"};

constexpr ColumnaTabla kTabla[] = {
    {"Código", Celda<kCodigo>},       {"Nombre", Celda<kNombre>},
    {"Dirección", Celda<kDireccion>}, {"CP", Celda<kCodigoPostal>, true},
    {"Localidad", Celda<kLocalidad>}, {"Provincia", Celda<kProvincia>},
    {"País", Celda<kPais>},           {"Descripción", Celda<kDescripcion>},
};

/// True when no message box was more than a question.
bool SinAvisos(SesionCli& sesion) {
  const auto& cajas = sesion.Pantallas().Messages();
  return std::all_of(cajas.begin(), cajas.end(),
                     [](const ui::MessageBox& caja) { return caja.icon == ui::Icon::kQuestion; });
}

/// Opens the list of centres and lets the user that `pasos` describes work on it.
int UsarCentros(const Argumentos& argumentos, const Salida& salida,
                const std::function<void(ui::Form&, SesionCli&)>& pasos) {
  SesionCli sesion(argumentos, salida.mensajes);
  sesion.Usar<frmclsCentrosAdministrativos>("frmCentrosAdm", [&](ui::Form& lista) {
    if (SinAvisos(sesion)) pasos(lista, sesion);
  });
  return SinAvisos(sesion) ? kHecho : kRechazado;
}

void Marcar(ui::Form& form, const std::string& codigo) {
  auto& lista = Buscar<ui::Grid>(form, "vsCentros");
  for (int fila = 1; fila < lista.Rows(); ++fila) {
    if (lista.Cell(fila, kCodigo) == codigo) return lista.Click(fila, kCodigo);
  }
  throw Fallo(kRechazado, "no hay ningún centro «" + codigo + "»");
}

void ElegirPais(ui::Form& dialogo, const std::string& nombre) {
  auto& paises = Buscar<ui::ComboBox>(dialogo, "cboCod_Pais");
  const auto& nombres = paises.Items();
  const auto elegido = std::find(nombres.begin(), nombres.end(), nombre);
  if (elegido == nombres.end()) throw Fallo(kRechazado, "no hay ningún país «" + nombre + "»");
  paises.Choose(static_cast<int>(elegido - nombres.begin()));
}

/// Types what is given into the edit dialog and accepts it.
void Rellenar(ui::Form& dialogo, const std::optional<std::string>& codigo,
              const DatosCentro& datos) {
  const auto escribir = [&](const char* campo, const std::optional<std::string>& texto) {
    if (texto) Buscar<ui::TextBox>(dialogo, campo).Type(*texto);
  };
  escribir("txtCodigo", codigo);
  escribir("txtNombre", datos.nombre);
  escribir("txtDireccion", datos.direccion);
  escribir("txtCodigoPostal", datos.codigoPostal);
  if (datos.codigoPostal) Buscar<ui::TextBox>(dialogo, "txtCodigoPostal").PressEnter();
  escribir("txtLocalidad", datos.localidad);
  escribir("txtProvincia", datos.provincia);
  if (datos.pais) ElegirPais(dialogo, *datos.pais);
  escribir("txtDescripcion", datos.descripcion);
  Buscar<ui::Button>(dialogo, "cmdAceptar").Press();
}

/// Presses a button of the list that opens the edit dialog, and fills that in.
void Editar(ui::Form& lista, SesionCli& sesion, const char* boton,
            const std::optional<std::string>& codigo, const DatosCentro& datos) {
  AlAbrir(
      sesion.Pantallas(), "frmCentrosAdm_Datos",
      [&](ui::Form& dialogo) { Rellenar(dialogo, codigo, datos); },
      [&] { Buscar<ui::Button>(lista, boton).Press(); });
}

int Contar(int codigo, const char* hecho, const std::string& centro, const Salida& salida) {
  if (codigo == kHecho) salida.resultado << "Centro " << hecho << ": " << centro << '\n';
  return codigo;
}

}  // namespace

int EjecutarCentrosListar(const Argumentos& argumentos, const Salida& salida) {
  return UsarCentros(argumentos, salida, [&](ui::Form& form, SesionCli&) {
    const auto& lista = Buscar<ui::Grid>(form, "vsCentros");
    if (argumentos.json) {
      EscribirJson(lista, kNombresJson, salida.resultado);
    } else {
      EscribirTabla(lista, kTabla, salida.resultado);
    }
  });
}

int EjecutarCentrosAnadir(const Argumentos& argumentos, const Salida& salida) {
  const DatosCentro& datos = argumentos.centro;
  const int codigo = UsarCentros(argumentos, salida, [&](ui::Form& lista, SesionCli& sesion) {
    Editar(lista, sesion, "cmdAgregar", datos.codigo, datos);
  });
  return Contar(codigo, "añadido", datos.codigo, salida);
}

int EjecutarCentrosModificar(const Argumentos& argumentos, const Salida& salida) {
  const DatosCentro& datos = argumentos.centro;
  const int codigo = UsarCentros(argumentos, salida, [&](ui::Form& lista, SesionCli& sesion) {
    Marcar(lista, datos.codigo);
    Editar(lista, sesion, "cmdModificar", datos.codigoNuevo, datos);
  });
  return Contar(codigo, "modificado", datos.codigoNuevo.value_or(datos.codigo), salida);
}

int EjecutarCentrosEliminar(const Argumentos& argumentos, const Salida& salida) {
  const std::string& centro = argumentos.centro.codigo;
  const int codigo = UsarCentros(argumentos, salida, [&](ui::Form& lista, SesionCli& sesion) {
    Marcar(lista, centro);
    sesion.Pantallas().QueueAnswer(ui::Answer::kYes);
    Buscar<ui::Button>(lista, "cmdEliminar").Press();
  });
  return Contar(codigo, "eliminado", centro, salida);
}

}  // namespace kvraedi::cli
