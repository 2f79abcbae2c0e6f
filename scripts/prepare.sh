# What ./run and ./test have in common: packages, configuring, building. To be sourced.
set -eu

say() { printf '\n\033[1m== %s\033[0m\n' "$*"; }
fail() {
  printf '\n%s\n' "$*" >&2
  exit 1
}

packages="g++ cmake ninja-build libsqlite3-dev libpq-dev libgtest-dev qt6-base-dev libcups2-dev fonts-liberation"

missing_packages() {
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || printf '%s ' "$package"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    fail "These packages must be installed first, as root: $missing"
  fi
}

# Installs what is missing of the packages named, and touches nothing when none is.
install_packages() {
  missing=$(missing_packages "$@")
  [ -n "$missing" ] || return 0
  say "Installing: $missing"
  command -v apt-get >/dev/null || fail "This machine has no apt-get. Please install by hand: $missing"
  as_root apt-get update -q || fail "The package lists could not be read. Is the network's package mirror reachable?"
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing ||
    fail "These packages could not be installed: $missing"
}

# build PRESET [TARGET...]: configures and builds, showing ninja's own progress.
build() {
  preset=$1
  shift
  say "Building ($preset)"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" ${*:+--target "$@"}
}
