#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvraedi::suite {

/// A UTF-8 text without what XML does not take for a character. A clean text is not copied: it must
/// outlive the object.
class TextoXml {
 public:
  explicit TextoXml(std::string_view texto);

  std::string_view Valor() const { return sucio_ ? std::string_view(copia_) : original_; }

 private:
  std::string_view original_;
  std::string copia_;
  bool sucio_ = false;
};

/// An XML file in UTF-8 when it is one of code page 1252, by its declaration or because its bytes
/// are not UTF-8; nothing for any other.
std::optional<std::string> Desde1252(std::string_view bytes);

}  // namespace kvraedi::suite
