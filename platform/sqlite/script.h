#pragma once

#include <string_view>
#include <vector>

namespace kvraedi::sqlite {

/// The statements of a script: what stands between ";" and lines that say GO. A ";" between BEGIN
/// and END does not separate.
std::vector<std::string_view> SplitScript(std::string_view script);

}  // namespace kvraedi::sqlite
