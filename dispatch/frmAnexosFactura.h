#pragma once

#include <filesystem>

#include "dispatch/documento_anexos.h"
#include "kvraedi/ui/form.h"

namespace kvraedi {

/// The attachments of one document: the list of them, adding a file, removing and viewing one.
class frmAnexosFactura : public ui::Form {
 public:
  explicit frmAnexosFactura(const facturae::ClaveDocumento& documento);

  /// Fills the grid.
  void Cargar();

  /// True once the screen was closed with its exit button; the number of attachments is that of
  /// this moment. Not so when the list could not be loaded: the number is then unknown.
  bool Salida() const { return salida_; }
  int NumeroAnexos() const { return numeroAnexos_; }

 protected:
  void OnLoad() override;

 private:
  void Disponer();
  void Escuchar();

  void cmdExaminar_Click();
  void cmdAnexar_Click();
  void cmdEliminarAnexo_Click();
  void cmdVer_Click();
  void cmdSalir_Click();
  bool AnexoValido();
  std::filesystem::path RutaMarca() const;
  void AvisarInterrumpido();
  void Anexar();

  const facturae::ClaveDocumento documento_;
  bool listaFiel_ = false;  // the list shows what is stored
  bool salida_ = false;
  int numeroAnexos_ = 0;

  ui::Label lblRuta{*this, "lblRuta", "Documento:"};
  ui::TextBox txtRuta{*this, "txtRuta"};
  ui::Button cmdExaminar{*this, "cmdExaminar", "E&xaminar"};
  ui::Label lblDescripcion{*this, "lblDescripcion", "Descripción:"};
  ui::TextBox txtDescripcion{*this, "txtDescripcion"};
  ui::Button cmdAnexar{*this, "cmdAnexar", "&Anexar"};
  ui::Grid vsDocs{*this, "vsDocs"};
  ui::Button cmdEliminarAnexo{*this, "cmdEliminarAnexo", "&Eliminar"};
  ui::Button cmdVer{*this, "cmdVer", "&Ver"};
  ui::Button cmdSalir{*this, "cmdSalir", "&Salir"};
};

}  // namespace kvraedi
