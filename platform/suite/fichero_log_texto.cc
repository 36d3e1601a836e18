#include "platform/suite/fichero_log_texto.h"

#include <string>
#include <utility>

namespace kvraedi::suite {
namespace {

/// The moment at the beginning of a line, as text that orders like time.
std::string Momento(const FechaHora& momento) {
  std::string texto = momento.ToIso();
  if (!momento.HasTime()) texto += " 00:00:00";
  return texto;
}

void Agregar(std::string& linea, std::string_view texto) {
  linea += '\t';
  for (const char letra : texto) {
    linea += letra == '\n' || letra == '\r' || letra == '\t' ? ' ' : letra;
  }
}

}  // namespace

FicheroLogTexto::FicheroLogTexto(Entorno& entorno, std::filesystem::path fichero)
    : entorno_(entorno), ruta_(std::move(fichero)), fichero_(entorno.Append(ruta_)) {}

void FicheroLogTexto::Escribir(int nivel, std::string_view rutina, std::string_view texto) {
  std::string linea = Momento(entorno_.Now());
  Agregar(linea, std::to_string(nivel));
  Agregar(linea, rutina);
  Agregar(linea, texto);
  linea += "\r\n";
  fichero_->Write(linea);
}

void FicheroLogTexto::DescartarAnteriores(const FechaHora& momento) {
  const std::string primero = Momento(momento);
  const std::string bytes = entorno_.ReadFile(ruta_);
  std::size_t conservar = 0;
  while (conservar < bytes.size() && bytes.compare(conservar, primero.size(), primero) < 0) {
    const auto fin = bytes.find('\n', conservar);
    conservar = fin == std::string::npos ? bytes.size() : fin + 1;
  }
  if (conservar == 0) return;
  std::filesystem::path nueva = ruta_;
  nueva += ".nuevo";
  const auto escritor = entorno_.Create(nueva);
  escritor->Write(std::string_view(bytes).substr(conservar));
  escritor->Close();
  fichero_->Close();
  entorno_.Rename(nueva, ruta_);
  fichero_ = entorno_.Append(ruta_);
}

}  // namespace kvraedi::suite
