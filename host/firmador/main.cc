// Stands in for the suite's signing program in demonstrations and tests. It does what the real one
// does with files, but the "signature" that it adds is a marked, worthless one, and it delivers
// nothing. The variable KVRAEDI_FIRMADOR chooses how it behaves; see README.md.

#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <pugixml.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr const char* kFirma =
    "<ds:Signature Id=\"FIRMA-DE-DEMOSTRACION-SIN-VALOR\"><ds:SignedInfo>"
    "<ds:CanonicalizationMethod Algorithm=\"http://www.w3.org/TR/2001/REC-xml-c14n-20010315\"/>"
    "<ds:SignatureMethod Algorithm=\"http://www.w3.org/2000/09/xmldsig#rsa-sha1\"/>"
    "<ds:Reference URI=\"\"><ds:DigestMethod Algorithm=\"http://www.w3.org/2000/09/xmldsig#sha1\"/>"
    "<ds:DigestValue>REVNT1NUUkFDSU9O</ds:DigestValue></ds:Reference></ds:SignedInfo>"
    "<ds:SignatureValue>REVNT1NUUkFDSU9O</ds:SignatureValue>"
    "<ds:Object>Firma de demostraci\u00f3n, sin ning\u00fan valor.</ds:Object></ds:Signature>";

std::string Variable(const char* nombre) {
  const char* const valor = std::getenv(nombre);
  return valor == nullptr ? std::string() : valor;
}

fs::path CarpetaTrabajo() {
  std::string perfil = Variable("userprofile");
  if (perfil.empty()) perfil = Variable("HOME");
  return fs::path(perfil) / "Ormo" / "EDI";
}

void Escribir(const fs::path& ruta, const std::string& bytes) {
  std::ofstream fichero(ruta, std::ios::binary);
  fichero << bytes;
  if (!fichero.flush()) throw std::runtime_error("no se puede escribir " + ruta.string());
}

void Responder(const fs::path& carpeta, const std::string& respuesta) {
  pugi::xml_document documento;
  documento.append_child("salida").append_child("nombre").text().set(respuesta.c_str());
  if (!documento.save_file((carpeta / "salida.xml").c_str())) {
    throw std::runtime_error("no se puede escribir la respuesta");
  }
}

/// The request: its elements are those of the agreed list, in that order, and none is blank but the
/// password and the mail address.
pugi::xml_node LeerPeticion(pugi::xml_document& documento, const fs::path& carpeta) {
  if (!documento.load_file((carpeta / "entrada.xml").c_str())) {
    throw std::runtime_error("no se puede leer la petición");
  }
  const pugi::xml_node entrada = documento.child("entrada");
  pugi::xml_node elemento = entrada.first_child();
  for (const std::string_view nombre :
       {"politica", "hashPolitica", "URIPolitica", "rutaXML", "rutaXMLFirmada", "rutaCertificado",
        "password", "exportar", "mail"}) {
    const bool opcional = nombre == "password" || nombre == "mail";
    if (nombre != elemento.name() || (!opcional && elemento.text().empty())) {
      throw std::runtime_error("falta " + std::string(nombre) + " en la petición");
    }
    elemento = elemento.next_sibling();
  }
  return entrada;
}

void Firmar(const fs::path& origen, const fs::path& destino) {
  std::ifstream fichero(origen, std::ios::binary);
  if (!fichero) throw std::runtime_error("no se puede leer " + origen.string());
  std::string xml((std::istreambuf_iterator<char>(fichero)), {});
  const std::size_t fin = xml.rfind("</fe:Facturae>");
  if (fin == std::string::npos) throw std::runtime_error("el documento no es una factura");
  Escribir(destino, xml.insert(fin, kFirma));
}

/// Code of the registry and of the tracking, and today's date.
std::string Conforme(const std::string& lote) {
  const std::time_t ahora = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&ahora, &local);
  char fecha[11];
  if (std::strftime(fecha, sizeof fecha, "%d/%m/%Y", &local) == 0) return {};
  return "OK,DEMO-R" + lote + ",DEMO-T" + lote + "," + fecha;
}

void Atender(const fs::path& carpeta, std::string_view modo) {
  if (modo == "muere") std::raise(SIGKILL);
  if (modo == "nada") return;
  if (modo == "vacio") return Escribir(carpeta / "salida.xml", "");
  if (modo == "basura") return Escribir(carpeta / "salida.xml", "<salida><nombre>OK,R1");
  if (modo == "rechaza") return Responder(carpeta, "ERROR,El certificado ha caducado");
  constexpr std::string_view kTarda = "tarda:", kResponde = "responde:", kDeja = "deja:";
  if (modo.starts_with(kTarda)) {
    int segundos = 0;
    std::from_chars(modo.data() + kTarda.size(), modo.data() + modo.size(), segundos);
    std::this_thread::sleep_for(std::chrono::seconds(segundos));
  }

  pugi::xml_document documento;
  const pugi::xml_node peticion = LeerPeticion(documento, carpeta);
  const fs::path firmado = peticion.child_value("rutaXMLFirmada");
  Firmar(peticion.child_value("rutaXML"), firmado);
  if (modo.starts_with(kDeja)) {
    fs::copy_file(modo.substr(kDeja.size()), carpeta / "salida.xml");
  } else if (modo.starts_with(kResponde)) {
    Responder(carpeta, std::string(modo.substr(kResponde.size())));
  } else {
    Responder(carpeta, modo == "corto" ? "OK,R123" : Conforme(firmado.stem().string()));
  }
}

}  // namespace

int main() {
  const fs::path carpeta = CarpetaTrabajo();
  const std::string modo = Variable("KVRAEDI_FIRMADOR");
  try {
    Atender(carpeta, modo);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "FirmadorPortal: " << error.what() << '\n';
    try {
      Responder(carpeta, std::string("ERROR,") + error.what());
    } catch (const std::exception&) {
      return 2;
    }
    return 1;
  }
}
