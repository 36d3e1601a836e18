#include "tests/orders/recepcion_pedidos.h"

namespace kvraedi {
namespace {

constexpr std::array<const char*, 3> kFicheros = {"1.dat", "2.dat", "3.dat"};

/// Three files, two orders, one file that is none; runs of which one operation fails.
class InsertarConFallos : public RecepcionPedidos {
 protected:
  static std::string Contenido(std::size_t i) {
    if (i == 2) return "NO ES UN PEDIDO\r\n";
    return std::string(kInicioPedidos) + Pedido(std::to_string(i + 1));
  }

  void Empezar() const {
    for (const char* tabla : {"EDI_PedidosClientes", "EDI_PedidosClientes_Lineas",
                              "Pedidos_Clientes", "Pedidos_Clientes_Lineas"}) {
      base->Execute("DELETE FROM " + std::string(tabla));
    }
    std::filesystem::remove_all(ordenes);
    std::filesystem::create_directories(ordenes / "Temp");
    for (std::size_t i = 0; i < kFicheros.size(); ++i) Dejar(kFicheros[i], Contenido(i));
  }

  /// Each file is whole in one folder or another; an order is in the database exactly when its file
  /// is in OK, once.
  void Comprobar() const {
    for (std::size_t i = 0; i < kFicheros.size(); ++i) {
      const std::string donde = Donde(kFicheros[i]);
      ASSERT_NE(donde, "") << kFicheros[i];
      EXPECT_EQ(Leer(donde.substr(0, donde.find(' ')) + "/" + kFicheros[i]), Contenido(i));
      if (i == 2) continue;
      EXPECT_TRUE(donde == "Temp" || donde == "OK") << donde;
      const std::string numero = " WHERE Doc_Num = " + std::to_string(i + 1);
      EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes" + numero) +
                    Contar("SELECT COUNT(*) FROM Pedidos_Clientes WHERE EDI_Doc_Num = " +
                           std::to_string(i + 1)),
                donde == "OK" ? 1 : 0)
          << kFicheros[i] << " " << donde;
    }
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Pedidos_Clientes WHERE EDI_ID = 0"), 0);
  }

  std::string Estado() const {
    std::string estado = Filas("EDI_Doc_Num, Cod_Almacen, Cod_Cliente, Ent_Nombre",
                               "Pedidos_Clientes ORDER BY EDI_Doc_Num") +
                         Filas("Cod_Articulo, Cantidad, Importe_Neto_Linea",
                               "Pedidos_Clientes_Lineas ORDER BY Codigo") +
                         Filas("Doc_Num", "EDI_PedidosClientes") +
                         Filas("Doc_Num", "EDI_PedidosClientes_Lineas");
    for (const char* fichero : kFicheros) estado += Donde(fichero) + "\n";
    return estado;
  }

  void Barrer(Fallo& fallo, int minimo) {
    Empezar();
    EXPECT_TRUE(clsOrders().Insertar());
    EXPECT_EQ(Avisos(), "");
    const std::string esperado = Estado();
    EXPECT_EQ(esperado,
              "1|5|100|Tienda\n2|5|100|Tienda\n501|12|18.5\n501|12|18.5\nOK\nOK\nError\n");
    int k = 1;
    for (;; ++k) {
      SCOPED_TRACE("operación " + std::to_string(k));
      Empezar();
      fallo.FallarEn(k);
      clsOrders().Insertar();
      const bool disparado = fallo.Disparado();
      fallo.FallarEn(0);
      if (!disparado) break;
      EXPECT_NE(Avisos(), "");
      Comprobar();
      EXPECT_TRUE(clsOrders().Insertar());
      EXPECT_EQ(Avisos(), "");
      EXPECT_EQ(Estado(), esperado);
    }
    EXPECT_GT(k, minimo);
  }
};

TEST_F(InsertarConFallos, CadaSentenciaYCadaConfirmacion) { Barrer(conexion->fallo, 30); }

TEST_F(InsertarConFallos, CadaOperacionDeFichero) { Barrer(entorno.fallo, 40); }

TEST_F(InsertarConFallos, LoQueNoSePuedeDevolverSeDice) {
  Empezar();
  std::filesystem::remove(ordenes / "Temp" / "2.dat");
  std::filesystem::remove(ordenes / "Temp" / "3.dat");
  class SinVuelta : public EntornoWrapper {
   public:
    using EntornoWrapper::EntornoWrapper;
    void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
      if (to.extension() == ".dat") throw Error(kErrorFile, "prueba", "Disco lleno");
      EntornoWrapper::Rename(from, to);
    }
  } sinVuelta(entorno);
  InstalarAdaptadores({.entorno = &sinVuelta, .toolkit = &toolkit, .suite = &suite});
  conexion->fallo.FallarEn(10);  // the commit
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Avisos(),
            "clsOrders:ProcesarFicheros: Conexión perdida\nclsOrders:CrearPedidosClientes: Hay un "
            "fichero a medio leer; vuelva a insertar los pedidos\n");
  EXPECT_EQ(Donde("1.dat"), "OK");
  EXPECT_NE(
      Registro("ProcesarFicheros")
          .find("El fichero no se ha leído y hay una copia en la carpeta OK: 1.dat: Disco lleno"),
      std::string::npos);
  InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &suite});
  Dejar("1.dat", Contenido(1));  // another one of its name
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Filas("EDI_Doc_Num", "Pedidos_Clientes ORDER BY EDI_Doc_Num"), "1\n2\n");
  EXPECT_EQ(Donde("1_1.dat"), "OK");
}

}  // namespace
}  // namespace kvraedi
