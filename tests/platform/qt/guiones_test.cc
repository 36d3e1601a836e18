#include <gtest/gtest.h>

#include <memory>

#include "kvraedi/adaptadores.h"
#include "tests/platform/qt/frmMuestra.h"
#include "tests/platform/qt/usuario_qt.h"

namespace kvraedi::prueba {
namespace {

using Lineas = std::vector<std::string>;

/// The steps of a user and what the form's handlers note down meanwhile.
struct Guion {
  const char* nombre;
  void (*pasos)(UsuarioQt& usuario, frmMuestra& form, Lineas& diario);
  Lineas diario;
  const char* retrato;  // of the form after them
  Lineas mensajes = {};
  friend void PrintTo(const Guion& guion, std::ostream* salida) { *salida << guion.nombre; }
};

const Guion kGuiones[] = {
    {"Campos",
     [](UsuarioQt& u, frmMuestra& f, Lineas&) {
       u.Escribe(f, "txtNombre", "Muñoz & <b>Pérez</b>");
       u.Intro(f, "txtNombre");
       u.Escribe(f, "txtNumero", "12a3");
       u.Escribe(f, "txtNumero", "0012345678901");
       u.Intro(f, "txtNumero");
       u.Elige(f, "cboClase", 2);
       u.Elige(f, "cboClase", 2);
       u.Elige(f, "cboClase", 0);
       f.cboClase.SetListIndex(1);
     },
     {"clase 0", "clase 2", "clase 2", "clase 0", "clase 1", "descargada"},
     "Muñoz & <b>Pérez</b>;;001234567;;Otra;cboClase; fila 0 de 0, 0 marcadas, 0 excluidas"},
    {"Fechas",
     [](UsuarioQt& u, frmMuestra& f, Lineas& diario) {
       for (const char* fecha : {"01/03/2024", "31122023", "", "01/3", "01/03/20", "1/3/2024",
                                 "/03/2024", "99/99/9999"}) {
         u.Escribe(f, "txtFecha", fecha);
         diario.push_back(f.txtFecha.Text());
       }
       u.Intro(f, "txtFecha");
       f.txtFecha.SetText("");
       u.Intro(f, "txtFecha");
       f.txtFecha.SetText("28/02/2024");
       u.Intro(f, "txtFecha");
     },
     {"clase 0", "01/03/2024", "31/12/2023", "", "01/3", "01/03/20", "1_/3_/2024", "__/03/2024",
      "99/99/9999", "intro en fecha: 99/99/9999", "intro en fecha: ", "intro en fecha: 28/02/2024",
      "descargada"},
     ";28/02/2024;;;Una;txtFecha; fila 0 de 9, 0 marcadas, 0 excluidas"},
    {"Buscador",
     [](UsuarioQt& u, frmMuestra& f, Lineas& diario) {
       const auto apunta = [&] {
         diario.push_back(f.txtCliente.Text() + "=" + f.txtCliente.Description());
       };
       u.Escribe(f, "txtCliente", "5");
       apunta();
       u.Intro(f, "txtCliente");
       apunta();
       u.Busca(f, "txtCliente");
       apunta();
       u.Escribe(f, "txtCliente", "9");
       u.Busca(f, "txtCliente");
       u.Escribe(f, "txtNombre", "fuera del buscador");
       apunta();
       u.Escribe(f, "txtCliente", "falla");
       u.Escribe(f, "txtNombre", "tras el fallo");
       f.txtCliente.Clear();
       apunta();
     },
     {"clase 0", "5=", "5=Cliente <b>5</b>", "7=Cliente <b>7</b>", "9=Cliente <b>9</b>", "=",
      "descargada"},
     "tras el fallo;;;;Una;txtNombre; fila 0 de 0, 0 marcadas, 0 excluidas",
     {"Error|No hay conexión|Critical"}},
    {"Tabla",
     [](UsuarioQt& u, frmMuestra& f, Lineas&) {
       f.AnadirLineas(60);
       u.Celda(f, "vsLineas", 2, frmMuestra::kMarca);
       u.Celda(f, "vsLineas", 2, frmMuestra::kNombre);
       u.Celda(f, "vsLineas", 60, frmMuestra::kExcluida);
       u.Celda(f, "vsLineas", 2, frmMuestra::kMarca);
       u.Celda(f, "vsLineas", 2, frmMuestra::kMarca);
       u.Celda(f, "vsLineas", 0, frmMuestra::kNombre);
       u.Celda(f, "vsLineas", 0, frmMuestra::kMarca);
       u.Pulsa(f, "chkTodas");
       u.Celda(f, "vsLineas", 1, frmMuestra::kMarca);
     },
     {"clase 0", "clic 2,0", "clic 2,3", "clic 60,5", "clic 2,0", "clic 2,0", "clic 0,3",
      "clic 0,0", "clic 1,0", "descargada"},
     ";;;;Una;vsLineas; fila 1 de 60, 59 marcadas, 1 excluidas"},
    {"Preguntas",
     [](UsuarioQt& u, frmMuestra& f, Lineas&) {
       f.AnadirLineas(2);
       u.Pulsa(f, "cmdAceptar");
       u.Responde(ui::Answer::kNo);
       u.Pulsa(f, "cmdAceptar");
       u.Responde(ui::Answer::kYes);
       u.Intro(f, "cmdAceptar");
       u.Pulsa(f, "cmdApagado");
       u.Escribe(f, "txtNombre", "error");
       u.Pulsa(f, "cmdAceptar");
     },
     {"clase 0", "no", "no", "sí", "descargada"},
     "error;;;;Una;cmdAceptar; fila 0 de 0, 0 marcadas, 0 excluidas",
     {"¡ Atención !|¿Borrar las líneas?|Question", "¡ Atención !|¿Borrar las líneas?|Question",
      "¡ Atención !|¿Borrar las líneas?|Question", "Error|Nada va <i>bien</i>|Critical"}},
    {"Modal",
     [](UsuarioQt& u, frmMuestra& f, Lineas& diario) {
       u.AlAbrir("frmElegir", [&](ui::Form& hija) {
         u.Escribe(hija, "txtValor", "el tercero");
         u.Pulsa(hija, "cmdTomar");
       });
       u.Pulsa(f, "cmdElegir");
       diario.push_back(f.lblEstado.Caption());
       u.AlAbrir("frmElegir", [&](ui::Form& hija) { u.Cierra(hija); });
       u.Pulsa(f, "cmdElegir");
       diario.push_back(f.lblEstado.Caption());
     },
     {"clase 0", "Elegido: el tercero", "Elegido: ", "descargada"},
     ";;;;Una;cmdElegir; fila 0 de 0, 0 marcadas, 0 excluidas"},
};

class Guiones : public testing::TestWithParam<Guion> {};

TEST_P(Guiones, LlegaLoQueElUsuarioHace) {
  const Guion& guion = GetParam();
  UsuarioQt usuario;
  InstalarAdaptadores({nullptr, &usuario.Pantallas(), nullptr});
  Lineas diario;
  const auto form = std::make_shared<frmMuestra>(diario);
  form->Show();
  guion.pasos(usuario, *form, diario);
  EXPECT_EQ(form->Retrato(), guion.retrato);
  usuario.Cierra(*form);
  EXPECT_FALSE(form->Loaded());
  EXPECT_EQ(usuario.Ventana("frmMuestra"), nullptr);
  EXPECT_EQ(diario, guion.diario);
  EXPECT_EQ(usuario.Mensajes(), guion.mensajes);
  InstalarAdaptadores({});
}

INSTANTIATE_TEST_SUITE_P(Qt, Guiones, testing::ValuesIn(kGuiones),
                         [](const auto& caso) { return std::string(caso.param.nombre); });

}  // namespace
}  // namespace kvraedi::prueba
