#include "frame/lector_texto.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "frame/codigo1252.h"
#include "frame/numero.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

/// Gives a text in pieces of so many bytes.
class Trozos : public FileReader {
 public:
  Trozos(std::string texto, std::size_t trozo) : texto_(std::move(texto)), trozo_(trozo) {}
  std::size_t Read(std::span<char> block) override {
    const std::size_t bytes = std::min({trozo_, block.size(), texto_.size() - leidos_});
    std::copy_n(texto_.data() + leidos_, bytes, block.data());
    leidos_ += bytes;
    return bytes;
  }

 private:
  std::string texto_;
  std::size_t trozo_;
  std::size_t leidos_ = 0;
};

std::vector<std::string> Lineas(const std::string& texto, std::size_t trozo) {
  LectorTexto lector(std::make_unique<Trozos>(texto, trozo));
  std::vector<std::string> lineas;
  while (lector.Siguiente()) {
    lineas.emplace_back(lector.Linea());
    EXPECT_EQ(static_cast<std::int64_t>(lineas.size()), lector.Numero());
  }
  return lineas;
}

TEST(LectorTexto, EveryWayToEndALineInPiecesOfAnySize) {
  using Esperado = std::vector<std::string>;
  const struct {
    std::string texto;
    Esperado lineas;
  } casos[] = {{"", {}},
               {"\n", {""}},
               {"\r\n\r\n", {"", ""}},
               {"uno\r\ndos\ntres", {"uno", "dos", "tres"}},
               {"uno\r\ndos\r\n", {"uno", "dos"}},
               {"a\rb\nc\r", {"a\rb", "c"}},
               {std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
               {std::string(200000, 'x') + "\ny", {std::string(200000, 'x'), "y"}}};
  for (const auto& caso : casos) {
    for (const std::size_t trozo : {1U, 2U, 3U, 70000U}) {
      EXPECT_EQ(caso.lineas, Lineas(caso.texto, trozo)) << trozo;
    }
  }
}

TEST(LectorTexto, ALineWithoutEndIsRefusedBeforeItFillsTheMemory) {
  LectorTexto lector(
      std::make_unique<Trozos>(std::string(LectorTexto::kMasLarga + 1, 'x'), 1 << 16));
  EXPECT_THROW(lector.Siguiente(), Error);
}

TEST(Leer1252, EveryByteComesBackAsItWas) {
  std::string bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ("€ ñ ÿ", Leer1252("\x80 \xF1 \xFF"));
  std::string vuelta(bytes.size(), ' ');
  EXPECT_TRUE(Escribir1252(Leer1252(bytes), vuelta).fits);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    // What the code page lacks, and line ends, are not written back as they were.
    if (vuelta[i] != '?' && vuelta[i] != ' ') {
      EXPECT_EQ(bytes[i], vuelta[i]) << i;
    }
  }
  EXPECT_EQ(6, std::count(vuelta.begin(), vuelta.end(), '?'));
}

TEST(NumeroRecibido, TakesNumbersAndNothingElse) {
  const struct {
    const char* texto;
    std::optional<std::int64_t> unidades;
  } casos[] = {{"", 0},
               {"   ", 0},
               {"12", 120000},
               {" -1,5 ", -15000},
               {".25", 2500},
               {"+3.", 30000},
               {"0000007", 70000},
               {"1e400", {}},
               {"1e3", {}},
               {"1.2.3", {}},
               {"1,2.3", {}},
               {"1); DROP TABLE x", {}},
               {"-", {}},
               {".", {}},
               {"1 2", {}},
               {"99999999999999999999", {}},
               {"99999999999999", 999999999999990000},
               {"-9999999999.9999", -99999999999999},
               {"922337203685477.58", 9223372036854775800},
               {"999999999999999", {}},
               {"1-", {}},
               {"0x10", {}},
               {"0.00005", 1},
               {"12\t", {}}};
  for (const auto& caso : casos) {
    const auto numero = NumeroRecibido(caso.texto);
    ASSERT_EQ(caso.unidades.has_value(), numero.has_value()) << caso.texto;
    if (numero) {
      EXPECT_EQ(*caso.unidades, numero->Units()) << caso.texto;
    }
  }
}

}  // namespace
}  // namespace kvraedi
