#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// The fuzzer's bytes as a file.
class Entrada : public FileReader {
 public:
  Entrada(const std::uint8_t* bytes, std::size_t tamano) : resto_(bytes, tamano) {}
  std::size_t Read(std::span<char> block) override {
    const std::size_t leidos = std::min(block.size(), resto_.size());
    std::copy_n(resto_.begin(), leidos, block.begin());
    resto_ = resto_.subspan(leidos);
    return leidos;
  }

 private:
  std::span<const std::uint8_t> resto_;
};

inline std::unique_ptr<FileReader> Fichero(const std::uint8_t* bytes, std::size_t tamano) {
  return std::make_unique<Entrada>(bytes, tamano);
}

}  // namespace kvraedi
