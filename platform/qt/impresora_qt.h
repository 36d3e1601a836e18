#pragma once

#include <memory>

#include "kvraedi/impresion.h"

namespace kvraedi {

/// Puts documents on paper with Qt. Where the program has no QApplication when something is to be
/// printed it makes one of its own, without a screen, that lives as long as this object: such a
/// program must not make another one meanwhile.
class ImpresoraQt : public Impresora {
 public:
  ImpresoraQt();
  ~ImpresoraQt() override;
  ImpresoraQt(const ImpresoraQt&) = delete;
  ImpresoraQt& operator=(const ImpresoraQt&) = delete;

  /// The same document gives the same bytes: they carry no date.
  std::string Pdf(const DocumentoImprimible& documento) override;
  void Imprimir(const DocumentoImprimible& documento) override;

 private:
  struct Aplicacion;
  void AsegurarAplicacion();

  std::unique_ptr<Aplicacion> aplicacion_;
};

}  // namespace kvraedi
