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
    if ((texto_ >> std::ws).peek() == ']') {
      Pedir(']');
    } else {
      do {
        lista.push_back(Uno());
      } while (Sigue(']'));
    }
    if (texto_ >> std::ws; texto_.peek() != std::istream::traits_type::eof()) Falla();
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
    } while (Sigue('}'));
    return objeto;
  }
  std::string Texto() {
    std::string texto;
    Pedir('"');
    for (int c = texto_.get(); c != '"'; c = texto_.get()) {
      if (c < ' ') Falla();  // the end of the text too
      texto += static_cast<char>(c == '\\' ? Escape() : c);
    }
    return texto;
  }
  int Escape() {
    const int c = texto_.get();
    if (c == '"' || c == '\\') return c;
    if (c != 'u') Falla();
    std::string cifras(4, '0');
    texto_.read(cifras.data(), 4);
    return std::stoi(cifras, nullptr, 16);
  }
  char Siguiente() {
    char c = '\0';
    texto_ >> c;
    return c;
  }
  /// True when another element follows, false at the end of all.
  bool Sigue(char fin) {
    const char c = Siguiente();
    if (c != ',' && c != fin) Falla();
    return c == ',';
  }
  void Pedir(char c) {
    if (Siguiente() != c) Falla();
  }
  [[noreturn]] void Falla() { throw std::runtime_error("bad JSON before " + texto_.str()); }

  std::istringstream texto_;
};

}  // namespace

std::vector<Objeto> LeerJson(const std::string& texto) { return Lector(texto).Lista(); }

}  // namespace kvraedi::cli
