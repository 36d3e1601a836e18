#include "frame/marca.h"

#include <algorithm>

#include "frame/ruta.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

/// The program that has a file; it may have let it go since.
std::string Quien(Entorno& entorno, const std::filesystem::path& fichero) {
  try {
    const Notas notas(entorno.ReadFile(fichero));
    const std::string terminal = notas["terminal"];
    if (!terminal.empty())
      return " el terminal " + terminal + " (proceso " + notas["proceso"] + ")";
  } catch (const Error&) {
    return " otro terminal";
  }
  return " otro terminal";
}

std::unique_ptr<FileHold> Tomar(Entorno& entorno, const std::filesystem::path& fichero,
                                const std::string& que, std::chrono::milliseconds espera) {
  auto reserva = entorno.Hold(fichero, espera);
  if (!reserva) throw Error(kErrorFile, "kvraedi", que + Quien(entorno, fichero));
  return reserva;
}

void Atender(FileHold& marca, const AtenderInterrupcion& atender) {
  try {
    if (atender) atender(Notas(marca.Text()));
  } catch (const Error&) {
    marca.Leave();
    throw;
  }
}

}  // namespace

std::string Notas::operator[](std::string_view clave) const {
  const std::string inicio = "\n" + std::string(clave) + "=";
  const std::string texto = "\n" + texto_;
  const auto nota = texto.rfind(inicio);
  if (nota == std::string::npos) return "";
  const auto valor = nota + inicio.size();
  return texto.substr(valor, texto.find('\n', valor) - valor);
}

std::unique_ptr<FileHold> Reservar(Entorno& entorno, const std::filesystem::path& fichero,
                                   const std::string& que, std::chrono::milliseconds espera,
                                   const AtenderInterrupcion& atender) {
  auto reserva = Tomar(entorno, fichero, que, espera);
  if (reserva->Text().empty()) return reserva;
  Atender(*reserva, atender);
  reserva.reset();
  return Tomar(entorno, fichero, que, espera);
}

void Anotar(FileHold& marca,
            std::initializer_list<std::pair<std::string_view, std::string_view>> notas) {
  std::string texto;
  for (const auto& [clave, valor] : notas) {
    std::string linea(valor);
    std::replace_if(
        linea.begin(), linea.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    texto.append(clave).append("=").append(linea).append("\n");
  }
  marca.Append(texto);
}

void AtenderInterrupciones(Entorno& entorno, const std::filesystem::path& carpeta,
                           std::string_view inicio, std::string_view final,
                           const AtenderInterrupcion& atender) {
  for (const std::string& nombre : entorno.ListFiles(carpeta, final)) {
    if (!nombre.starts_with(inicio)) continue;
    const auto marca = entorno.Hold(carpeta / RutaDe(nombre), {});
    if (marca && !marca->Text().empty()) Atender(*marca, atender);
  }
}

void ThrowYaEnviada(const std::string& que) {
  throw Error(kErrorFile, "kvraedi",
              que + " ya la ha enviado otro terminal. Vuelva a cargar la lista");
}

}  // namespace kvraedi
