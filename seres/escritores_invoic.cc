#include "seres/escritores_invoic.h"

#include <algorithm>
#include <array>

#include "frame/formato.h"
#include "frame/registro.h"
#include "frame/sesion.h"
#include "seres/campos_consulta.h"
#include "seres/registros_invoic.h"

namespace kvraedi::invoic {
namespace {

constexpr std::string_view kImporte = "0.000";

std::string FechaD8(const FechaHora& fecha) { return FormatearFecha(fecha, "21yymmdd"); }
std::string FechaD12(const FechaHora& fecha) { return FormatearFecha(fecha, "21yymmddhhnn"); }

std::string_view TextoDe(const Mensaje& mensaje, std::string_view columna) {
  return mensaje.factura.GetOrEmpty<std::string_view>(columna);
}

constexpr auto kEmpresa = std::to_array<CampoConsulta>({{kSincp["Nombre1"], "Emp_Nombre1"},
                                                        {kSincp["Nombre2"], "Emp_Nombre2"},
                                                        {kSincp["Direccion"], "Emp_Direccion"},
                                                        {kSincp["Localidad"], "Emp_Localidad"},
                                                        {kSincp["Provincia"], "Emp_Provincia"},
                                                        {kSincp["Cp"], "Emp_Cp"},
                                                        {kSincp["Pais"], "Emp_Pais"},
                                                        {kSincp["Nif"], "Emp_Nif"},
                                                        {kSincp["Telefono"], "Emp_Telefono"},
                                                        {kSincp["Fax"], "Emp_Fax"}});

constexpr auto kEntrega = std::to_array<CampoConsulta>({{kSincp["Gln"], "Cli_EDI_GLN"},
                                                        {kSincp["Nombre1"], "Ent_Nombre"},
                                                        {kSincp["Direccion"], "Ent_Direccion"},
                                                        {kSincp["Localidad"], "Ent_Localidad"},
                                                        {kSincp["Provincia"], "Ent_Provincia"},
                                                        {kSincp["Cp"], "Ent_Cp"},
                                                        {kSincp["Pais"], "Ent_Pais"},
                                                        {kSincp["Nif"], "Cli_Nif"},
                                                        {kSincp["Contacto"], "Ent_Contacto"},
                                                        {kSincp["Telefono"], "Ent_Telefono"},
                                                        {kSincp["Fax"], "Ent_Fax"}});

constexpr auto kCliente = std::to_array<CampoConsulta>({{kSincp["Gln"], "Cli_EDI_GLN"},
                                                        {kSincp["Nombre1"], "Cli_Nombre"},
                                                        {kSincp["Direccion"], "Cli_Direccion"},
                                                        {kSincp["Localidad"], "Cli_Localidad"},
                                                        {kSincp["Provincia"], "Cli_Provincia"},
                                                        {kSincp["Cp"], "Cli_Cp"},
                                                        {kSincp["Pais"], "Cli_Pais"},
                                                        {kSincp["Nif"], "Cli_Nif"},
                                                        {kSincp["Telefono"], "Cli_Telefono"},
                                                        {kSincp["Fax"], "Cli_Fax"}});

Registro Parte(const Mensaje& mensaje, std::span<const CampoConsulta> columnas) {
  Registro registro(kSincp);
  registro.Texto(kSincp["Tag"], "SINCP");
  registro.Texto(kSincp["Agencia"], "9");
  CopiarCampos(registro, mensaje.factura.Registros(), columnas);
  return registro;
}

void EscribirParte(const Mensaje& mensaje, Registro parte,
                   std::initializer_list<std::string_view> calificadores) {
  for (const auto calificador : calificadores) {
    parte.Texto(kSincp["Calificador"], calificador);
    mensaje.fichero.Linea(parte.Linea());
  }
}

}  // namespace

std::string NumeroMensaje(Currency valor, std::string_view patron) {
  return FormatearNumero(valor, patron, '.');
}

void EscribirRectl(const Mensaje& mensaje, const std::string& identificador,
                   const FechaHora& momento) {
  Registro registro(kRectl);
  registro.Texto(kRectl["Tag"], "RECTL");
  registro.Texto(kRectl["TipoMensaje"], "INVOIC");
  registro.Texto(kRectl["Emisor"], ParametroTexto("EDI_GLNEmpresa"));
  registro.Texto(kRectl["Receptor"], TextoDe(mensaje, "Cli_EDI_GLN"));
  registro.Texto(kRectl["Identificador"], identificador);
  registro.Texto(kRectl["Momento"], FechaD12(momento));
  mensaje.fichero.Linea(registro.Linea());
}

void EscribirSincc(const Mensaje& mensaje, bool enviadaAntes) {
  const Fila& factura = mensaje.factura;
  const auto tipoDoc = factura.Get<std::int16_t>("TipoDoc");
  const bool abono = tipoDoc == 1 || factura.GetOrEmpty<Currency>("ImporteB") < Currency();
  const auto importe = [&](std::string_view columna) {
    return NumeroMensaje(factura.Get<Currency>(columna), kImporte);
  };
  const auto base =
      ConLugar([] { return std::string("Total - Impuestos"); },
               [&] { return factura.Get<Currency>("Total") - factura.Get<Currency>("Impuestos"); });
  const auto fecha = factura.Get<FechaHora>("Fecha");

  Registro registro(kSincc);
  registro.Texto(kSincc["Tag"], "SINCC");
  registro.Texto(kSincc["TipoDocumento"], tipoDoc != 0 && abono ? "381" : "380");
  registro.Numero(kSincc["Numero"], std::to_string(factura.Get<std::int32_t>("Codigo")));
  registro.Texto(kSincc["Funcion"], enviadaAntes ? "31" : "9");
  registro.Texto(kSincc["Fecha"], FechaD8(fecha));
  if (abono) registro.Texto(kSincc["Abono"], "1A");
  registro.Texto(kSincc["Divisa"], "EUR");
  if (factura.GetOrEmpty<std::int32_t>("PrevCobros") <= 0) {
    registro.Texto(kSincc["Vencimiento"], FechaD12(fecha));
  }
  registro.Numero(kSincc["NetoLineas"], importe("ImporteNetoLineas"));
  registro.Numero(kSincc["Base"], NumeroMensaje(base, kImporte));
  registro.Numero(kSincc["BrutoLineas"], importe("ImporteBrutoLineas"));
  registro.Numero(kSincc["Impuestos"], importe("Impuestos"));
  registro.Numero(kSincc["Total"], importe("Total"));
  registro.Numero(kSincc["Portes"], importe("Importe_Portes"));
  registro.Texto(kSincc["Hora"], FechaD12(factura.Get<FechaHora>("Hora")));
  mensaje.fichero.Linea(registro.Linea());
}

void EscribirSincp(const Mensaje& mensaje) {
  Registro empresa = Parte(mensaje, kEmpresa);
  empresa.Texto(kSincp["Gln"], ParametroTexto("EDI_GLNEmpresa"));
  empresa.Texto(kSincp["RegistroMercantil"], ParametroTexto("EDI_RegistroMercantil"));
  EscribirParte(mensaje, std::move(empresa), {"SU ", "II ", "BCO"});
  EscribirParte(mensaje, Parte(mensaje, kEntrega), {"DP"});
  EscribirParte(mensaje, Parte(mensaje, kCliente), {"BY ", "IV ", "SCO"});
}

void EscribirTextoLibre(EscritorTexto& fichero, std::string_view tag, std::string_view texto) {
  constexpr auto kTextos = std::to_array<Campo>(
      {kTexto["Texto1"], kTexto["Texto2"], kTexto["Texto3"], kTexto["Texto4"], kTexto["Texto5"]});
  Registro registro(kTexto);
  registro.Texto(kTexto["Tag"], tag);
  registro.Texto(kTexto["Calificador"], "AAI");
  const Campo* ultimo = nullptr;
  for (const Campo& campo : kTextos) {
    const std::size_t corte = texto.find('\r');
    std::string pieza(texto.substr(0, corte));
    std::erase(pieza, '\n');
    registro.Texto(campo, pieza);
    ultimo = &campo;
    if (corte == std::string_view::npos) break;
    texto.remove_prefix(corte + 1);
  }
  registro.TerminarEn(*ultimo);
  fichero.Linea(registro.Linea());
}

void EscribirSinct(const Mensaje& mensaje) {
  const auto observaciones = TextoDe(mensaje, "Observ");
  if (!observaciones.empty()) EscribirTextoLibre(mensaje.fichero, "SINCT", observaciones);
}

void EscribirSincv(const Mensaje& mensaje) {
  if (mensaje.factura.GetOrEmpty<std::int32_t>("PrevCobros") == 0) return;
  const auto vencimientos = mensaje.conexion.Open(ConsultaVencimientos(mensaje.clave));
  const Fila vencimiento(*vencimientos);
  for (int secuencia = 1; !vencimientos->Eof(); ++secuencia, vencimientos->MoveNext()) {
    Registro registro(kSincv);
    registro.Texto(kSincv["Tag"], "SINCV");
    registro.Numero(kSincv["Secuencia"], std::to_string(secuencia));
    registro.Texto(kSincv["FechaVto"], FechaD8(vencimiento.Get<FechaHora>("Fecha_Vto")));
    registro.Numero(kSincv["Importe"],
                    NumeroMensaje(vencimiento.Get<Currency>("Importe"), kImporte));
    mensaje.fichero.Linea(registro.Linea());
  }
}

void EscribirSincd(const Mensaje& mensaje) {
  struct Ranura {
    std::string_view numero, valor, clase;
  };
  for (const auto& [numero, valor, clase] :
       {Ranura{"1", "Dto1", "TDto1"}, {"2", "Dto2", "TDto2"}}) {
    const auto descuento = mensaje.factura.GetOrEmpty<Currency>(valor);
    if (descuento == Currency()) continue;
    const auto tipo = mensaje.factura.Get<std::int16_t>(clase);
    Registro registro(kSincd);
    registro.Texto(kSincd["Tag"], "SINCD");
    registro.Texto(kSincd["Numero"], numero);
    registro.Texto(kSincd["Indicador"], "A");
    registro.Texto(kSincd["Secuencia"], numero);
    // The platform takes these two values with the decimal sign of the regional settings.
    const char decimal = mensaje.region.decimal;
    if (tipo == 0) {
      registro.Numero(kSincd["Porcentaje"], FormatearNumero(descuento, "0.0000", decimal));
    } else if (tipo == 1) {
      registro.Numero(kSincd["Importe"], FormatearNumero(descuento, kImporte, decimal));
    }
    registro.Texto(kSincd["Calificador"], "TD");
    mensaje.fichero.Linea(registro.Linea());
  }
}

namespace {

void EscribirSinciExento(EscritorTexto& fichero) {
  Registro registro(kSinci);
  registro.Texto(kSinci["Tag"], "SINCI");
  registro.Texto(kSinci["Secuencia"], "1");
  registro.Texto(kSinci["Impuesto"], "EXT");
  registro.Texto(kSinci["Tasa"], "000.00");
  registro.Texto(kSinci["Importe"], "0.000");
  registro.Texto(kSinci["Base"], "0.000");
  fichero.Linea(registro.Linea());
}

}  // namespace

void EscribirSinci(const Mensaje& mensaje) {
  if (!mensaje.empresa.AplicaIGIC() || mensaje.factura.GetOrEmpty<bool>("IntraCom")) {
    EscribirSinciExento(mensaje.fichero);
    return;
  }
  const auto impuestos = mensaje.conexion.Open(ConsultaImpuestos(mensaje.clave));
  const Fila impuesto(*impuestos);
  for (int secuencia = 1; !impuestos->Eof(); ++secuencia, impuestos->MoveNext()) {
    const Currency tasa = mensaje.empresa.PorcentajeImpuesto(impuesto.Get<std::int16_t>("Tipo"));
    Registro registro(kSinci);
    registro.Texto(kSinci["Tag"], "SINCI");
    registro.Numero(kSinci["Secuencia"], std::to_string(secuencia));
    registro.Texto(kSinci["Impuesto"], "IGI");
    registro.Numero(kSinci["Tasa"], NumeroMensaje(tasa, "0.00"));
    registro.Numero(kSinci["Importe"], NumeroMensaje(impuesto.Get<Currency>("Importe"), kImporte));
    registro.Numero(kSinci["Base"], NumeroMensaje(impuesto.Get<Currency>("Base"), kImporte));
    mensaje.fichero.Linea(registro.Linea());
  }
}

}  // namespace kvraedi::invoic
