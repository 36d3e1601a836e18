#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::odbc {

/// What a connection string keeps to itself: the values of user and password.
class ConnectionSecrets {
 public:
  explicit ConnectionSecrets(std::string_view connection_string);

  /// The text without them: pairs like "PWD=..." lose their value, and the values themselves go
  /// wherever they stand as a word; a password of four characters or more, wherever it stands.
  std::string Hide(std::string_view text) const;

 private:
  struct Secret {
    std::string value;
    bool anywhere = false;
  };
  std::vector<Secret> secrets_;
};

}  // namespace kvraedi::odbc
