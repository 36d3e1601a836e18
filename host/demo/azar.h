#pragma once

#include <cstdint>

namespace kvraedi::demo {

/// A small generator of numbers (splitmix64): the same seed gives the same numbers everywhere.
class Azar {
 public:
  explicit Azar(std::uint64_t semilla) : estado_(semilla) {}

  std::uint64_t Siguiente() {
    std::uint64_t z = (estado_ += 0x9E3779B97F4A7C15U);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
    return z ^ (z >> 31);
  }
  /// A whole number from `desde` to `hasta`, both included.
  std::int64_t Entre(std::int64_t desde, std::int64_t hasta) {
    return desde +
           static_cast<std::int64_t>(Siguiente() % static_cast<std::uint64_t>(hasta - desde + 1));
  }
  /// True once in `n` times on average.
  bool UnaDe(std::int64_t n) { return Entre(1, n) == 1; }
  const auto& Elegir(const auto& lista) { return lista[Siguiente() % lista.size()]; }

 private:
  std::uint64_t estado_;
};

}  // namespace kvraedi::demo
