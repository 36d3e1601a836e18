#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/entorno.h"

namespace kvraedi::os {

// The file operations of Entorno on a POSIX system. Every call is checked; a failure raises
// kErrorFile.

bool ExisteCarpeta(const std::filesystem::path& ruta);
bool ExisteFichero(const std::filesystem::path& ruta);
/// Bytes of a file, 0 when it is not there.
std::int64_t TamanoFichero(const std::filesystem::path& ruta);
void CrearCarpeta(const std::filesystem::path& ruta);
std::unique_ptr<FileWriter> CrearFichero(const std::filesystem::path& ruta);
std::unique_ptr<FileWriter> CrearFicheroPrivado(const std::filesystem::path& ruta);
std::string LeerFichero(const std::filesystem::path& ruta);
std::unique_ptr<FileReader> AbrirParaLeer(const std::filesystem::path& ruta);
std::vector<std::string> ListarFicheros(const std::filesystem::path& carpeta,
                                        std::string_view final);
std::vector<std::string> ListarCarpetas(const std::filesystem::path& carpeta);
std::unique_ptr<FileWriter> CrearSiNoExiste(const std::filesystem::path& ruta);
std::unique_ptr<FileWriter> AbrirAlFinal(const std::filesystem::path& ruta);
void CopiarFichero(const std::filesystem::path& origen, const std::filesystem::path& destino);
void RenombrarFichero(const std::filesystem::path& origen, const std::filesystem::path& destino);
void BorrarFichero(const std::filesystem::path& ruta);
/// Cuts off what it has beyond that length; on the disk when it returns.
void AcortarFichero(const std::filesystem::path& ruta, std::int64_t longitud);
/// Brings a new name to the disk where the system lets a folder be synchronised. The file has its
/// name already, so that a refusal is no failure of what was asked for.
void SincronizarCarpetaDe(const std::filesystem::path& ruta);

}  // namespace kvraedi::os
