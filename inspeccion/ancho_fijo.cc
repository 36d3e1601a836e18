#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "frame/codigo1252.h"
#include "frame/recortar.h"
#include "inspeccion/lectura.h"
#include "inspeccion/reparos.h"
#include "seres/registros_coacsu.h"
#include "seres/registros_invoic.h"
#include "seres/registros_recibidos.h"

namespace kvraedi::inspeccion {
namespace {

constexpr std::size_t kAnchoTag = recibida::kAnchoTag;

struct RegistroFijo {
  std::string_view tag;
  std::span<const Campo> campos;
  std::array<std::string_view, 4> obligatorios{};
};

constexpr RegistroFijo kInvoic[] = {
    {"RECTL", invoic::kRectl.Campos(), {"Emisor", "Receptor"}},
    {"SINCC", invoic::kSincc.Campos(), {"TipoDocumento", "Numero", "Fecha", "Total"}},
    {"SINCP", invoic::kSincp.Campos(), {"Calificador", "Gln", "Nombre1"}},
    {"SINCT", invoic::kTexto.Campos()},
    {"SINCV", invoic::kSincv.Campos(), {"FechaVto", "Importe"}},
    {"SINCD", invoic::kSincd.Campos(), {"Indicador"}},
    {"SINCL", invoic::kSincl.Campos(), {"Linea"}},
    {"SINCE", invoic::kSince.Campos(), {"Indicador"}},
    {"SINCU", invoic::kTexto.Campos()},
    {"SINCI", invoic::kSinci.Campos(), {"Impuesto", "Tasa", "Base"}},
};
/// The line of an invoice of another program.
constexpr RegistroFijo kSinclRecibida = {"SINCL", recibida::kSincl.Campos(), {"Linea"}};

constexpr ReglaRegistro kOrdenInvoic[] = {
    {"RECTL", -1, 8, 0, true}, {"SINCC", 0, 0, 1, true}, {"SINCP", 1, 2, 2, true},
    {"SINCT", 1, 3, 3},        {"SINCV", 1, 4, 4},       {"SINCD", 1, 5, 5},
    {"SINCL", 1, 7, 6, true},  {"SINCE", 6, 7, 7},       {"SINCU", 1, 7, 6},
    {"SINCI", 1, 8, 8},
};

constexpr RegistroFijo kCoacsu[] = {
    {"RECTL", invoic::kRectl.Campos()},
    {"SCOAC", coacsu::kScoac.Campos(), {"Clase", "FechaInicio", "FechaFin", "Total"}},
    {"SCOAT", coacsu::kScoat.Campos()},
    {"SCOAP", coacsu::kScoap.Campos(), {"Calificador", "Nombre"}},
    {"SCOAD", coacsu::kScoad.Campos()},
    {"SCOAL", coacsu::kScoal.Campos(), {"Albaran", "Fecha"}},
    {"SCOAQ", coacsu::kScoaq.Campos(), {"Calificador", "Nombre"}},
    {"SCOAA", coacsu::kScoaa.Campos()},
};

constexpr ReglaRegistro kOrdenCoacsu[] = {
    {"RECTL", -1, 7, 0, true}, {"SCOAC", 0, 7, 1, true}, {"SCOAT", 1, 1, 2, true},
    {"SCOAP", 1, 2, 3, true},  {"SCOAD", 3, 3, 4},       {"SCOAL", 3, 7, 5},
    {"SCOAQ", 5, 5, 6},        {"SCOAA", 6, 7, 7},
};

/// What a value has to be follows from the field's name and from how it stands.
std::string Reparo(const Campo& campo, std::string_view valor) {
  const std::string_view nombre = campo.nombre;
  if (nombre == "Gln" || nombre == "Emisor" || nombre == "Receptor") return ReparoGln(valor);
  if (nombre.starts_with("Fecha") || nombre == "Vencimiento" || nombre == "Hoy" ||
      nombre == "Momento") {
    return std::string(ReparoFecha(valor));
  }
  return campo.alineacion == Der ? std::string(ReparoNumero(valor)) : std::string();
}

class LecturaFija : public Lectura {
 public:
  LecturaFija(LectorTexto& lector, const ReceptorCampos& recibir,
              std::span<const RegistroFijo> registros, std::span<const ReglaRegistro> reglas)
      : Lectura(lector, recibir, reglas), lector_(lector), registros_(registros) {}

