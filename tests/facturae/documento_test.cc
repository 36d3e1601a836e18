#include <fstream>
#include <regex>
#include <utility>

#include "frame/base64.h"
#include "tests/facturae/escenario_facturae.h"

namespace kvraedi {
namespace {

/// Plays documentos.txt, whose head says how it is written.
class Documento : public EscenarioFacturae {
 protected:
  static std::string Repetir(std::string texto) {
    static const std::regex repeticion(R"(\{([^{}*]+)\*([0-9]+)\})");
    for (std::smatch hallado; std::regex_search(texto, hallado, repeticion);) {
      std::string repetido;
      for (int i = std::stoi(hallado[2]); i > 0; --i) repetido += hallado[1];
      texto = hallado.prefix().str() + repetido + hallado.suffix().str();
    }
    return texto;
  }
  void Preparar(const std::string& linea) {
    construido = false;
    if (linea == "ticket") {
      pedida = Ticket();
    } else if (linea == "exenta") {
      empresa->igic = false;
    } else if (linea.starts_with("revision ")) {
      estado.claseFactura = "OR";
      revision = static_cast<std::int16_t>(std::stoi(linea.substr(9)));
    } else {
      base->Run(linea);
    }
  }
  std::string Ver(const std::string& xpath) {
    if (xpath == "error") return ErrorDe([&] { Construir(pedida, revision); });
    if (!std::exchange(construido, true)) Construir(pedida, revision);
    if (xpath == "usada") return std::to_string(estado.revisionUsada);
    const pugi::xpath_query consulta(xpath.c_str());
    const pugi::xml_node raiz = documento.document_element();
    if (consulta.return_type() != pugi::xpath_type_node_set) return consulta.evaluate_string(raiz);
    const std::string zona = Zona(xpath);
    return zona.empty() ? consulta.evaluate_string(raiz) : zona;
  }
  void Deshacer() {
    base->RollbackTrans();
    base->BeginTrans();
    pedida = Factura();
    revision = 0;
    empresa->igic = true;
    estado = facturae::EstadoFacturaE();
  }

