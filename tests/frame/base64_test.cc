#include "frame/base64.h"

#include <gtest/gtest.h>

namespace kvraedi {
namespace {

TEST(Base64, GruposCompletosYResto) {
  const std::pair<std::string_view, std::string_view> casos[] = {
      {"", ""},        {"f", "Zg=="},        {"fo", "Zm8="},
      {"foo", "Zm9v"}, {"foob", "Zm9vYg=="}, {std::string_view("\0\xFF\xFE", 3), "AP/+"},
  };
  for (const auto& [bytes, texto] : casos) EXPECT_EQ(CodificaBase64(bytes), texto);
}

TEST(Base64, LineasDeSetentaYDosCaracteres) {
  const std::string linea(72, 'A');
  EXPECT_EQ(CodificaBase64(std::string(54, '\0')), linea);
  EXPECT_EQ(CodificaBase64(std::string(55, '\0')), linea + "\nAA==");
  EXPECT_EQ(CodificaBase64(std::string(108, '\0')), linea + '\n' + linea);
}

}  // namespace
}  // namespace kvraedi
