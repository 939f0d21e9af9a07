# Sourced by run, test and .ci/run: the packages of each purpose and how to install those that are missing.

engine_packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev wamerican-huge)
window_packages=(qt6-base-dev libqt6svg6 qt6-gtk-platformtheme)
test_packages=(libgtest-dev libbenchmark-dev python3 qt6-base-private-dev)
shell_test_packages=(zsh fish fzf)
print_test_packages=(cups cups-client poppler-utils fonts-liberation fonts-dejavu-core)
fuzz_packages=(clang libclang-rt-14-dev)
lint_packages=(clang-format clang-tidy)

# install_missing PACKAGE...: asks for root rights only when something is missing.
install_missing() {
  local missing=() package
  for package in "$@"; do
    if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      missing+=("$package")
    fi
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing: ${missing[*]}" >&2
  "${as_root[@]}" apt-get update -q >&2
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
}
