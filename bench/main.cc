#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string_view>

#include "bench/puesto.h"

// Every case runs once in a process of its own, so that its peak memory is its own; scripts/bench
// starts them in turn and compares the two sides of each.
int main(int argc, char** argv) {
  try {
    kvraedi::bench::RegistrarInvoic();
    kvraedi::bench::RegistrarFacturas();
    kvraedi::bench::RegistrarFacturae();
    kvraedi::bench::RegistrarCoacsu();
    kvraedi::bench::RegistrarDesadv();
    kvraedi::bench::RegistrarOrders();
    kvraedi::bench::RegistrarPedidos();
    kvraedi::bench::RegistrarRecibidas();
#ifdef KVRAEDI_ODBC
    kvraedi::bench::RegistrarOdbc();
#endif
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kvraedi_bench: %s\n", error.what());
    return 1;
  }
}
