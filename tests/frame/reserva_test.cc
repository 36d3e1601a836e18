#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include "facturae/modFactura_E.h"
#include "kvraedi/clsDesadv.h"
#include "kvraedi/clsOrders.h"
#include "seres/modSeres.h"
#include "tests/apoyo/cliente_facturae.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// Another program that has a file for itself until it is killed, or for a while.
class OtroPrograma {
 public:
  explicit OtroPrograma(const fs::path& fichero, milliseconds tiempo = std::chrono::minutes{1}) {
    std::array<int, 2> tubo{};
    if (::pipe(tubo.data()) == 0) proceso = ::fork();
    if (proceso == 0) {
      auto reserva = EntornoSistema().Hold(fichero, {});
      if (::write(tubo[1], reserva ? "1" : "0", 1) == 1) std::this_thread::sleep_for(tiempo);
      reserva.reset();
      ::_exit(0);
    }
    char tomado = '0';
    EXPECT_EQ(::read(tubo[0], &tomado, 1), 1);
    EXPECT_EQ(tomado, '1') << fichero;
    ::close(tubo[0]);
    ::close(tubo[1]);
  }
  ~OtroPrograma() {
    ::kill(proceso, SIGKILL);
    ::waitpid(proceso, nullptr, 0);
  }
  OtroPrograma(const OtroPrograma&) = delete;
  OtroPrograma& operator=(const OtroPrograma&) = delete;

  pid_t proceso = -1;
};

/// Waits a moment where the component waits for long.
class EntornoImpaciente : public EntornoWrapper {
 public:
  using EntornoWrapper::EntornoWrapper;
  std::unique_ptr<FileHold> Hold(const fs::path& file, milliseconds wait) override {
    return EntornoWrapper::Hold(file, std::min(wait, maximo));
  }
  milliseconds maximo{30};
};

/// What only one program may do at a time, on what file that hangs, and how the other is told.
struct Camino {
  fs::path reserva;
  std::function<bool()> recorrer;
  std::string aviso;
  bool espera = false;
  std::string repetido = {};  ///< what a second sending of a pending invoice is told
};

class UnoSolo : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(kClienteFacturae);
    LeerEmpresa();
    InsertarFactura(1);
    InsertarFactura(2);
    base->Execute(  // a record that counts for nothing hides no later one
        "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio,"
        " Serie, Codigo, TipoDoc) VALUES (0, 1, 1, 2024, 3, 1, 0)");
    for (const char* sub : {"ORDERS/Temp", "Rx"}) fs::create_directories(recepcion / sub);
    for (const auto& entrada : entradas) std::ofstream(entrada) << "otro";
    fs::create_directories(envios / "Temp");
    fs::create_directories(trabajo);
    ::setenv("KVRAEDI_FIRMADOR", "responde:OK,R,T,16/11/2026", 1);
    InstalarAdaptadores({.entorno = &impaciente, .toolkit = &toolkit, .suite = &suite});
  }
  void TearDown() override {
    ::unsetenv("KVRAEDI_FIRMADOR");
    Escenario::TearDown();
  }

  static bool Facturae() {
    return FACTURA_E(100, 2024, 3, 2, 0, 0, 0, 0, {1900, 1, 1}, 0, false, "", 0, true);
  }
  std::vector<Camino> Caminos() {
    return {
        {envios / "Temp/INVOIC_1_2024_3_1_0.enviando",
         [] { return INVOIC(100, 3, 1, 0, 2024, true); }, "La factura 3/1 la está enviando", false,
         "La factura 3/1 ya la ha enviado otro terminal"},
        {envios / "Temp/01202400000000200003.enviando", Facturae, "La factura 3/2 la está enviando",
         false, "La factura 3/2 ya la ha enviado otro terminal"},
        {trabajo / "firmador.ocupado",
         [&] {
           base->Execute("DELETE FROM EDI_Envio_Facturas WHERE Codigo = 2");
           return Facturae();
         },
         "El firmador lo está usando", true},
        {unidad / "KVRAEDI_COACSU.txt.escribiendo",
         [] { return ProcesarFacturasCoacsu(100, "01/01/2024", "31/01/2024"); },
         "El fichero COACSU lo está escribiendo"},
        {recepcion / "ORDERS/Temp/ORDERS.leyendo",
         [&] {
           clsOrders().Insertar();
           return !fs::exists(entradas[0]);
         },
         "Los pedidos recibidos los está leyendo", true},
        {recepcion / "DESADV.leyendo",
         [&] {
           clsDesadv().Insertar("a.dat");
           return !fs::exists(entradas[1]);
         },
         "Los ficheros recibidos los está leyendo", true},
    };
  }
  /// Boxes and the log of the routine that shows none.
  std::string Dicho() const {
    std::ifstream log(recepcion / "OrmoPCCOM.log");
    return UltimoAviso() + std::string(std::istreambuf_iterator<char>(log), {});
  }
  /// What a road leaves when it is done: a record, a file on its way out.
  std::size_t Hecho() const {
    return static_cast<std::size_t>(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas")) +
           Ficheros("2024").size() + (fs::exists(FicheroCoacsu()) ? 1 : 0);
  }

  EntornoImpaciente impaciente{entorno};
  fs::path recepcion = carpeta / "Recepción";
  fs::path trabajo = perfil / "Ormo" / "EDI";
  std::array<fs::path, 2> entradas = {recepcion / "ORDERS/Temp/a.dat", recepcion / "Rx/a.dat"};
};

TEST_F(UnoSolo, TheSecondIsToldByWhomAndDoesNothingUntilTheFirstEnds) {
  for (const auto& [reserva, recorrer, aviso, espera, repetido] : Caminos()) {
    SCOPED_TRACE(reserva.filename());
    const std::size_t antes = Hecho();
    {
      const OtroPrograma otro(reserva);
      EXPECT_FALSE(recorrer());
      const std::string quien = aviso + " el terminal " + sistema.TerminalName() + " (proceso " +
                                std::to_string(otro.proceso) + ")";
      EXPECT_NE(Dicho().find(quien), std::string::npos) << Dicho();
      EXPECT_LE(Hecho(), antes);
    }
    EXPECT_TRUE(fs::exists(reserva)) << "the other one was killed";
    EXPECT_TRUE(recorrer());
    EXPECT_FALSE(fs::exists(reserva));
    if (repetido.empty()) continue;
    const std::size_t hecho = Hecho();
    EXPECT_FALSE(recorrer());
    EXPECT_NE(Dicho().find(repetido), std::string::npos) << Dicho();
    EXPECT_EQ(Hecho(), hecho);
  }
}

TEST_F(UnoSolo, SharedFoldersAreWaitedForAndWhatCannotBeReservedIsLeftAlone) {
  impaciente.maximo = std::chrono::seconds{20};
  for (const auto& camino : Caminos()) {
    SCOPED_TRACE(camino.reserva.filename());
    const std::size_t antes = Hecho();
    fs::create_directory(camino.reserva);
    EXPECT_FALSE(camino.recorrer());
    EXPECT_NE(Dicho().find("No se puede crear el fichero «" + camino.reserva.string()),
              std::string::npos)
        << Dicho();
    EXPECT_LE(Hecho(), antes);
    fs::remove(camino.reserva);
    const OtroPrograma otro(camino.reserva, milliseconds{600});
    EXPECT_EQ(camino.recorrer(), camino.espera);
  }
}

}  // namespace
}  // namespace kvraedi
