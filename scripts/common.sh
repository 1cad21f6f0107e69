# Read by the other scripts: where the project stands, and how many jobs the machine takes.
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
if [[ -z ${CMAKE_CXX_COMPILER_LAUNCHER:-} ]] && command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# Runs a command quietly: its output is shown only if it fails.
quietly() {
  local log status=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 || status=$?
  [[ $status -eq 0 ]] || cat "$log" >&2
  rm -f "$log"
  return "$status"
}

# build PRESET [TARGET...]: configures and builds.
build() {
  local preset=$1
  shift
  quietly cmake --preset "$preset"
  quietly cmake --build --preset "$preset" ${1:+--target "$@"}
}
