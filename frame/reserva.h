#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// How long a folder is waited for that another terminal is working at.
inline constexpr std::chrono::seconds kEsperaCarpeta{60};

/// Takes what `fichero` stands for, for this terminal alone, until the object goes. While another
/// one has it, it raises `que` with that terminal's name behind it: "La factura 1/5 la está
/// enviando" becomes "La factura 1/5 la está enviando el terminal CAJA2 (proceso 4711)".
std::unique_ptr<FileHold> Reservar(Entorno& entorno, const std::filesystem::path& fichero,
                                   const std::string& que, std::chrono::milliseconds espera = {});

/// Raises that another terminal has sent what the list showed as pending: "La factura 1/5".
[[noreturn]] void ThrowYaEnviada(const std::string& que);

}  // namespace kvraedi
