#pragma once

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "kvraedi/entorno.h"

namespace kvraedi {

// A mark is a file that a program holds while it does what must not be left half done, and into
// which it writes how far it has come. A mark that nobody holds was left by an interruption.

/// What a mark tells: lines "clave=valor", for programs and people.
class Notas {
 public:
  explicit Notas(std::string texto) : texto_(std::move(texto)) {}
  /// The last value noted; "" when there is none.
  std::string operator[](std::string_view clave) const;

 private:
  std::string texto_;
};

/// Puts right what the interruption left that a mark tells of. When it raises, the mark stays.
using AtenderInterrupcion = std::function<void(const Notas&)>;

/// How long a folder is waited for that another terminal is working at.
inline constexpr std::chrono::seconds kEsperaCarpeta{60};
/// How long a single thing is: another program may be looking whether its mark was left.
inline constexpr std::chrono::milliseconds kEsperaBreve{250};

/// Takes what `fichero` stands for, for this terminal alone, until the object goes. While another
/// one has it, it raises `que` with that terminal's name behind it: "La factura 1/5 la está
/// enviando" becomes "La factura 1/5 la está enviando el terminal CAJA2 (proceso 4711)". A mark
/// that an interruption left there is attended to first.
std::unique_ptr<FileHold> Reservar(Entorno& entorno, const std::filesystem::path& fichero,
                                   const std::string& que, std::chrono::milliseconds espera,
                                   const AtenderInterrupcion& atender = {});

/// Adds to a mark; what it tells is on the disk when this returns.
void Anotar(FileHold& marca,
            std::initializer_list<std::pair<std::string_view, std::string_view>> notas);

/// Attends to the marks of a folder that interruptions left, of those with names that begin and end
/// so. Where `atender` raises, the mark stays.
void AtenderInterrupciones(Entorno& entorno, const std::filesystem::path& carpeta,
                           std::string_view inicio, std::string_view final,
                           const AtenderInterrupcion& atender);

/// Raises that another terminal has sent what the list showed as pending: "La factura 1/5".
[[noreturn]] void ThrowYaEnviada(const std::string& que);

}  // namespace kvraedi
