#include "bench/suelo_orders.h"

#include <charconv>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace kvraedi::bench {
namespace {

/// A record and its statement: how many fields it takes, which of them are numbers, and whether the
/// order and the bar code follow them.
struct Registro {
  const char* etiqueta;
  const char* sql;
  int campos;
  unsigned numeros;  // a bit a field, from 1
  bool deLinea;
};

constexpr Registro kRegistros[] = {
    {"DTM",
     "UPDATE EDI_PedidosClientes SET Fecha_Emision = ?, Fecha_Ini_Entrega = ?,"
     " Fecha_Fin_Entrega = ? WHERE Doc_Num = ?",
     3, 0, false},
    {"NADSU", "UPDATE EDI_PedidosClientes SET GLN_Proveedor = ? WHERE Doc_Num = ?", 1, 0, false},
    {"NADBY", "UPDATE EDI_PedidosClientes SET GLN_Cliente = ? WHERE Doc_Num = ?", 1, 0, false},
    {"NADDP", "UPDATE EDI_PedidosClientes SET GLN_ClienteEntrega = ? WHERE Doc_Num = ?", 1, 0,
     false},
    {"IMDLIN",
     "UPDATE EDI_PedidosClientes_Lineas SET Desc_Calificador = ?, Desc_Caracteristica = ?,"
     " Desc_Cod = ?, Descripcion = ? WHERE Doc_Num = ? AND Cod_Barras = ?",
     4, 0, true},
    {"QTYLIN",
     "UPDATE EDI_PedidosClientes_Lineas SET Cantidad_Calificador = ?, Cantidad = ?"
     " WHERE Doc_Num = ? AND Cod_Barras = ?",
     2, 0b100, true},
    {"MOALIN",
     "UPDATE EDI_PedidosClientes_Lineas SET Importe_Neto_Linea = ?"
     " WHERE Doc_Num = ? AND Cod_Barras = ?",
     1, 0b10, true},
    {"MOARES",
     "UPDATE EDI_PedidosClientes SET Importe_Neto = ?, Importe_Bruto = ?, Importe_Impuestos = ?,"
     " Importe_Pagar = ? WHERE Doc_Num = ?",
     4, 0b11110, false},
};

struct Preparada {
  Preparada(const BaseSuelo& base, const Registro& de) : registro(de), sentencia(base, de.sql) {}
  const Registro& registro;
  SentenciaSuelo sentencia;
};

using Campos = std::vector<std::string_view>;

void Partir(std::string_view linea, Campos& campos) {
  campos.clear();
  for (;;) {
    const auto barra = linea.find('|');
    campos.push_back(linea.substr(0, barra));
    if (barra == std::string_view::npos) return;
    linea.remove_prefix(barra + 1);
  }
}

class Lectura {
 public:
  Lectura(const BaseSuelo& base, std::string nombre)
      : nombre_(std::move(nombre)),
        existe_(base, "SELECT COUNT(*) FROM EDI_PedidosClientes WHERE Doc_Num = ?"),
        ord_(base,
             "INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, Doc_Tipo, Doc_Funcion, Hora)"
             " VALUES (?, ?, ?, ?, '2026-05-15 10:45:30')"),
        lin_(base,
             "INSERT INTO EDI_PedidosClientes_Lineas (Fichero, Doc_Num, Cod_Barras, Tipo_EAN,"
             " Num_Linea, Hora) VALUES (?, ?, ?, ?, ?, '2026-05-15 10:45:30')") {
    for (const Registro& registro : kRegistros) {
      sentencias_.try_emplace(registro.etiqueta, base, registro);
    }
  }

  void Tomar(std::string_view linea) {
    Partir(linea, campos_);
    if (campos_[0] == "ORD") {
      pedido_ = campos_[1];
      Textos(existe_, {pedido_});
      if (existe_.Paso() && existe_.Real(0) != 0) throw std::runtime_error("an order twice");
      existe_.Reiniciar();
      Textos(ord_, {nombre_, pedido_, campos_[2], campos_[3]});
      ord_.Paso();
    } else if (campos_[0] == "LIN") {
      barras_ = campos_[1];
      Textos(lin_, {nombre_, pedido_, barras_, campos_[2], campos_[3]});
      lin_.Paso();
    } else if (const auto registro = sentencias_.find(campos_[0]); registro != sentencias_.end()) {
      Actualizar(registro->second.registro, registro->second.sentencia);
    }
  }

 private:
  static void Textos(SentenciaSuelo& sentencia, std::initializer_list<std::string_view> textos) {
    int sitio = 0;
    for (const auto texto : textos) sentencia.PonerTexto(++sitio, texto);
  }

  void Actualizar(const Registro& registro, SentenciaSuelo& sentencia) {
    for (int i = 1; i <= registro.campos; ++i) {
      const auto campo = campos_[static_cast<std::size_t>(i)];
      if ((registro.numeros & 1U << static_cast<unsigned>(i)) == 0) {
        sentencia.PonerTexto(i, campo);
      } else {
        double numero = 0;
        std::from_chars(campo.data(), campo.data() + campo.size(), numero);
        sentencia.PonerReal(i, numero);
      }
    }
    sentencia.PonerTexto(registro.campos + 1, pedido_);
    if (registro.deLinea) sentencia.PonerTexto(registro.campos + 2, barras_);
    sentencia.Paso();
  }

  std::string nombre_;
  SentenciaSuelo existe_, ord_, lin_;
  std::map<std::string_view, Preparada> sentencias_;
  Campos campos_;
  std::string pedido_;
  std::string barras_;
};

}  // namespace

void InsertarOrdersSuelo(const BaseSuelo& base, const std::filesystem::path& fichero,
                         const std::filesystem::path& destino) {
  base.Ejecutar("BEGIN IMMEDIATE");
  {
    std::ifstream entrada(fichero, std::ios::binary);
    Lectura lectura(base, fichero.filename().string());
    std::string linea;
    while (std::getline(entrada, linea)) {
      if (linea.ends_with('\r')) linea.pop_back();
      lectura.Tomar(linea);
    }
  }
  std::filesystem::copy_file(fichero, destino);
  std::filesystem::remove(fichero);
  base.Ejecutar("COMMIT");
}

}  // namespace kvraedi::bench
