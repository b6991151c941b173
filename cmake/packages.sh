# The packages we need on Debian and derivatives. Sourced by ./run, ./test and the scripts in scripts/
build_packages=(g++ cmake ninja-build libcli11-dev qt6-base-dev qt6-serialport-dev libfontconfig-dev)
test_packages=(git python3 clang-format libgtest-dev libgmock-dev librapidcheck-dev)
lint_packages=(clang-tidy)
bench_packages=(python3 pkg-config libbenchmark-dev libsimpleini-dev libglib2.0-dev lrzsz xvfb)

# Installs the missing ones of the given packages.
install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
    >/dev/null
}