  void Leer() {
    do {
      Linea(lector_.Linea());
    } while (lector_.Siguiente());
    Terminar();
  }

 private:
  void Linea(std::string_view linea);
  const RegistroFijo* Disposicion(std::string_view linea) const;
  void Entregar(std::string_view linea, const RegistroFijo& registro);
  void Entregar(std::string_view trozo, const Campo& campo, std::size_t posicion, bool exigido);

  LectorTexto& lector_;
  std::span<const RegistroFijo> registros_;
};

/// Amounts of other programs stand elsewhere in a line: two columns behind, and wider.
bool EsLineaRecibida(std::string_view linea) {
  constexpr Campo kNeto = invoic::kSincl["Neto"];
  constexpr std::size_t kFin = kNeto.posicion + kNeto.ancho - 1;
  return linea.size() > kFin + 1 && !Recortar(linea.substr(kFin, recibida::kHolguraSincl)).empty();
}

const RegistroFijo* LecturaFija::Disposicion(std::string_view linea) const {
  if (Tag() == "SINCL" && EsLineaRecibida(linea)) return &kSinclRecibida;
  for (const RegistroFijo& registro : registros_) {
    if (registro.tag == Tag()) return &registro;
  }
  return nullptr;
}

void LecturaFija::Linea(std::string_view linea) {
  Empezar(Leer1252(Recortar(linea.substr(0, kAnchoTag))));
  if (const RegistroFijo* const registro = Disposicion(linea)) return Entregar(linea, *registro);
  if (linea.size() <= kAnchoTag) return;
  const std::string resto = Leer1252(Recortar(linea.substr(kAnchoTag)));
  Decir({}, kAnchoTag + 1, linea.size() - kAnchoTag, resto, {});
}

void LecturaFija::Entregar(std::string_view linea, const RegistroFijo& registro) {
  const Campo& ultimo = registro.campos.back();
  const std::size_t ancho = ultimo.posicion + ultimo.ancho - 1;
  // A summary without a means of payment goes without that field.
  constexpr Campo kMedioPago = coacsu::kScoac["MedioPago"];
  const bool sinMedioPago = Tag() == "SCOAC" && linea.size() == ancho - kMedioPago.ancho;
  std::size_t menos = 0;
  for (const Campo& campo : registro.campos.subspan(1)) {
    if (sinMedioPago && campo.nombre == kMedioPago.nombre) {
      menos = campo.ancho;
      continue;
    }
    const std::size_t posicion = campo.posicion - menos;
    const bool exigido = std::find(registro.obligatorios.begin(), registro.obligatorios.end(),
                                   campo.nombre) != registro.obligatorios.end();
    const bool esta = posicion <= linea.size();
    Entregar(esta ? linea.substr(posicion - 1, campo.ancho) : "", campo, posicion,
             exigido && !campo.nombre.empty());
  }
  if (linea.size() <= ancho) return;
  const std::string resto = Leer1252(Recortar(linea.substr(ancho)));
  if (!resto.empty()) Decir({}, ancho + 1, linea.size() - ancho, resto, "sobra en el registro");
}

void LecturaFija::Entregar(std::string_view trozo, const Campo& campo, std::size_t posicion,
                           bool exigido) {
  const std::string valor = Leer1252(Recortar(trozo));
  if (valor.empty()) {
    if (exigido) Decir(campo.nombre, posicion, campo.ancho, {}, "falta");
    return;
  }
  std::string reparo = Reparo(campo, valor);
  if (!campo.nombre.empty() && trozo.size() < campo.ancho && reparo.empty() &&
      campo.alineacion == Der) {
    reparo = "el registro se acaba dentro del campo";
  }
  Decir(campo.nombre, posicion, campo.ancho, valor, reparo);
}

}  // namespace

void RecorrerInvoic(LectorTexto& lector, const ReceptorCampos& recibir) {
  LecturaFija(lector, recibir, kInvoic, kOrdenInvoic).Leer();
}

void RecorrerCoacsu(LectorTexto& lector, const ReceptorCampos& recibir) {
  LecturaFija(lector, recibir, kCoacsu, kOrdenCoacsu).Leer();
}

}  // namespace kvraedi::inspeccion
