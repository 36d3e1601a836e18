#include "tests/platform/odbc/servidor_tds.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kvraedi::odbc {
namespace {

std::filesystem::path CarpetaNueva() {
  std::string nombre = (std::filesystem::temp_directory_path() / "kvraedi-tds-XXXXXX").string();
  if (mkdtemp(nombre.data()) == nullptr) return {};
  return nombre;
}

}  // namespace

ServidorTds::ServidorTds(const std::vector<std::string>& opciones) : carpeta_(CarpetaNueva()) {
  std::vector<std::string> orden = {"python3",    KVRAEDI_SERVIDOR_TDS,
                                    "--user",     "prueba",
                                    "--password", "Secreta-77",
                                    "--db",       carpeta_ / "datos.db",
                                    "--log",      carpeta_ / "registro.jsonl"};
  orden.insert(orden.end(), opciones.begin(), opciones.end());
  std::vector<char*> palabras;
  for (std::string& palabra : orden) palabras.push_back(palabra.data());
  palabras.push_back(nullptr);
  std::array<int, 2> tubo{};
  if (pipe(tubo.data()) != 0) return;
  proceso_ = fork();
  if (proceso_ == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // also when the test crashes
    dup2(tubo[1], STDOUT_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    execvp(palabras[0], palabras.data());
    _exit(127);
  }
  close(tubo[1]);
  std::FILE* const salida = fdopen(tubo[0], "r");
  std::array<char, 64> linea{};
  if (std::fgets(linea.data(), linea.size(), salida) != nullptr) puerto_ = linea.data();
  std::fclose(salida);
  puerto_.erase(0, puerto_.rfind(' ') + 1);
  while (puerto_.ends_with('\n')) puerto_.pop_back();
  if (puerto_.empty()) throw std::runtime_error("the stand-in server does not start");
}

ServidorTds::~ServidorTds() {
  Parar();
  std::filesystem::remove_all(carpeta_);
}

void ServidorTds::Parar() {
  if (proceso_ <= 0) return;
  kill(proceso_, SIGKILL);
  waitpid(proceso_, nullptr, 0);
  proceso_ = -1;
}

std::string ServidorTds::Cadena() const {
  return "Driver={FreeTDS};Server=127.0.0.1;Port=" + puerto_ +
         ";TDS_Version=7.4;Database=prueba;UID=prueba;PWD=Secreta-77";
}

std::string ServidorTds::Registro() const {
  std::ifstream fichero(carpeta_ / "registro.jsonl");
  return {std::istreambuf_iterator<char>(fichero), {}};
}

}  // namespace kvraedi::odbc
