#pragma once

#include <filesystem>
#include <string>

#include "kvraedi/entorno.h"
#include "orders/interrumpidos.h"

namespace kvraedi::desadv {

/// A received file on its way through the folders Rx, OK and Error below the reception root.
/// Operations raise `Error`.
class Fichero {
 public:
  Fichero(Entorno& entorno, std::filesystem::path raiz, std::string nombre);

  /// Raises when the name leads out of the folder or is longer than the staging tables keep.
  void ComprobarNombre() const;
  const std::string& Nombre() const { return nombre_; }
  std::filesystem::path EnRx() const { return Ruta("Rx"); }

  void CopiarAOk();
  void BorrarDeRx() { entorno_.Delete(EnRx()); }
  /// Takes it out of Rx; until Soltar or Retirar it stays beside its place.
  void SacarDeRx() { entorno_.Rename(EnRx(), RutaLeido(EnRx())); }
  void Soltar() { entorno_.Delete(RutaLeido(EnRx())); }

  /// Whether it is in Rx or, through CopiarAOk, in OK.
  bool Esta() const;
  void CopiarAError();
  /// Deletes it from OK, if CopiarAOk put it there, and from Rx or beside its place.
  void Retirar();

 private:
  std::filesystem::path Ruta(const char* carpeta) const;
  bool EstaEnOk() const { return enOk_ && entorno_.FileExists(Ruta("OK")); }
  void Copiar(const std::filesystem::path& origen, const char* carpeta);

  Entorno& entorno_;
  std::filesystem::path raiz_;
  std::string nombre_;
  bool enOk_ = false;
};

}  // namespace kvraedi::desadv
