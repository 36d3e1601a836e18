#pragma once

#include <string>
#include <string_view>

namespace kvraedi {

/// The base64 text of the bytes, in lines of 72 characters; a line feed stands between two lines,
/// none at the end.
std::string CodificaBase64(std::string_view bytes);

}  // namespace kvraedi
