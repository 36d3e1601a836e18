#include "inspeccion/lectura.h"

#include <utility>

namespace kvraedi::inspeccion {

void Lectura::DecirFaltas() {
  for (const std::string_view tag : secuencia_.Faltan()) {
    recibir_({.registro = tag, .reparo = "falta en el mensaje"});
  }
}

void Lectura::Empezar(std::string tag) {
  tag_ = std::move(tag);
  if (secuencia_.Empieza(tag_)) DecirFaltas();
  const std::string_view reparo = secuencia_.Reparo(tag_);
  if (!reparo.empty()) Reparar(reparo);
}

void Lectura::Decir(std::string_view nombre, std::size_t posicion, std::size_t ancho,
                    std::string_view valor, std::string_view reparo) {
  recibir_({lector_.Numero(), tag_, nombre, posicion, ancho, valor, reparo});
}

}  // namespace kvraedi::inspeccion
