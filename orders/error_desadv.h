#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "kvraedi/error.h"

namespace kvraedi::desadv {

/// Number of the failures that the component itself tells while it takes a file in.
inline constexpr auto kErrorDesadv = static_cast<std::int32_t>(0x80040001);

[[noreturn]] inline void Fallar(std::string texto) {
  throw Error(kErrorDesadv, "clsDesadv", std::move(texto));
}

}  // namespace kvraedi::desadv
