#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <numeric>
#include <set>

#include "facturae/modFactura_E.h"
#include "kvraedi/clsDesadv.h"
#include "kvraedi/facturas_dudosas.h"
#include "seres/modSeres.h"
#include "tests/apoyo/cliente_facturae.h"
#include "tests/apoyo/registro_esperado.h"
#include "tests/orders/recepcion_pedidos.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

/// A road that is walked by a program that is killed, then by another: what stands in the end.
struct Camino {
  const char* nombre;
  std::function<void()> empezar;  ///< as before the first program
  std::function<void()> recorrer;
  std::function<std::string()> estado;
  int pasos;  ///< windows at least
};

class Interrupcion : public RecepcionPedidos {
 protected:
  std::string EstadoInvoic() const {
    std::string estado;
    for (const char* sub : {"Temp", "2024"}) {
      for (const std::string& fichero : Ficheros(sub)) {
        const bool registrado =
            Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas WHERE EDIFichero = '" + fichero +
                   "'") == 1;
        const auto bytes = fs::file_size(envios / sub / fichero);
        if (sub == std::string("Temp") && bytes == 0) continue;  // a name that was being taken
        estado += registrado && bytes > 1000 ? "enviada " : sub + (" " + fichero);
      }
    }
    return estado + std::to_string(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"));
  }

  /// The files below the reception root that are no logs.
  std::string Recibidos() const {
    std::set<std::string> ficheros;
    for (const auto& entrada : fs::recursive_directory_iterator(recepcion)) {
      const auto& ruta = entrada.path();
      if (entrada.is_regular_file() && ruta.extension() != ".log") {
        ficheros.insert(fs::relative(ruta, recepcion).string() + " " +
                        std::to_string(fs::file_size(ruta)) + "\n");
      }
    }
    return std::accumulate(ficheros.begin(), ficheros.end(), std::string());
  }

  void EmpezarRecepcion() const {
    for (const char* tabla :
         {"EDI_PedidosClientes", "EDI_PedidosClientes_Lineas", "Pedidos_Clientes",
          "Pedidos_Clientes_Lineas", "Compras_Mini", "Compras_Mini_Lineas"}) {
      base->Execute("DELETE FROM " + std::string(tabla));
    }
    fs::remove_all(recepcion);
    fs::create_directories(ordenes / "Temp");
    fs::create_directories(recepcion / "Rx");
    Dejar("a.dat", std::string(kInicioPedidos) + Pedido("1"));
    Dejar("b.dat", std::string(kInicioPedidos) + Pedido("2"));
    std::ofstream(recepcion / "OrmoPCCom.ini") << "[OrmoPCCom]\r\nProveedorCentralizado=12\r\n";
    std::ofstream(recepcion / "Rx" / "c.dat")
        << "DESADV_D_96A_UN_EAN005\r\nBGM|4711|351|9\r\nRFF|ON|88|20260510\r\n"
           "NADDP|8430000000055\r\nLIN|501\r\nQTYLIN|12|2|KGM\r\n";
  }

  std::vector<Camino> Caminos() {
    return {
        {"INVOIC",
         [&] {
           fs::remove_all(envios / "2024");
           base->Execute("DELETE FROM EDI_Envio_Facturas");
         },
         [] { INVOIC(100, 3, 1, 0, 2024, true); }, [&] { return EstadoInvoic(); }, 12},
        {"COACSU", [&] { std::ofstream(FicheroCoacsu()) << "anterior\r\n"; },
         [] { ProcesarFacturasCoacsu(100, "01/01/2024", "31/12/2024"); },
         [&] { return Contenido(FicheroCoacsu()); }, 6},
        {"ORDERS", [&] { EmpezarRecepcion(); }, [] { clsOrders().Insertar(); },
         [&] {
           return Filas("EDI_Doc_Num", "Pedidos_Clientes ORDER BY EDI_Doc_Num") +
                  Filas("Doc_Num", "EDI_PedidosClientes") + Recibidos();
         },
         60},
        {"DESADV", [&] { EmpezarRecepcion(); }, [] { clsDesadv().Insertar("c.dat"); },
         [&] { return Filas("Documento", "Compras_Mini") + Recibidos(); }, 40},
    };
  }

  fs::path recepcion = carpeta / "Recepción";
};

TEST_F(Interrupcion, TheNextRunEndsOrUndoesWhatAKilledOneLeft) {
  InsertarFactura(1, "TipoFactura = 2");
  base->Execute("INSERT INTO Articulos VALUES (1, 501, 'Queso')");
  for (const Camino& camino : Caminos()) {
    camino.empezar();
    camino.recorrer();
    const std::string esperado = camino.estado();
    ASSERT_EQ(Recibidos().find(".leido"), std::string::npos);
    int ventanas = 0;
    for (const bool sentencia : {false, true}) {
      for (int k = 1;; ++k) {
        SCOPED_TRACE(std::string(camino.nombre) + (sentencia ? ", sentencia " : ", operación ") +
                     std::to_string(k));
        camino.empezar();
        if (!Matar(sentencia, k, camino.recorrer)) break;
        ++ventanas;
        camino.recorrer();
        EXPECT_EQ(camino.estado(), esperado);
      }
    }
    EXPECT_GE(ventanas, camino.pasos);
  }
}

