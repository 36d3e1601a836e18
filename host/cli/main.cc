#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "host/cli/cli.h"

int main(int argc, char** argv) {
  // A reader that goes away must not end the program half-way through a sending.
  std::signal(SIGPIPE, SIG_IGN);
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> args(argv + (argc > 0 ? 1 : 0), argv + argc);
  return kvraedi::cli::RunCli(args, std::cout, std::cerr);
}
