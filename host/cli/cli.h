#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace kvraedi::cli {

/// Runs the program in this process. `args` are the words after the program's name; results go to
/// `out`, messages to `err`. Gives back the exit code and throws nothing.
int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace kvraedi::cli
