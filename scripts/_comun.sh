# What the scripts have in common. They read it first: . scripts/_comun.sh
# shellcheck shell=bash
set -euo pipefail

raiz=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
programa=${0##*/}

# Debian packages, by what they are for.
paquetes_construir=(g++ cmake ninja-build libsqlite3-dev libssl-dev unixodbc-dev libpugixml-dev qt6-base-dev libcli11-dev libkainjow-mustache-dev fonts-dejavu-core)
paquetes_probar=(libgtest-dev libxml2-utils locales odbcinst tdsodbc libsqliteodbc python3)
paquetes_medir=(libbenchmark-dev python3)
paquetes_cobertura=(gcovr)
paquetes_fuzz=(clang libclang-rt-dev)
paquetes_revisar=(ccache clang-format clang-tidy python3)

# Without these ccache takes no file that uses a precompiled header.
export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime

decir() { printf '%s\n' "$*"; }
seccion() { printf '\n== %s ==\n' "$*"; }

fallar() {
  printf '%s: %s\n' "$programa" "$*" >&2
  exit 1
}

# Runs a command as the administrator: directly, or through sudo, which asks for a password only
# where somebody can type it.
como_root() {
  if ((EUID == 0)); then
    "$@"
  elif ! command -v sudo >/dev/null; then
    return 126
  elif [[ -t 0 ]]; then
    sudo "$@"
  else
    sudo -n "$@"
  fi
}

# Installs those of the named packages that are missing; asks for nothing when none is.
instalar() {
  local paquete faltan=()
  if ! command -v apt-get >/dev/null; then
    decir "Este sistema no tiene apt-get. Hace falta el equivalente de: $*" >&2
    return 0
  fi
  for paquete in "$@"; do
    [[ $(dpkg-query -W -f='${db:Status-Status} ' "$paquete" 2>/dev/null) == "installed "* ]] ||
      faltan+=("$paquete")
  done
  ((${#faltan[@]})) || return 0

  local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
  decir "Se instalan los paquetes que faltan: ${faltan[*]}"
  como_root "${apt[@]}" update ||
    decir "No se ha podido actualizar la lista de paquetes; se sigue con la que hay." >&2
  como_root "${apt[@]}" install -y --no-install-recommends "${faltan[@]}" ||
    fallar "no se han podido instalar los paquetes. Instálelos como administrador y repita:
  apt-get update && apt-get install --no-install-recommends ${faltan[*]}"
}

# Generates the Spanish locale, which some tests run under, where it is missing.
instalar_locale() {
  command -v localedef >/dev/null || return 0
  [[ $(locale -a 2>/dev/null) == *es_ES.utf8* ]] && return 0
  decir "Se genera la configuración regional es_ES.UTF-8"
  como_root localedef -i es_ES -f UTF-8 es_ES.UTF-8 ||
    fallar "no se ha podido generar es_ES.UTF-8. Como administrador:
  localedef -i es_ES -f UTF-8 es_ES.UTF-8"
}

# Configures a preset: configurar PRESET [-DOPTION=VALUE ...]. A build folder that is new leaves out
# tests and benchmarks unless the options name them; in one that exists they stay as they are.
configurar() {
  local preset=$1 opciones=()
  shift
  [[ -e $raiz/build/$preset/CMakeCache.txt ]] ||
    opciones=(-DKVRAEDI_TESTS=OFF -DKVRAEDI_BENCH=OFF)
  opciones+=("-DCMAKE_CXX_COMPILER_LAUNCHER=$(command -v ccache || true)" "$@")
  (cd -- "$raiz" && cmake --preset "$preset" --log-level=WARNING "${opciones[@]}")
}

# Builds a preset: construir PRESET [TARGET ...]; everything when no target is named.
construir() {
  local preset=$1
  shift
  (cd -- "$raiz" && cmake --build --preset "$preset" ${1:+--target "$@"})
}

# Runs the tests of a preset: probar PRESET [ARGUMENT OF CTEST ...].
probar() {
  local preset=$1
  shift
  (cd -- "$raiz" && QT_QPA_PLATFORM=offscreen ctest --preset "$preset" -j "$(nproc)" "$@")
}

# Lists the C++ files below the named folders, each ended by a NUL.
ficheros_cpp() {
  (cd -- "$raiz" && find "$@" -type f \( -name '*.h' -o -name '*.cc' \) -print0)
}
