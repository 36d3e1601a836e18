#include <stdexcept>

#include "tests/host/cli/ejecucion.h"

namespace kvraedi::cli {
namespace {

class Lector {
 public:
  explicit Lector(const std::string& texto) : texto_(texto) {}

  std::vector<Objeto> Lista() {
    std::vector<Objeto> lista;
    Pedir('[');
    if (!Toma(']')) {
      do {
        lista.push_back(Uno());
      } while (Toma(','));
      Pedir(']');
    }
    Blancos();
    if (lugar_ != texto_.size()) Falla();
    return lista;
  }

 private:
  Objeto Uno() {
    Objeto objeto;
    Pedir('{');
    do {
      const std::string clave = Texto();
      Pedir(':');
      if (!objeto.emplace(clave, Texto()).second) Falla();
    } while (Toma(','));
    Pedir('}');
    return objeto;
  }

  std::string Texto() {
    std::string texto;
    Pedir('"');
    for (char c = Siguiente(); c != '"'; c = Siguiente()) {
      if (static_cast<unsigned char>(c) < ' ') Falla();
      texto += c == '\\' ? Escape() : c;
    }
    return texto;
  }

  char Escape() {
    const char c = Siguiente();
    if (c == '"' || c == '\\') return c;
    if (c != 'u') Falla();
    std::string cifras;
    while (cifras.size() < 4) cifras += Siguiente();
    return static_cast<char>(std::stoi(cifras, nullptr, 16));
  }

  char Siguiente() {
    if (lugar_ == texto_.size()) Falla();
    return texto_[lugar_++];
  }
  void Blancos() {
    while (lugar_ < texto_.size() && (texto_[lugar_] == ' ' || texto_[lugar_] == '\n')) ++lugar_;
  }
  bool Toma(char c) {
    Blancos();
    if (lugar_ == texto_.size() || texto_[lugar_] != c) return false;
    ++lugar_;
    return true;
  }
  void Pedir(char c) {
    if (!Toma(c)) Falla();
  }
  [[noreturn]] void Falla() const {
    throw std::runtime_error("bad JSON at " + std::to_string(lugar_));
  }

  const std::string& texto_;
  std::size_t lugar_ = 0;
};

}  // namespace

std::vector<Objeto> LeerJson(const std::string& texto) { return Lector(texto).Lista(); }

}  // namespace kvraedi::cli
