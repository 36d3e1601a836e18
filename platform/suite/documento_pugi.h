#pragma once

#include <filesystem>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "kvraedi/suite.h"

namespace kvraedi::suite {

/// The XML document builder on pugixml: a handle is the address of the library's own node.
class DocumentoPugi : public DocumentoXml {
 public:
  explicit DocumentoPugi(Entorno& entorno) : entorno_(entorno) {}

  void Nuevo() override { documento_.reset(); }
  NodoXml CrearRaiz(std::string_view nombre) override;
  void AtributoRaiz(std::string_view nombre, std::string_view valor) override;
  NodoXml Elemento(NodoXml padre, std::string_view nombre, std::string_view texto) override;
  void ElementoTexto(NodoXml padre, std::string_view nombre, std::string_view texto) override {
    Elemento(padre, nombre, texto);
  }
  void Guardar(const std::filesystem::path& fichero, AccesoFichero acceso) override;
  void Cargar(const std::filesystem::path& fichero) override;
  std::string LeerTexto(std::string_view nombre) const override;
  void Recorrer(const std::function<void(std::string_view ruta, std::string_view texto)>& recibir)
      const override;

 private:
  Entorno& entorno_;
  pugi::xml_document documento_;
};

}  // namespace kvraedi::suite
