#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/apoyo/fallos.h"
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
  EntornoSistema sistema;
  EntornoConFallos entorno{sistema};
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

TEST_F(DocumentoXmlTest, LeeElTextoDeUnElemento) {
  Escribir("<?xml version='1.0'?><s><otro/><x><nombre>OK,<![CDATA[R&1]]>,&amp;</nombre></x></s>");
  xml->Cargar(fichero);
  EXPECT_EQ(xml->LeerTexto("nombre"), "OK,R&1,&");
  EXPECT_EQ(xml->LeerTexto("otro"), "");
  EXPECT_EQ(xml->LeerTexto("no está"), "");
}

TEST_F(DocumentoXmlTest, LoQueNoEsXmlEsUnError) {
  for (const std::string_view basura : {"", "basura", "<a><b></a>", "\x89PNG\r\n"}) {
    Escribir(basura);
    EXPECT_THROW(xml->Cargar(fichero), Error) << basura;
    EXPECT_EQ(xml->LeerTexto("a"), "") << basura;
  }
  std::filesystem::remove(fichero);
  EXPECT_THROW(xml->Cargar(fichero), Error);
}

TEST_F(DocumentoXmlTest, ElPrivadoEsDeSuDuenoYNoSustituye) {
  xml->CrearRaiz("r");
  xml->Guardar(fichero, AccesoFichero::kSoloPropietario);
  struct stat datos {};
  ASSERT_EQ(::stat(fichero.c_str(), &datos), 0);
  EXPECT_EQ(datos.st_mode & 0777U, 0600U);
  EXPECT_THROW(xml->Guardar(fichero, AccesoFichero::kSoloPropietario), Error);
}

TEST_F(DocumentoXmlTest, UnFalloAlEscribirLlegaAQuienGuarda) {
  xml->ElementoTexto(xml->CrearRaiz("r"), "e", std::string(200000, 'x'));
  for (int k = 1;; ++k) {
    entorno.fallo.FallarEn(k);
    try {
      xml->Guardar(fichero);
      break;
    } catch (const Error& error) {
      EXPECT_STREQ(error.what(), "No queda espacio");
    }
    ASSERT_LT(k, 100);
  }
  EXPECT_EQ(std::filesystem::file_size(fichero), 200000 + 39 + 19);
}

}  // namespace
}  // namespace kvraedi
