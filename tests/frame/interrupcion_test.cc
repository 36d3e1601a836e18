#include <sys/wait.h>

#include <fstream>
#include <functional>
#include <numeric>
#include <set>

#include "kvraedi/clsDesadv.h"
#include "seres/modSeres.h"
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
  /// Runs `accion` in a program of its own, with its own connection, that is killed before its k-th
  /// operation; false when it came to its end.
  bool Matar(bool sentencia, int k, const std::function<void()>& accion) {
    const pid_t hijo = ::fork();
    if (hijo == 0) {
      const auto ajena = base;
      base = std::make_shared<SqliteConnection>((carpeta / "kvraedi.db").string());
      conexion = std::make_shared<ConexionConFallos>(base);
      PropiedadesSesion().ConexionKestrova(conexion);
      LeerEmpresa();
      (sentencia ? conexion->fallo : entorno.fallo).MorirEn(k);
      accion();
      ::_exit(0);
    }
    int fin = 0;
    ::waitpid(hijo, &fin, 0);
    return WIFSIGNALED(fin);
  }

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

}  // namespace
}  // namespace kvraedi
