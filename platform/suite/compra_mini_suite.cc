#include "platform/suite/compra_mini_suite.h"

#include <utility>

#include "kvraedi/error.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {

CompraMiniSuite::CompraMiniSuite(std::shared_ptr<Connection> conexion,
                                 std::shared_ptr<Empresa> empresa)
    : conexion_(std::move(conexion)), empresa_(std::move(empresa)) {}

void CompraMiniSuite::PonerCabecera(const CabeceraCompraMini& cabecera) { cabecera_ = cabecera; }

std::int32_t CompraMiniSuite::NuevoCodigo() {
  const auto rs = conexion_->Open(
      "SELECT ISNULL(MAX(Codigo), 0) + 1 AS Codigo FROM Compras_Mini WHERE Cod_Empresa = " +
      std::to_string(empresa_->CodigoEmpresa()) +
      " AND Cod_Ejercicio = " + std::to_string(cabecera_.ejercicio));
  codigo_ = rs->Get<std::int32_t>("Codigo");
  return codigo_;
}

void CompraMiniSuite::AgregarLinea(const LineaCompraMini& linea) { lineas_.push_back(linea); }

std::string CompraMiniSuite::Clave() const {
  return std::to_string(empresa_->CodigoEmpresa()) + ", " + std::to_string(cabecera_.ejercicio) +
         ", " + std::to_string(codigo_);
}

void CompraMiniSuite::Guardar() {
  if (codigo_ < 1) throw Error(kErrorItemNotFound, "CompraMini", "La compra no tiene código.");
  const std::string clave = Clave();
  conexion_->Execute(
      "INSERT INTO Compras_Mini (Cod_Empresa, Cod_Ejercicio, Codigo, Cod_Proveedor, Cod_Almacen,"
      " Fecha, Documento, Cod_Usuario) VALUES (" +
      clave + ", " + std::to_string(cabecera_.proveedor) + ", " +
      std::to_string(cabecera_.almacen) + ", " + Literal(cabecera_.fecha) + ", " +
      Literal(cabecera_.documento) + ", " + std::to_string(cabecera_.usuario) + ")");
  int numero = 0;
  for (const LineaCompraMini& linea : lineas_) {
    conexion_->Execute(
        "INSERT INTO Compras_Mini_Lineas (Cod_Empresa, Cod_Ejercicio, Codigo, Num_Linea,"
        " Cod_Articulo, Unidades, Lote_Caducidad, Lote_Numero) VALUES (" +
        clave + ", " + std::to_string(++numero) + ", " + std::to_string(linea.articulo) + ", " +
        Literal(linea.unidades) + ", " + Literal(linea.caducidad) + ", " + Literal(linea.lote) +
        ")");
  }
}

}  // namespace kvraedi::suite
