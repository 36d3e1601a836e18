#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kvraedi/compra_mini.h"
#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/entorno.h"
#include "kvraedi/export.h"
#include "kvraedi/fichero_log.h"
#include "kvraedi/impresion.h"
#include "kvraedi/informe.h"
#include "kvraedi/pedido_cliente.h"
#include "kvraedi/ui/controls.h"

namespace kvraedi {

/// Where a postal code leads to.
struct LugarPostal {
  std::string localidad;
  std::string provincia;
  std::string pais;  ///< the country's name; may be empty
};

/// An element of an XML document: a small handle, valid until its document is started afresh,
/// loaded or destroyed.
struct NodoXml {
  void* id = nullptr;
};

/// Who may read a file that is saved.
enum class AccesoFichero : std::uint8_t { kNormal, kSoloPropietario };

/// The suite's XML document builder: one document at a time. Texts are UTF-8; what is not a
/// character of XML is dropped from them. One thread.
class KVRAEDI_API DocumentoXml {
 public:
  virtual ~DocumentoXml();

  /// Empties the document.
  virtual void Nuevo() = 0;
  virtual NodoXml CrearRaiz(std::string_view nombre) = 0;
  /// Sets an attribute of the root; attributes keep the order in which they were first set.
  virtual void AtributoRaiz(std::string_view nombre, std::string_view valor) = 0;
  /// Adds an element behind the parent's last child; without text it is a container.
  virtual NodoXml Elemento(NodoXml padre, std::string_view nombre, std::string_view texto = {}) = 0;
  /// The same, where no handle is wanted.
  virtual void ElementoTexto(NodoXml padre, std::string_view nombre, std::string_view texto) = 0;
  /// Saves the document in UTF-8 with its declaration, one element a line. kNormal replaces what is
  /// there, kSoloPropietario raises. On failure the file may be there, incomplete.
  virtual void Guardar(const std::filesystem::path& fichero,
                       AccesoFichero acceso = AccesoFichero::kNormal) = 0;
  /// Reads a document; raises `Error` when the file cannot be read or holds no XML. The document
  /// is then empty.
  virtual void Cargar(const std::filesystem::path& fichero) = 0;
  /// Text of the first element of that name, "" when there is none.
  virtual std::string LeerTexto(std::string_view nombre) const = 0;
  /// Tells every element that holds no other, in the order of the document: its path below the root
  /// ("Parties/SellerParty/..."), without prefixes of name spaces, and its text. Both are valid
  /// during the call.
  virtual void Recorrer(
      const std::function<void(std::string_view ruta, std::string_view texto)>& recibir) const = 0;
};

/// The suite's own components, as far as this one calls them.
class KVRAEDI_API Suite {
 public:
  virtual ~Suite();

