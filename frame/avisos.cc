#include "frame/avisos.h"

#include <string>

namespace kvraedi {

void Avisar(std::string_view texto, std::string_view titulo, ui::Icon icono) {
  ui::CurrentToolkit().Show({std::string(texto), std::string(titulo), icono});
}

}  // namespace kvraedi
