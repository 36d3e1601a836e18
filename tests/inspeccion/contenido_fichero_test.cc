#include "kvraedi/contenido_fichero.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

class ContenidoFichero : public testing::Test {
 protected:
  /// The format, then what is wrong, "line registro.campo=valor: reparo", each on a line.
  std::string Reparos(std::string_view bytes) {
    std::ofstream(fichero, std::ios::binary) << bytes;
    std::string dicho;
    const auto formato = RecorrerFichero(entorno, suite, fichero, [&](const CampoFichero& campo) {
      if (campo.reparo.empty()) return;
      dicho.append(std::to_string(campo.linea)).append(" ").append(campo.registro);
      if (!campo.nombre.empty()) dicho.append(".").append(campo.nombre);
      if (!campo.valor.empty()) dicho.append("=").append(campo.valor);
      dicho.append(": ").append(campo.reparo).append("\n");
    });
    return std::string(NombreFormato(formato)) + "\n" + dicho;
  }

  CarpetaTemporal carpeta;
  std::filesystem::path fichero = carpeta / "fichero de año.dat";
  EntornoSistema entorno{OpcionesEntorno{}};
  SuiteReferencia suite;
};

std::string EnColumnas(std::initializer_list<std::pair<std::size_t, std::string_view>> campos) {
  std::string linea;
  for (const auto& [posicion, texto] : campos) {
    linea.resize(posicion - 1, ' ');
    linea += texto;
  }
  return linea + "\r\n";
}

TEST_F(ContenidoFichero, DiceElFormatoYLoQueEstaMal) {
  const std::string orden = "ORDERS_D_96A_UN_EAN008\n";
  const std::string cabeza =
      "ORD|1|220|9\nDTM|20260131\nNADBY|8435000000019\nNADDP|8430000010013\n";
  const std::string rectl = EnColumnas(
      {{1, "RECTL"}, {7, "INVOIC"}, {13, "8437000111115"}, {48, "8435000000019"}, {123, "210131"}});
  const std::string aviso = "DESADV_D_96A_UN_EAN005\nBGM|A|351|9\nRFF|ON|5|20260210\n";
  const struct {
    std::string bytes;
    std::string dicho;
  } casos[] = {
      {"", "desconocido\n"},
      {"hola\n", "desconocido\n"},
      {"<html/>", "desconocido\n"},
      {orden + cabeza + "LIN|1|EN|1\nQTYLIN|21|2,5|KGM\nMOARES|1\n", "ORDERS\n"},
      {orden + cabeza + "QTYLIN|21|x\nLIN|1\nXYZ|1\nMOARES|1|2|3|4|5|6\n",
       "ORDERS\n6 QTYLIN: registro fuera de orden\n6 QTYLIN.Cantidad=x: no es un número\n"
       "8 XYZ: registro desconocido\n8 XYZ=1: sobra en el registro\n"
       "9 MOARES=6: sobra en el registro\n"},
      {orden + "ORD|1\nDTM|20260231\nNADBY|8435000000018\nNADDP|\nORD|2\n",
       "ORDERS\n3 DTM.Fecha_Emision=20260231: no es una fecha\n"
       "4 NADBY.GLN_Cliente=8435000000018: la cifra de control del GLN debería ser 9\n"
       "5 NADDP.GLN_ClienteEntrega: falta\n0 LIN: falta en el mensaje\n"
       "0 DTM: falta en el mensaje\n0 NADBY: falta en el mensaje\n0 NADDP: falta en el mensaje\n"
       "0 LIN: falta en el mensaje\n"},
      {aviso + "NADDP|84\nLIN|5\nPCILIN|36E|20261301\n",
       "DESADV\n4 NADDP.GLN_Almacen=84: un GLN tiene 13 cifras\n"
       "6 PCILIN.LoteCaducidad=20261301: no es una fecha\n"},
      {"V4.0\t12\tC\t02/03/2026\tP\t0\nR1\tdoce\t02/03/2026\n",
       "pedido a proveedor V4.0\n2 línea.Unidades=doce: no es un número\n"},
      {"R1\t843\t12\tVino\nR2\t\t\tPan\n", "pedido a proveedor con códigos de barras\n"},
      {rectl + EnColumnas({{1, "SINCL"}, {7, "000001"}, {139, "12a"}, {600, "x"}}) +
           EnColumnas({{1, "SINCC"}, {7, "380"}, {13, "1"}, {36, "2126113"}, {254, "10.00"}}),
       "INVOIC\n1 RECTL.Momento=210131: no es una fecha\n2 SINCL: registro fuera de orden\n"
       "2 SINCL.Unidades=12a: no es un número\n2 SINCL=x: sobra en el registro\n"
       "3 SINCC: registro fuera de orden\n3 SINCC.Fecha=2126113: no es una fecha\n"
       "3 SINCC.Total=10.00: el registro se acaba dentro del campo\n0 SINCP: falta en el "
       "mensaje\n"},
      {"\xEF\xBB\xBF<?xml version='1.0'?><f:Facturae xmlns:f='u'><A><SchemaVersion>3.2.1"
       "</SchemaVersion><PostCode>355</PostCode><CountryCode>ES</CountryCode><Town>Teror</Town>"
       "<InvoiceTotal>1,5</InvoiceTotal></A></f:Facturae>",
       "Facturae\n0 A.PostCode=355: ha de tener 5 caracteres\n"
       "0 A.CountryCode=ES: ha de tener 3 caracteres\n0 A.InvoiceTotal=1,5: no es un número\n"},
  };
  for (const auto& caso : casos) EXPECT_EQ(Reparos(caso.bytes), caso.dicho) << caso.bytes;
}

TEST_F(ContenidoFichero, LoPersonalSeOculta) {
  for (const char* nombre : {"", "Nombre1", "Nif", "CuentaBancaria", "Texto1", "CorporateName"}) {
    EXPECT_TRUE(EsPersonal(nombre)) << nombre;
  }
  for (const char* nombre : {"Gln", "Total", "Cantidad", "TaxRate"})
    EXPECT_FALSE(EsPersonal(nombre));
  EXPECT_EQ(Enmascarado("Ñandú y Cía, 12-B"), "XXXXX X XXX, 99-X");
}

}  // namespace
}  // namespace kvraedi
