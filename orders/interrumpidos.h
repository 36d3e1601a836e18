#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// The name beside its own that a file has from the moment when it is taken out of its folder until
/// the transaction that takes it in has ended. No run takes in a file of such a name.
std::filesystem::path RutaLeido(std::filesystem::path fichero);

/// A purchase that the transaction of a despatch advice has made; its number tells whether that was
/// committed.
struct CompraHecha {
  std::int16_t ejercicio = 0;
  std::int32_t codigo = 0;
  std::string albaran;
};

/// The folder of ORDERS for this program alone. A file that an interrupted run had taken out goes
/// when the database has its orders, else it comes back; the log tells it. Raises `Error`, also
/// when that cannot be known.
std::unique_ptr<FileHold> ReservarPedidos(const std::filesystem::path& carpeta);
/// Whether a file is still between its folder and the end of its transaction: making orders of what
/// is staged would take away what tells of it.
bool QuedanInterrumpidos(const std::filesystem::path& carpeta);

/// The reception root for this program alone, for despatch advices, in the same way.
std::unique_ptr<FileHold> ReservarAvisos(const std::filesystem::path& raiz);
/// Notes the file that is going to be taken out of Rx, with a purchase that it has become.
void AnotarAviso(FileHold& marca, const std::string& fichero, const CompraHecha& compra);

}  // namespace kvraedi