/// A Facturae invoice whose program is killed; the signer that is met afterwards refuses, so that
/// it shows whether it was asked.
class Dudosa : public Interrupcion {
 protected:
  void SetUp() override {
    Interrupcion::SetUp();
    base->Run(kClienteFacturae);
    LeerEmpresa();
    for (const int codigo : {1, 2}) InsertarFactura(codigo);
  }
  void TearDown() override {
    ::unsetenv("KVRAEDI_FIRMADOR");
    ResolverFacturasDudosas(FacturasDudosas::kPreguntar);
    Interrupcion::TearDown();
  }
  static bool Enviar(int codigo, const char* firmador) {
    ::setenv("KVRAEDI_FIRMADOR", firmador, 1);
    return FACTURA_E(100, 2024, 3, codigo, 0, 0, 0, 0, {1900, 1, 1}, 0, false, "", 0, true);
  }
  static bool EnviarSi(FacturasDudosas que, const char* firmador) {
    ResolverFacturasDudosas(que);
    const bool enviada = Enviar(1, firmador);
    ResolverFacturasDudosas(FacturasDudosas::kPreguntar);
    return enviada;
  }
  void Empezar() const {
    for (const fs::path& resto : {perfil / "Ormo", envios / "2024", envios / "Temp"}) {
      fs::remove_all(resto);
    }
    base->Execute("DELETE FROM EDI_Envio_Facturas");
  }
  int Registros() const {
    return Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas WHERE Codigo = 1");
  }
  /// The texts of the boxes since the last call.
  std::string Cajas() {
    std::string textos;
    for (; vistas < toolkit.Messages().size(); ++vistas) textos += toolkit.Messages()[vistas].text;
    return textos;
  }

  /// How the next program finds the invoice, and what becomes of it.
  std::string Seguir() {
    const bool entregada = fs::exists(envios / "2024" / "01202400000000100003.xsig");
    const bool registrada = Registros() == 1;
    Cajas();
    EXPECT_FALSE(Enviar(1, kRechaza));
    const std::string cajas = Cajas();
    if (registrada) {
      EXPECT_NE(cajas.find("La factura 3/1 ya la ha enviado otro terminal"), std::string::npos);
      return "registrada";
    }
    if (cajas.find("¿La envía otra vez?") == std::string::npos) {
      EXPECT_FALSE(entregada);
      EXPECT_TRUE(Enviar(1, kAcepta));
      return "pendiente";
    }
    EXPECT_NE(cajas.find("La factura 3/1 se estaba enviando el 01/03/2024"), std::string::npos);
    const bool conRespuesta = cajas.find("respondió: OK,R123,T456,16/11/2026") != std::string::npos;
    EXPECT_EQ(conRespuesta, entregada);
    EXPECT_EQ(EnviarSi(FacturasDudosas::kRegistrar, kRechaza), entregada);
    EXPECT_TRUE(entregada || EnviarSi(FacturasDudosas::kReenviar, kAcepta));
    return entregada ? "dudosa" : "dudosa sin respuesta";
  }

  static constexpr const char* kAcepta = "responde:OK,R123,T456,16/11/2026";
  static constexpr const char* kRechaza = "rechaza";
  std::size_t vistas = 0;
};

TEST_F(Dudosa, IsLeftAloneWhileItsSignerGoesOn) {
  const pid_t hijo = ::fork();
  if (hijo == 0) Enviar(1, "tarda:2");
  const fs::path peticion = perfil / "Ormo" / "EDI" / "entrada.xml";
  while (!fs::exists(peticion)) ::usleep(10'000);
  ::usleep(500'000);
  ::kill(hijo, SIGKILL);
  ::waitpid(hijo, nullptr, 0);
  EXPECT_FALSE(Enviar(1, kRechaza));
  EXPECT_NE(Cajas().find("La factura 3/1 la está enviando el terminal " + sistema.TerminalName() +
                         " (proceso " + std::to_string(hijo) + ")"),
            std::string::npos);
  EXPECT_TRUE(Enviar(2, kAcepta)) << "waits for the signer";
  EXPECT_TRUE(EnviarSi(FacturasDudosas::kRegistrar, kRechaza)) << Cajas();
  EXPECT_EQ(Registros(), 1);
}

TEST_F(Dudosa, IsSentAgainOrRecordedOnlyWhenSomebodySaysSo) {
  std::map<std::string, int> veces;
  for (const bool sentencia : {false, true}) {
    for (int k = 1;; ++k) {
      SCOPED_TRACE((sentencia ? "sentencia " : "operación ") + std::to_string(k));
      Empezar();
      if (!Matar(sentencia, k, [] { Enviar(1, kAcepta); })) break;
      InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &suite});
      EXPECT_FALSE(fs::exists(perfil / "Ormo" / "EDI" / "entrada.xml")) << "with the password";
      EXPECT_TRUE(k % 2 != 0 || Enviar(2, "responde:OK,R2,T2,16/11/2026"));
      ++veces[Seguir()];
      EXPECT_EQ(Registros(), 1);
      EXPECT_EQ(Ficheros("Temp"), std::vector<std::string>());
      EXPECT_FALSE(fs::exists(perfil / "Ormo" / "EDI" / "firmador.ocupado"));
    }
  }
  EXPECT_GT(veces["pendiente"], 20);
  EXPECT_GT(veces["dudosa"], 4);
  EXPECT_EQ(veces["dudosa sin respuesta"], 1) << "noted, and not started yet";
  EXPECT_GT(veces["registrada"], 0);
}

}  // namespace
}  // namespace kvraedi
