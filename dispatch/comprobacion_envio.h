#pragma once

#include <cstdint>
#include <string_view>

namespace kvraedi {

/// How a customer receives invoices: codes of EDI_Plataforma and EDI_TipoMsg.
struct ConfiguracionEnvio {
  std::int16_t plataforma = 0;
  std::int16_t mensaje = 0;
};

inline constexpr std::int16_t kPlataformaFacturae = 3;
inline constexpr std::int16_t kMensajeFacturae = 1;

inline constexpr std::string_view kFaltaPlataforma =
    "Debe definir el tipo de plataforma de envío para el cliente seleccionado";
inline constexpr std::string_view kFaltaMensaje =
    "Debe definir el tipo de mensaje de envío para el cliente seleccionado";

/// The title of what sending and exporting say.
inline constexpr std::string_view kAtencion = "¡ Atención !";

// Message boxes under that title, with the information and the exclamation icon.

void Informar(std::string_view texto);
void Exigir(std::string_view texto);

}  // namespace kvraedi
