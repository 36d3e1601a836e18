#include "orders/escritor_campos.h"

#include <span>

#include "frame/codigo1252.h"
#include "frame/puertos.h"

namespace kvraedi {

EscritorCampos::EscritorCampos(const std::filesystem::path& fichero, char separador)
    : texto_(EntornoActual().Create(fichero)), separador_(separador) {}

void EscritorCampos::Registro(std::initializer_list<std::string_view> campos) {
  linea_.clear();
  const Saltos saltos = separador_ == kTabulador ? Saltos::kComoEstan : Saltos::kBlancos;
  for (const std::string_view campo : campos) {
    const std::size_t inicio = linea_.size();
    linea_.resize(inicio + campo.size());  // no character takes more bytes than it has in UTF-8
    linea_.resize(inicio + Escribir1252(campo, std::span(linea_).subspan(inicio), saltos).bytes);
    linea_ += separador_;
  }
  if (!linea_.empty()) linea_.pop_back();
  texto_.Linea(linea_);
}

}  // namespace kvraedi
