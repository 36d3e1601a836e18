#include "facturae/frmCentrosAdm_Datos.h"

#include <charconv>
#include <utility>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/recortar.h"
#include "frame/sesion.h"

namespace kvraedi {
namespace {

constexpr int kAncho = 8000;  // twips

/// A postal code as a number; 0 when it is none, as those of other countries may be.
std::int32_t NumeroPostal(std::string_view texto) {
  texto = Recortar(texto);
  std::int32_t numero = 0;
  const char* const fin = texto.data() + texto.size();
  const auto leido = std::from_chars(texto.data(), fin, numero);
  return leido.ec == std::errc() && leido.ptr == fin && numero > 0 ? numero : 0;
}

}  // namespace

frmCentrosAdm_Datos::frmCentrosAdm_Datos(std::optional<CentroAdministrativo> inicial)
    : Form("frmCentrosAdm_Datos", "Centro Administrativo"), inicial_(std::move(inicial)) {
  Disponer();
  txtCodigoPostal.onEnter = [this] { txtCodigoPostal_KeyPress(); };
  cboCod_Pais.onEnter = [this] { FocusNext(cboCod_Pais); };
  cmdAceptar.onClick = [this] { cmdAceptar_Click(); };
  cmdCancelar.onClick = [this] { Unload(); };
}

void frmCentrosAdm_Datos::Disponer() {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  SetWidth(kAncho);
  SetLayout(Column({
      Aligned({Row({lblCodigo, txtCodigo}), Row({lblNombre, txtNombre}),
               Row({lblDireccion, txtDireccion}), Row({lblCodigoPostal, txtCodigoPostal}),
               Row({lblLocalidad, txtLocalidad}), Row({lblProvincia, txtProvincia}),
               Row({lblCod_Pais, cboCod_Pais}), Row({lblDescripcion, txtDescripcion})}),
      Row({Space(), cmdAceptar, cmdCancelar}),
  }));
}

void frmCentrosAdm_Datos::OnLoad() {
  const bool cargado = Accion("frmCentrosAdm_Datos:Load", [&] {
    CargarPaises();
    if (inicial_) Mostrar(*inicial_);
    txtCodigo.SetFocus();
  });
  // Without its countries the dialog could not be accepted.
  if (!cargado) Unload();
}

void frmCentrosAdm_Datos::CargarPaises() {
  const auto rs =
      ConexionActual().Open("SELECT Cod_Pais Codigo, Nombre FROM Paises ORDER BY Nombre");
  for (; !rs->Eof(); rs->MoveNext()) {
    cboCod_Pais.AddItem(rs->GetOrEmpty<std::string>("Nombre"), rs->Get<std::int16_t>("Codigo"));
  }
}

void frmCentrosAdm_Datos::Mostrar(const CentroAdministrativo& centro) {
  txtCodigo.SetText(centro.codigo);
  txtNombre.SetText(centro.nombre);
  txtDireccion.SetText(centro.direccion);
  txtCodigoPostal.SetText(centro.codigoPostal);
  txtLocalidad.SetText(centro.localidad);
  txtProvincia.SetText(centro.provincia);
  cboCod_Pais.SelectData(centro.codPais);
  txtDescripcion.SetText(centro.descripcion);
}

void frmCentrosAdm_Datos::txtCodigoPostal_KeyPress() {
  Accion("frmCentrosAdm_Datos:txtCodigoPostal_KeyPress", [&] {
    const std::int32_t codigo = NumeroPostal(txtCodigoPostal.Text());
    if (codigo != 0) {
      const auto lugar = SuiteActual().BuscarCodigoPostal(ConexionActual(), codigo);
      if (lugar) {
        txtLocalidad.SetText(lugar->localidad);
        txtProvincia.SetText(lugar->provincia);
        cboCod_Pais.SelectText(lugar->pais);
      }
      txtCodigoPostal.SetText(FormatearNumero(Currency::FromInteger(codigo), "00000"));
    }
    FocusNext(txtCodigoPostal);
  });
}

bool frmCentrosAdm_Datos::Completo() {
  const struct {
    ui::Control& campo;
    std::string_view texto;
    const char* mensaje;
  } obligatorios[] = {
      {txtCodigo, txtCodigo.Text(), "Debe especificar un Código para el Centro Administrativo"},
      {txtNombre, txtNombre.Text(), "Debe especificar un Nombre para el Centro Administrativo"},
      {txtDireccion, txtDireccion.Text(),
       "Debe especificar una Dirección para el Centro Administrativo"},
      {txtCodigoPostal, txtCodigoPostal.Text(),
       "Debe especificar un Código Postal para el Centro Administrativo"},
      {txtLocalidad, txtLocalidad.Text(),
       "Debe especificar una Localidad para el Centro Administrativo"},
      {txtProvincia, txtProvincia.Text(),
       "Debe especificar una Provincia para el Centro Administrativo"},
      {cboCod_Pais, cboCod_Pais.Text(), "Debe especificar un Pais para el Centro Administrativo"},
  };
  for (const auto& [campo, texto, mensaje] : obligatorios) {
    if (!Recortar(texto).empty()) continue;
    Avisar(mensaje, "¡ Atención !", ui::Icon::kExclamation);
    campo.SetFocus();
    return false;
  }
  return true;
}

void frmCentrosAdm_Datos::cmdAceptar_Click() {
  Accion("frmCentrosAdm_Datos:cmdAceptar_Click", [&] {
    if (!Completo()) return;
    centro_ = {txtCodigo.Text(),
               txtNombre.Text(),
               txtDireccion.Text(),
               txtCodigoPostal.Text(),
               txtLocalidad.Text(),
               txtProvincia.Text(),
               Estrechar<std::int16_t>(cboCod_Pais.Data()),
               std::string(cboCod_Pais.Text()),
               txtDescripcion.Text()};
    Unload();
  });
}

}  // namespace kvraedi