  /// Look-up of the customer picker: one code, the customer's. A whole number that is no customer's
  /// code gives that code as not valid.
  virtual std::unique_ptr<ui::PickerSource> Clientes(std::shared_ptr<Connection> conexion,
                                                     std::shared_ptr<Empresa> empresa) = 0;
  /// Look-up of the supplier picker, as that of customers.
  virtual std::unique_ptr<ui::PickerSource> Proveedores(std::shared_ptr<Connection> conexion,
                                                        std::shared_ptr<Empresa> empresa) = 0;
  /// Look-up of the chain picker: up to ten codes, one for each chain level; 0 is no choice.
  virtual std::unique_ptr<ui::PickerSource> Cadenas(std::shared_ptr<Connection> conexion,
                                                    std::shared_ptr<Empresa> empresa) = 0;
  /// Look-up of postal codes: the place of a code, given as a number, or nothing when the suite
  /// does not know it. The connection is used during the call only. Raises `Error`.
  virtual std::optional<LugarPostal> BuscarCodigoPostal(Connection& conexion,
                                                        std::int32_t codigo) = 0;
  /// A new, empty XML document builder; `entorno`, which must outlive it, saves and loads.
  virtual std::unique_ptr<DocumentoXml> NuevoDocumentoXml(Entorno& entorno) = 0;
  /// Opens a log file, made when it is not there. `entorno` must outlive the log. Raises `Error`.
  virtual std::unique_ptr<FicheroLog> AbrirLog(Entorno& entorno,
                                               const std::filesystem::path& fichero) = 0;
  /// The value of a key in a section of a settings file, without blanks around it; nothing when the
  /// file, the section or the key is missing. Names are compared without regard to case. Raises
  /// `Error` when the file cannot be read.
  virtual std::optional<std::string> LeerIni(Entorno& entorno, const std::filesystem::path& fichero,
                                             std::string_view seccion, std::string_view clave) = 0;
  /// A new, empty customer order of the current company.
  virtual std::unique_ptr<PedidoCliente> NuevoPedidoCliente(std::shared_ptr<Connection> conexion,
                                                            std::shared_ptr<Empresa> empresa) = 0;
  /// A new, empty purchase of the current company.
  virtual std::unique_ptr<CompraMini> NuevaCompraMini(std::shared_ptr<Connection> conexion,
                                                      std::shared_ptr<Empresa> empresa) = 0;
  /// Printing of invoices of a company. `entorno` must outlive the result. Raises `Error`.
  virtual std::unique_ptr<ImpresionFactura> NuevaImpresionFactura(
      Entorno& entorno, std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa) = 0;
  /// Opens a report file; its tables are read through the connection. `entorno` must outlive the
  /// result. Raises `Error`.
  virtual std::unique_ptr<Informe> AbrirInforme(Entorno& entorno,
                                                std::shared_ptr<Connection> conexion,
                                                const std::filesystem::path& fichero) = 0;
  /// What puts documents on paper; raises `Error` when this installation has none.
  virtual Impresora& ImpresoraActual() = 0;
};

/// Passes every call on: the base of suites that log, replace a component or fail on purpose.
class KVRAEDI_API SuiteWrapper : public Suite {
 public:
  /// `target` must outlive the wrapper.
  explicit SuiteWrapper(Suite& target) : target_(target) {}

  std::unique_ptr<ui::PickerSource> Clientes(std::shared_ptr<Connection> conexion,
                                             std::shared_ptr<Empresa> empresa) override {
    return target_.Clientes(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<ui::PickerSource> Proveedores(std::shared_ptr<Connection> conexion,
                                                std::shared_ptr<Empresa> empresa) override {
    return target_.Proveedores(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<ui::PickerSource> Cadenas(std::shared_ptr<Connection> conexion,
                                            std::shared_ptr<Empresa> empresa) override {
    return target_.Cadenas(std::move(conexion), std::move(empresa));
  }
  std::optional<LugarPostal> BuscarCodigoPostal(Connection& conexion,
                                                std::int32_t codigo) override {
    return target_.BuscarCodigoPostal(conexion, codigo);
  }
  std::unique_ptr<DocumentoXml> NuevoDocumentoXml(Entorno& entorno) override {
    return target_.NuevoDocumentoXml(entorno);
  }
  std::unique_ptr<FicheroLog> AbrirLog(Entorno& entorno,
                                       const std::filesystem::path& fichero) override {
    return target_.AbrirLog(entorno, fichero);
  }
  std::optional<std::string> LeerIni(Entorno& entorno, const std::filesystem::path& fichero,
                                     std::string_view seccion, std::string_view clave) override {
    return target_.LeerIni(entorno, fichero, seccion, clave);
  }
  std::unique_ptr<PedidoCliente> NuevoPedidoCliente(std::shared_ptr<Connection> conexion,
                                                    std::shared_ptr<Empresa> empresa) override {
    return target_.NuevoPedidoCliente(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<CompraMini> NuevaCompraMini(std::shared_ptr<Connection> conexion,
                                              std::shared_ptr<Empresa> empresa) override {
    return target_.NuevaCompraMini(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<ImpresionFactura> NuevaImpresionFactura(
      Entorno& entorno, std::shared_ptr<Connection> conexion,
      std::shared_ptr<Empresa> empresa) override {
    return target_.NuevaImpresionFactura(entorno, std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<Informe> AbrirInforme(Entorno& entorno, std::shared_ptr<Connection> conexion,
                                        const std::filesystem::path& fichero) override {
    return target_.AbrirInforme(entorno, std::move(conexion), fichero);
  }
  Impresora& ImpresoraActual() override { return target_.ImpresoraActual(); }

 private:
  Suite& target_;
};

}  // namespace kvraedi
