#include "facturae/fecha_registro.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace kvraedi::facturae {
namespace {

constexpr int kMeses = 12;

bool EsCifra(char c) { return c >= '0' && c <= '9'; }
char Minuscula(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool EsLetra(char c) { return Minuscula(c) >= 'a' && Minuscula(c) <= 'z'; }

/// A month by the first three letters of its name; 0 when they are none's.
int MesLlamado(std::string_view nombre) {
  constexpr std::array<std::pair<std::string_view, int>, 16> kNombres = {{{"ene", 1},
                                                                          {"jan", 1},
                                                                          {"feb", 2},
                                                                          {"mar", 3},
                                                                          {"abr", 4},
                                                                          {"apr", 4},
                                                                          {"may", 5},
                                                                          {"jun", 6},
                                                                          {"jul", 7},
                                                                          {"ago", 8},
                                                                          {"aug", 8},
                                                                          {"sep", 9},
                                                                          {"oct", 10},
                                                                          {"nov", 11},
                                                                          {"dic", 12},
                                                                          {"dec", 12}}};
  const auto* const hallado = std::find_if(kNombres.begin(), kNombres.end(), [&](const auto& mes) {
    return nombre.substr(0, 3) == mes.first;
  });
  return hallado == kNombres.end() ? 0 : hallado->second;
}

/// Takes a date apart from its beginning on. Each step gives back whether it found what it wants.
class LectorFecha {
 public:
  explicit LectorFecha(std::string_view texto) : resto_(texto) {}

  std::optional<FechaHora> Leer() {
    Saltar(" ");
    if (!Fecha() || !Hora() || !Zona()) return std::nullopt;
    if (mes_ > kMeses && dia_ <= kMeses) std::swap(mes_, dia_);
    constexpr int kPrimerAnno = 1900;
    if (anno_ < kPrimerAnno) return std::nullopt;
    const auto dos = [](int valor) {
      const std::string cifras = std::to_string(valor);
      return cifras.size() < 2 ? "0" + cifras : cifras;
    };
    return FechaHora::Parse(std::to_string(anno_) + '-' + dos(mes_) + '-' + dos(dia_) + ' ' +
                            dos(hora_) + ':' + dos(minuto_) + ':' + dos(segundo_));
  }

 private:
  std::size_t Saltar(std::string_view marcas) {
    const std::size_t fin = std::min(resto_.find_first_not_of(marcas), resto_.size());
    resto_.remove_prefix(fin);
    return fin;
  }
  bool Marca(char marca) {
    const bool esta = !resto_.empty() && Minuscula(resto_.front()) == marca;
    if (esta) resto_.remove_prefix(1);
    return esta;
  }
  std::size_t Cifras() const {
    return static_cast<std::size_t>(std::find_if_not(resto_.begin(), resto_.end(), EsCifra) -
                                    resto_.begin());
  }
  bool Numero(std::size_t minimo, std::size_t maximo, int& valor) {
    const std::size_t cifras = std::min(Cifras(), maximo);
    if (cifras < minimo) return false;
    valor = 0;
    for (const char c : resto_.substr(0, cifras)) valor = valor * 10 + (c - '0');
    resto_.remove_prefix(cifras);
    return true;
  }
  std::string Palabra() {
    const auto* const fin = std::find_if_not(resto_.begin(), resto_.end(), EsLetra);
    std::string palabra(resto_.begin(), fin);
    std::transform(palabra.begin(), palabra.end(), palabra.begin(), Minuscula);
    resto_.remove_prefix(palabra.size());
    return palabra;
  }

  /// What stands between two parts: marks or blanks, and a "de" before or after a month's name.
  bool Separador() {
    if (Saltar(" /-.") == 0) return false;
    if (resto_.starts_with("de ") || resto_.starts_with("del ")) {
      Palabra();
      Saltar(" ");
    }
    return true;
  }
  bool Mes() {
    if (Cifras() > 0) return Numero(1, 2, mes_);
    mes_ = MesLlamado(Palabra());
    return mes_ != 0;
  }
  bool Anno() {
    constexpr int kSiglo = 2000;
    const std::size_t cifras = Cifras();
    if (cifras != 2 && cifras != 4) return false;
    Numero(2, 4, anno_);
    if (cifras == 2) anno_ += kSiglo;
    return true;
  }
  bool Fecha() {
    constexpr std::size_t kAnnoMesDia = 8, kConHora = 14;
    const std::size_t cifras = Cifras();
    if (cifras == kAnnoMesDia || cifras == kConHora) {
      return Numero(4, 4, anno_) && Numero(2, 2, mes_) && Numero(2, 2, dia_);
    }
    if (cifras != 4) return Numero(1, 2, dia_) && Separador() && Mes() && Separador() && Anno();
    return Anno() && Separador() && Mes() && Separador() && Numero(1, 2, dia_) && Cifras() == 0;
  }

  bool Hora() {
    Saltar(" ");
    if (resto_.size() > 1 && EsCifra(resto_[1])) Marca('t');
    if (Cifras() == 0) return true;
    const bool seguidas = Cifras() > 2;  // "hhmm[ss]"
    if (!Numero(seguidas ? 2 : 1, 2, hora_)) return false;
    if (seguidas || Saltar(":.h") > 0) {
      if (!Numero(2, 2, minuto_)) return false;
      if (seguidas ? Cifras() > 0 : Saltar(":.") > 0) {
        if (!Numero(2, 2, segundo_)) return false;
      }
      if (Saltar(".") > 0) Saltar("0123456789");
    }
    return Mitad();
  }
  /// "AM", "p.m.", "p. m.".
  bool Mitad() {
    constexpr int kMediodia = 12;
    Saltar(" ");
    const std::string_view antes = resto_;
    const bool tarde = Marca('p');
    if (!tarde && !Marca('a')) return true;
    Saltar(". ");
    if (!Marca('m')) {
      resto_ = antes;  // a zone that begins with such a letter
      return true;
    }
    Saltar(".");
    if (hora_ == kMediodia) hora_ = 0;
    if (tarde && hora_ < kMediodia) hora_ += kMediodia;
    return true;
  }
  /// "Z", "+01:00", "GMT+1", "[Europe/Madrid]" or nothing.
  bool Zona() {
    Saltar(" ");
    if (resto_.empty()) return true;
    const auto deZona = [](char c) {
      return EsLetra(c) || EsCifra(c) ||
             std::string_view(" +-:/_[]()").find(c) != std::string_view::npos;
    };
    return !EsCifra(resto_.front()) && std::all_of(resto_.begin(), resto_.end(), deZona);
  }

  std::string_view resto_;
  int anno_ = 0, mes_ = 0, dia_ = 0, hora_ = 0, minuto_ = 0, segundo_ = 0;
};

}  // namespace

std::optional<FechaHora> LeerFechaRegistro(std::string_view texto) {
  return LectorFecha(texto).Leer();
}

}  // namespace kvraedi::facturae
