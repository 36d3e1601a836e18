#include <gtest/gtest.h>

#include <fstream>

#include "frame/codigo1252.h"
#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

class DocumentoXmlTest : public testing::Test {
 protected:
  std::string Guardado() {
    xml->Guardar(fichero);
    return entorno.ReadFile(fichero);
  }
  void Escribir(std::string_view contenido) { std::ofstream(fichero) << contenido; }

  CarpetaTemporal carpeta;
  std::filesystem::path fichero = carpeta / "doc.xml";
  EntornoSistema entorno;
  SuiteReferencia suite;
  std::unique_ptr<DocumentoXml> xml = suite.NuevoDocumentoXml(entorno);
};

TEST_F(DocumentoXmlTest, ElementosEnElOrdenEnQueSeAnaden) {
  const NodoXml raiz = xml->CrearRaiz("fe:raiz");
  xml->AtributoRaiz("xmlns:fe", "urn:a");
  xml->AtributoRaiz("otro", "\"<&");
  xml->AtributoRaiz("xmlns:fe", "urn:b");
  const NodoXml uno = xml->Elemento(raiz, "uno");
  xml->ElementoTexto(raiz, "dos", "a < b & \"c\" > ñ€😀");
  xml->Elemento(uno, "hijo", "línea 1\nlínea 2");
  xml->ElementoTexto(uno, "vacío", "");
  EXPECT_EQ(Guardado(),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<fe:raiz xmlns:fe=\"urn:b\" otro=\"&quot;&lt;&amp;\">\n"
            "  <uno>\n"
            "    <hijo>línea 1\nlínea 2</hijo>\n"
            "    <vacío />\n"
            "  </uno>\n"
            "  <dos>a &lt; b &amp; \"c\" &gt; ñ€😀</dos>\n"
            "</fe:raiz>\n");
  xml->Nuevo();
  xml->CrearRaiz("nueva");
  EXPECT_EQ(Guardado(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<nueva />\n");
}

TEST_F(DocumentoXmlTest, SinLoQueXmlNoAdmite) {
  const std::pair<std::string_view, std::string_view> casos[] = {
      {"a\x01"
       "b\x1F\tc",
       "ab\tc"},
      {std::string_view("\0x\0", 3), "x"},
      {"\xEF\xBF\xBEx\xEF\xBF\xBF", "x"},              // U+FFFE, U+FFFF
      {"\xED\xA0\x80x", "x"},                          // half of a surrogate pair
      {"\xC0\x80\xE0\x80\xAFx\xF0\x80\x80\x80", "x"},  // longer than need be
      {"\xF4\x90\x80\x80x\xFF", "x"},                  // beyond the last character
      {"x\xC3", "x"},
      {"\xF4\x8F\xBF\xBF\xEE\x80\x80", "\xF4\x8F\xBF\xBF\xEE\x80\x80"},
  };
  for (const auto& [texto, esperado] : casos) {
    xml->Nuevo();
    xml->ElementoTexto(xml->CrearRaiz("r"), "e", texto);
    xml->Guardar(fichero);
    xml->Cargar(fichero);
    EXPECT_EQ(xml->LeerTexto("e"), esperado);
  }
}

TEST_F(DocumentoXmlTest, LeeElTextoDeUnElementoYRechazaLoQueNoEsXml) {
  Escribir("<?xml version='1.0'?><s><otro/><x><nombre>OK,<![CDATA[R&1]]>,&amp;</nombre></x></s>");
  xml->Cargar(fichero);
  EXPECT_EQ(xml->LeerTexto("nombre"), "OK,R&1,&");
  EXPECT_EQ(xml->LeerTexto("otro") + xml->LeerTexto("no está"), "");
  // every byte of code page 1252 from 0x80 on; those that it lacks are controls
  std::string bytes = "<?xml version=\"1.0\" encoding='Windows-1252'?><a>";
  for (int c = 0x80; c <= 0xFF; ++c) bytes += static_cast<char>(c);
  Escribir(bytes + "</a>");
  xml->Cargar(fichero);
  EXPECT_EQ(xml->LeerTexto("a"), Leer1252(bytes.substr(bytes.size() - 128)));
  for (const std::string_view basura : {"", "basura", "<a><b></a>", "\x89PNG\r\n"}) {
    Escribir(basura);
    EXPECT_THROW(xml->Cargar(fichero), Error) << basura;
    EXPECT_EQ(xml->LeerTexto("a"), "") << basura;
  }
}

TEST_F(DocumentoXmlTest, ElPrivadoNoSustituye) {
  xml->CrearRaiz("r");
  xml->Guardar(fichero, AccesoFichero::kSoloPropietario);
  EXPECT_THROW(xml->Guardar(fichero, AccesoFichero::kSoloPropietario), Error);
}

}  // namespace
}  // namespace kvraedi