  facturae::ClaveDocumento pedida = Factura();
  std::int16_t revision = 0;
  bool construido = false;
};

TEST_F(Documento, SaysWhatTheDatabaseSays) {
  std::istringstream lineas(Guion("facturae/documentos.txt"));
  base->BeginTrans();
  std::string xpath;
  std::string esperado;
  int numero = 0;
  const auto comprobar = [&] {
    if (xpath.empty()) return;
    EXPECT_EQ(Ver(xpath), esperado) << "before line " << numero;
    xpath.clear();
  };
  for (std::string linea; ++numero, std::getline(lineas, linea);) {
    linea = Repetir(linea);
    if (linea.starts_with("    ")) {
      esperado += linea.substr(4);
      continue;
    }
    comprobar();
    if (linea.empty()) {
      Deshacer();
    } else if (linea.starts_with("  ")) {
      const std::size_t flecha = linea.find(" => ");
      xpath = linea.substr(2, flecha - 2);
      esperado = linea.substr(flecha + 4);
    } else if (linea[0] != '#') {
      Preparar(linea);
    }
  }
  comprobar();
  base->RollbackTrans();
  EXPECT_STREQ(documento.document_element().first_attribute().name(), "xmlns:fe");
  EXPECT_STREQ(documento.document_element().last_attribute().value(),
               "http://www.w3.org/2000/09/xmldsig#");
}

TEST_F(Documento, IdentificadoresDeLote) {
  base->Execute("UPDATE Facturas SET TipoDoc = 1, Serie = 5");
  const std::pair<facturae::ClaveDocumento, std::string> casos[] = {
      {{.ejercicio = 2024, .serie = 5, .codigo = 123, .tipoDoc = 1}, "01202400000012301005"},
      {Ticket(), "0100203050324000000077"},
      {Factura(124), ""}};
  for (const auto& [clave, identificador] : casos) {
    facturae::CalculaTotalesFacturas(estado, clave);
    EXPECT_EQ(estado.identificadorLote, identificador);
    EXPECT_EQ(estado.numFacturas, identificador.empty() ? 0 : 1);
  }
}

TEST_F(Documento, SinFacturaNiClienteOSinPersonaJuridica) {
  base->Execute("UPDATE Clientes SET Tipo = 1");
  estado.tipoPersona = "F";
  Construir(Factura());
  EXPECT_EQ(Texto("Parties/BuyerParty/TaxIdentification/PersonTypeCode"), "F");
  EXPECT_EQ(Cuantos("//LegalEntity"), 0U);
  EXPECT_EQ(Cuantos("//AdministrativeCentre"), 3U);

  base->Execute("DELETE FROM Clientes");
  Construir(Factura(124));
  EXPECT_EQ(Zona("Parties"), "SellerParty{TaxIdentification=} BuyerParty=");
  EXPECT_EQ(Zona("."),
            "FileHeader{" + Zona("FileHeader") + "} Parties{" + Zona("Parties") + "} Invoices=");
  EXPECT_TRUE(Zona("//Batch").starts_with("BatchIdentifier= InvoicesCount= "));
}

class Anexos : public EscenarioFacturae {};

TEST_F(Anexos, UnElementoPorFichero) {
  Anexar("informe.final.pdf", "255044462D312E34");
  Anexar("L''hort", "FFFF");
  Anexar("vacio.pdf", "");
  Anexar("..\\..\\fuera.pdf", "25", true);
  Construir(Factura());
  EXPECT_EQ(Zona("//RelatedDocuments"),
            "Attachment{AttachmentFormat=pdf AttachmentEncoding=BASE64"
            " AttachmentDescription=Descripción AttachmentData=JVBERi0xLjQ=}"
            " Attachment{AttachmentFormat=L'hort AttachmentEncoding=BASE64"
            " AttachmentDescription=Descripción AttachmentData=//8=}");
  EXPECT_EQ(std::filesystem::file_size(anexos / "informe.final.pdf"), 8U);
  EXPECT_FALSE(std::filesystem::exists(anexos / "vacio.pdf"));

  Construir(Ticket());
  EXPECT_EQ(Texto("//AttachmentData"), "JQ==");
  EXPECT_TRUE(std::filesystem::exists(anexos / "fuera.pdf")) << "never outside its folder";
  Anexar("x/..", "25", true);
  EXPECT_THROW(Construir(Ticket()), Error);
  base->Execute("DELETE FROM EDI_Anexos");
  Construir(Ticket());
  EXPECT_EQ(Cuantos("//AdditionalData"), 0U);
}

#if !defined(KVRAEDI_SANITIZE)  // the sanitizers keep freed memory
/// Megabytes: the most that the process has held since the mark was set, and what it holds.
struct Memoria {
  static void Marcar() { std::ofstream("/proc/self/clear_refs") << '5'; }
  static double Leer(std::string_view clave) {
    std::ifstream estado("/proc/self/status");
    for (std::string linea; std::getline(estado, linea);) {
      if (linea.starts_with(clave)) return std::stod(linea.substr(clave.size())) / 1024;
    }
    return 0;
  }
};

TEST_F(Anexos, UnoDeCincuentaMegasNoLlenaLaMemoria) {
  constexpr std::size_t kMega = std::size_t{1024} * 1024;
  Anexar("plano.pdf", "25");
  base->UpdateBlob("SELECT Stream FROM EDI_Anexos", "Stream", Bytes(50 * kMega, std::byte{0x5A}));
  Memoria::Marcar();
  const double antes = Memoria::Leer("VmRSS:");
  {
    const auto xml = SuiteActual().NuevoDocumentoXml(EntornoActual());
    facturae::ConstruirDocumento(estado, *xml, 200, Factura(), 0);
    xml->Guardar(fichero);
  }
  const double subida = Memoria::Leer("VmHWM:") - antes;
  EXPECT_GT(std::filesystem::file_size(fichero), 67 * kMega);
  EXPECT_GT(subida, 50);
  EXPECT_LT(subida, 250);
}
#endif

}  // namespace
}  // namespace kvraedi
