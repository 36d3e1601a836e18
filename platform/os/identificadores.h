#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace kvraedi {

/// Gives random identifiers in the form of a version 4 UUID: 36 characters, lower case.
class GeneradorIdentificadores {
 public:
  /// With a seed the same identifiers come in the same order on every machine, each once; without
  /// one they come from the system's random source.
  explicit GeneradorIdentificadores(std::optional<std::uint64_t> semilla) : estado_(semilla) {}

  /// Raises kErrorFile when the system's random source fails.
  std::string Nuevo();

 private:
  std::uint64_t Aleatorio();

  std::optional<std::uint64_t> estado_;
};

}  // namespace kvraedi
