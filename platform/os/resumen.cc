#include "platform/os/resumen.h"

#include <openssl/evp.h>

#include <array>
#include <memory>
#include <span>
#include <string_view>

#include "kvraedi/error.h"

namespace kvraedi::os {
namespace {

void Comprobar(int resultado) {
  if (resultado != 1) throw Error(kErrorFile, "kvraedi", "No se puede calcular el resumen SHA-256");
}

std::string Hexadecimal(std::span<const unsigned char> bytes) {
  constexpr std::string_view kCifras = "0123456789abcdef";
  constexpr unsigned kMedioByte = 4;
  std::string texto;
  for (const unsigned char byte : bytes) {
    texto += kCifras[byte >> kMedioByte];
    texto += kCifras[byte % kCifras.size()];
  }
  return texto;
}

}  // namespace

FileDigest Resumir(FileReader& fichero) {
  constexpr std::size_t kBloque = std::size_t{64} * 1024;
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> contexto(EVP_MD_CTX_new(),
                                                                         &EVP_MD_CTX_free);
  Comprobar(EVP_DigestInit_ex(contexto.get(), EVP_sha256(), nullptr));
  FileDigest resumen;
  std::string bloque(kBloque, '\0');
  while (const std::size_t leidos = fichero.Read(bloque)) {
    Comprobar(EVP_DigestUpdate(contexto.get(), bloque.data(), leidos));
    resumen.bytes += static_cast<std::int64_t>(leidos);
  }
  std::array<unsigned char, EVP_MAX_MD_SIZE> bytes{};
  unsigned longitud = 0;
  Comprobar(EVP_DigestFinal_ex(contexto.get(), bytes.data(), &longitud));
  resumen.sha256 = Hexadecimal({bytes.data(), longitud});
  return resumen;
}

}  // namespace kvraedi::os
