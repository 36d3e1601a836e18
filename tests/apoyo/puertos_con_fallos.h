#pragma once

#include <memory>
#include <utility>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/suite.h"
#include "kvraedi/ui/toolkit.h"
#include "tests/apoyo/fallos.h"

namespace kvraedi {

// Ports of which each call is a step that may fail.

class SuiteConFallos : public SuiteWrapper {
 public:
  using SuiteWrapper::SuiteWrapper;
  Fallo fallo;

  std::unique_ptr<ui::PickerSource> Clientes(std::shared_ptr<Connection> conexion,
                                             std::shared_ptr<Empresa> empresa) override {
    fallo.Paso("Suite averiada");
    return SuiteWrapper::Clientes(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<ui::PickerSource> Cadenas(std::shared_ptr<Connection> conexion,
                                            std::shared_ptr<Empresa> empresa) override {
    fallo.Paso("Suite averiada");
    return SuiteWrapper::Cadenas(std::move(conexion), std::move(empresa));
  }
  std::unique_ptr<DocumentoXml> NuevoDocumentoXml(Entorno& entorno) override {
    fallo.Paso("Suite averiada");
    return SuiteWrapper::NuevoDocumentoXml(entorno);
  }
  std::unique_ptr<ImpresionFactura> NuevaImpresionFactura(
      Entorno& entorno, std::shared_ptr<Connection> conexion,
      std::shared_ptr<Empresa> empresa) override {
    fallo.Paso("Suite averiada");
    return SuiteWrapper::NuevaImpresionFactura(entorno, std::move(conexion), std::move(empresa));
  }
};

class EmpresaConFallos : public EmpresaWrapper {
 public:
  using EmpresaWrapper::EmpresaWrapper;
  mutable Fallo fallo;

  std::int16_t CodigoEmpresa() const override { return Paso(EmpresaWrapper::CodigoEmpresa()); }
  std::int16_t EmpresaClientes() const override { return Paso(EmpresaWrapper::EmpresaClientes()); }
  bool AplicaIGIC() const override { return Paso(EmpresaWrapper::AplicaIGIC()); }
  Currency PorcentajeImpuesto(std::int16_t codigo) const override {
    return Paso(EmpresaWrapper::PorcentajeImpuesto(codigo));
  }
  Valor Parametro(std::string_view nombre) const override {
    return Paso(EmpresaWrapper::Parametro(nombre));
  }

 private:
  template <class T>
  T Paso(T valor) const {
    fallo.Paso("Empresa averiada");
    return valor;
  }
};

/// What brings the screen back to rest, the usual pointer and hiding a window, does not fail.
class ToolkitConFallos : public ui::ToolkitWrapper {
 public:
  using ToolkitWrapper::ToolkitWrapper;
  Fallo fallo;

  ui::Answer Show(const ui::MessageBox& box) override {
    fallo.Paso("Pantalla averiada");
    return ToolkitWrapper::Show(box);
  }
  void Open(ui::Form& form, ui::ShowMode mode, ui::Form* owner) override {
    fallo.Paso("Pantalla averiada");
    ToolkitWrapper::Open(form, mode, owner);
  }
  void Close(ui::Form& form) override {
    ToolkitWrapper::Close(form);
    fallo.Paso("Pantalla averiada");
  }
  void Repaint(ui::Form& form) override {
    fallo.Paso("Pantalla averiada");
    ToolkitWrapper::Repaint(form);
  }
  void SetPointer(ui::Pointer pointer) override {
    if (pointer != ui::Pointer::kDefault) fallo.Paso("Pantalla averiada");
    ToolkitWrapper::SetPointer(pointer);
  }
  int TextWidth(const ui::Font& font, std::string_view text) override {
    fallo.Paso("Pantalla averiada");
    return ToolkitWrapper::TextWidth(font, text);
  }
};

/// A database whose k-th step in the rows of a SELECT fails.
class ConexionDeFilasConFallos : public ConnectionWrapper {
 public:
  using ConnectionWrapper::ConnectionWrapper;
  Fallo fallo;

  std::unique_ptr<Recordset> Open(std::string_view sql) override {
    return std::make_unique<Filas>(fallo, ConnectionWrapper::Open(sql));
  }

 private:
  class Filas : public RecordsetWrapper {
   public:
    Filas(Fallo& fallo, std::unique_ptr<Recordset> real)
        : RecordsetWrapper(std::move(real)), fallo_(fallo) {}
    void MoveNext() override {
      fallo_.Paso("Conexión perdida");
      RecordsetWrapper::MoveNext();
    }
    int Field(std::string_view name) const override {
      fallo_.Paso("Conexión perdida");
      return RecordsetWrapper::Field(name);
    }

   protected:
    std::int64_t ReadInteger(int field) const override {
      fallo_.Paso("Conexión perdida");
      return RecordsetWrapper::ReadInteger(field);
    }
    std::string_view ReadText(int field) const override {
      fallo_.Paso("Conexión perdida");
      return RecordsetWrapper::ReadText(field);
    }

   private:
    Fallo& fallo_;
  };
};

/// A database whose amounts over 999 are beyond anything, and which may be lost while reading them.
class ImportesAbsurdos : public ConnectionWrapper {
 public:
  using ConnectionWrapper::ConnectionWrapper;
  std::unique_ptr<Recordset> Open(std::string_view sql) override {
    return std::make_unique<Filas>(perdida, ConnectionWrapper::Open(sql));
  }
  bool perdida = false;

 private:
  class Filas : public RecordsetWrapper {
   public:
    Filas(bool perdida, std::unique_ptr<Recordset> real)
        : RecordsetWrapper(std::move(real)), perdida_(perdida) {}

   protected:
    Currency ReadCurrency(int field) const override {
      if (perdida_) throw Error(kErrorDatabase, "prueba", "Conexión perdida");
      const Currency importe = RecordsetWrapper::ReadCurrency(field);
      if (importe > Currency::FromInteger(999)) ThrowOverflow();
      return importe;
    }

   private:
    bool perdida_;
  };
};

}  // namespace kvraedi
