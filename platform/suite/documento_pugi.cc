#include "platform/suite/documento_pugi.h"

#include <memory>

#include "kvraedi/error.h"
#include "platform/suite/texto_xml.h"

namespace kvraedi::suite {
namespace {

constexpr std::string_view kDeclaracion = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr std::size_t kBloque = std::size_t{64} * 1024;

NodoXml Asa(pugi::xml_node nodo) { return {nodo.internal_object()}; }

pugi::xml_node Nodo(NodoXml asa) {
  return pugi::xml_node(static_cast<pugi::xml_node_struct*>(asa.id));
}

/// Collects the library's small pieces into blocks.
class EscritorPorBloques : public pugi::xml_writer {
 public:
  explicit EscritorPorBloques(FileWriter& fichero) : fichero_(fichero) {
    bloque_.reserve(kBloque);
    bloque_ = kDeclaracion;
  }

  void write(const void* datos, std::size_t tamano) override {
    if (bloque_.size() + tamano > kBloque) Vaciar();
    bloque_.append(static_cast<const char*>(datos), tamano);
  }
  void Vaciar() {
    fichero_.Write(bloque_);
    bloque_.clear();
  }

 private:
  FileWriter& fichero_;
  std::string bloque_;
};

using ReceptorElementos = std::function<void(std::string_view, std::string_view)>;

void RecorrerNodo(pugi::xml_node nodo, std::string& ruta, const ReceptorElementos& recibir) {
  bool tieneHijos = false;
  for (const pugi::xml_node hijo : nodo.children()) {
    if (hijo.type() != pugi::node_element) continue;
    tieneHijos = true;
    const std::string_view nombre = hijo.name();
    const std::size_t antes = ruta.size();
    if (!ruta.empty()) ruta += '/';
    ruta += nombre.substr(nombre.find(':') + 1);
    RecorrerNodo(hijo, ruta, recibir);
    ruta.resize(antes);
  }
  if (!tieneHijos) recibir(ruta, nodo.text().get());
}

}  // namespace

NodoXml DocumentoPugi::CrearRaiz(std::string_view nombre) {
  return Asa(documento_.append_child(std::string(nombre).c_str()));
}

void DocumentoPugi::AtributoRaiz(std::string_view nombre, std::string_view valor) {
  pugi::xml_node raiz = documento_.document_element();
  const std::string clave(nombre);
  pugi::xml_attribute atributo = raiz.attribute(clave.c_str());
  if (!atributo) atributo = raiz.append_attribute(clave.c_str());
  const TextoXml limpio(valor);
  atributo.set_value(limpio.Valor().data(), limpio.Valor().size());
}

NodoXml DocumentoPugi::Elemento(NodoXml padre, std::string_view nombre, std::string_view texto) {
  pugi::xml_node nodo = Nodo(padre).append_child(std::string(nombre).c_str());
  const TextoXml limpio(texto);
  if (!limpio.Valor().empty()) {
    nodo.append_child(pugi::node_pcdata).set_value(limpio.Valor().data(), limpio.Valor().size());
  }
  return Asa(nodo);
}

void DocumentoPugi::Guardar(const std::filesystem::path& fichero, AccesoFichero acceso) {
  const auto destino = acceso == AccesoFichero::kSoloPropietario ? entorno_.CreatePrivate(fichero)
                                                                 : entorno_.Create(fichero);
  EscritorPorBloques escritor(*destino);
  documento_.save(escritor, "  ", pugi::format_indent | pugi::format_no_declaration,
                  pugi::encoding_utf8);
  escritor.Vaciar();
  destino->Close();
}

void DocumentoPugi::Cargar(const std::filesystem::path& fichero) {
  documento_.reset();
  const std::string bytes = entorno_.ReadFile(fichero);
  const auto utf8 = Desde1252(bytes);  // the library does not know that code page
  const pugi::xml_parse_result leido =
      utf8 ? documento_.load_buffer(utf8->data(), utf8->size(), pugi::parse_default,
                                    pugi::encoding_utf8)
           : documento_.load_buffer(bytes.data(), bytes.size());
  if (leido) return;
  documento_.reset();
  const std::u8string nombre = fichero.u8string();
  throw Error(kErrorFile, "DocumentoXml",
              "El fichero " + std::string(nombre.begin(), nombre.end()) +
                  " no contiene un documento XML válido");
}

std::string DocumentoPugi::LeerTexto(std::string_view nombre) const {
  const pugi::xml_node elemento = documento_.find_node([nombre](pugi::xml_node nodo) {
    return nodo.type() == pugi::node_element && nombre == nodo.name();
  });
  return elemento ? pugi::xpath_query("string()").evaluate_string(elemento) : std::string();
}

void DocumentoPugi::Recorrer(const ReceptorElementos& recibir) const {
  std::string ruta;
  RecorrerNodo(documento_.document_element(), ruta, recibir);
}

}  // namespace kvraedi::suite
