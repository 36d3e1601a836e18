#include <sys/wait.h>

#include <fstream>
#include <functional>

#include "seres/modSeres.h"
#include "tests/apoyo/escenario.h"

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

class Interrupcion : public Escenario {
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

  std::vector<Camino> Caminos() {
    return {
        {"INVOIC",
         [&] {
           fs::remove_all(envios / "2024");
           base->Execute("DELETE FROM EDI_Envio_Facturas");
         },
         [] { INVOIC(100, 3, 1, 0, 2024, true); }, [&] { return EstadoInvoic(); }, 12},
    };
  }
};

TEST_F(Interrupcion, TheNextRunEndsOrUndoesWhatAKilledOneLeft) {
  InsertarFactura(1);
  for (const Camino& camino : Caminos()) {
    camino.empezar();
    camino.recorrer();
    const std::string esperado = camino.estado();
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
