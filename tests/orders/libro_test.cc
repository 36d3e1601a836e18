#include "kvraedi/ficheros_recibidos.h"
#include "tests/orders/recepcion_pedidos.h"

namespace kvraedi {
namespace {

class LibroRecibidosTest : public RecepcionPedidos {
 protected:
  void SetUp() override {
    RecepcionPedidos::SetUp();
    base->Run(demo::kLibroRecibidos);
  }
  std::string Tomar(const std::string& nombre, const std::string& contenido) {
    Dejar(nombre, contenido);
    clsOrders().Insertar();
    return Donde(nombre);
  }
  std::string Libro() const {
    return Filas("Fichero, Bytes, Documentos, Reprocesar", "EDI_Ficheros_Recibidos ORDER BY ID");
  }
  static std::string Fallo(const std::function<void()>& cuerpo) {
    try {
      cuerpo();
    } catch (const Error& error) {
      return error.Description();
    }
    return {};
  }
  const std::string dos = std::string(kInicioPedidos) + Pedido("1") + Pedido("2");
};

TEST_F(LibroRecibidosTest, UnContenidoSeLeeUnaVezYOtraSiSePide) {
  EXPECT_EQ(Tomar("a.dat", dos), "OK");
  EXPECT_EQ(Tomar("b.dat", dos), "Error");
  EXPECT_EQ(Tomar("c.dat", dos + " "), "OK") << "another content";
  const std::string bytes = std::to_string(dos.size());
  const std::string mas = std::to_string(dos.size() + 1);
  EXPECT_EQ(Libro(), "a.dat|" + bytes + "|2|0\nc.dat|" + mas + "|2|0\n");
  EXPECT_EQ(Filas("SHA256", "EDI_Ficheros_Recibidos WHERE Bytes = " + bytes).size(), 65U);
  const std::string antes = "a.dat, leído el 01/03/2024 9:08:07 en ";
  EXPECT_NE(Registro("ProcesarFicheros").find("El contenido es el de " + antes), std::string::npos);

  const auto objecion = [](const char* nombre) {
    return ObjecionAReprocesar(TipoRecibido::kOrders, nombre);
  };
  EXPECT_NE(objecion("b.dat").find(antes), std::string::npos);
  ReprocesarFichero(TipoRecibido::kOrders, "b.dat");
  EXPECT_EQ(Donde("b.dat"), "Temp");
  clsOrders().Insertar();
  EXPECT_EQ(Donde("b.dat"), "OK");
  EXPECT_EQ(Libro(), "a.dat|" + bytes + "|2|1\nc.dat|" + mas + "|2|0\nb.dat|" + bytes + "|2|0\n");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Pedidos_Clientes"), 6);
}

TEST_F(LibroRecibidosTest, LoQueNoSeTomaNoSeAnota) {
  EXPECT_EQ(Tomar("a.dat", dos + "QTYLIN|21|x|PCE\r\n"), "Temp");
  EXPECT_EQ(Libro(), "");
  ApartarFichero(TipoRecibido::kOrders, "a.dat");
  EXPECT_EQ(Donde("a.dat"), "Error");
  EXPECT_EQ(ObjecionAReprocesar(TipoRecibido::kOrders, "a.dat"), "");
}

TEST_F(LibroRecibidosTest, SinLaTablaTodoComoSinLibro) {
  base->Run("DROP TABLE EDI_Ficheros_Recibidos");
  EXPECT_EQ(Tomar("a.dat", dos), "OK");
  EXPECT_EQ(Tomar("b.dat", dos), "OK");
  EXPECT_EQ(ObjecionAReprocesar(TipoRecibido::kOrders, "b.dat"),
            "El fichero b.dat está en la carpeta OK");
}

TEST_F(LibroRecibidosTest, SoloSeMuevenFicherosRecibidos) {
  Tomar("a.dat", dos);
  Dejar("a.dat", dos);
  const struct {
    std::function<void()> cuerpo;
    const char* fallo;
  } casos[] = {
      {[] { ReprocesarFichero(TipoRecibido::kOrders, "../a.dat"); },
       "\"../a.dat\" no es el nombre de un fichero recibido"},
      {[] { ReprocesarFichero(TipoRecibido::kOrders, "a.dat"); }, "Ya espera un fichero"},
      {[] { ReprocesarFichero(TipoRecibido::kDesadv, "z.dat"); }, "no está en las carpetas"},
      {[] { ApartarFichero(TipoRecibido::kOrders, "z.dat"); }, "Ningún fichero de ese nombre"},
  };
  for (const auto& caso : casos) {
    EXPECT_NE(Fallo(caso.cuerpo).find(caso.fallo), std::string::npos) << caso.fallo;
  }
  EXPECT_EQ(Donde("a.dat"), "Temp OK");
}

}  // namespace
}  // namespace kvraedi
