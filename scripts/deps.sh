# Shared by ./run, ./test and .ci/run (sourced, not executed).
# Holds the one list of Debian packages the build needs and the helpers that
# install what is missing and configure a build directory.

# Compiler and build tools, Qt 6 for the desktop program, GoogleTest for the
# tests, Google Benchmark for the benchmarks, Xvfb for running the window
# without a real display; help2man for the manual page of tessaly-cli,
# dpkg-dev for the package's dependencies (dpkg-shlibdeps), the validators
# of the launcher and the AppStream metainfo for scripts/check-package.sh, and
# the fonts the widget tests draw with (their own, DejaVu, and those of common
# desktops the layout must also fit: Cantarell, Liberation).
TESSALY_PACKAGES=(
  g++
  cmake
  ninja-build
  qt6-base-dev
  libgtest-dev
  libbenchmark-dev
  xvfb
  xauth
  help2man
  dpkg-dev
  desktop-file-utils
  appstream
  fonts-dejavu-core
  fonts-cantarell
  fonts-liberation2
)

# The fuzz harnesses (fuzz/run) need clang and its runtime libraries, which
# hold libFuzzer and the sanitizers; only fuzz/run installs them.
TESSALY_FUZZ_PACKAGES=(
  clang
  libclang-rt-14-dev
)

# Installs the packages that dpkg does not report as installed; does nothing
# (and needs no network) when everything is there already.
tessaly_install_deps() {
  tessaly_install_packages "${TESSALY_PACKAGES[@]}"
}

# The same for the fuzz harnesses' packages.
tessaly_install_fuzz_deps() {
  tessaly_install_packages "${TESSALY_FUZZ_PACKAGES[@]}"
}

# tessaly_install_packages PACKAGE...: installs those of them that are missing.
tessaly_install_packages() {
  local missing=() pkg
  for pkg in "$@"; do
    if [[ "$(dpkg -s "$pkg" 2>/dev/null)" != *"Status: install ok installed"* ]]; then
      missing+=("$pkg")
    fi
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  echo "Installing missing packages: ${missing[*]}"
  local sudo=()
  if [ "$(id -u)" -ne 0 ]; then
    sudo=(sudo)
  fi
  "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q &&
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# tessaly_configure DIR [CMAKE-OPTION...]: configures DIR with Ninja, keeping
# optimisation and debug information unless an option says otherwise; ccache
# is used when it is installed.
tessaly_configure() {
  local dir=$1
  shift
  local launcher=()
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  cmake -S . -B "$dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" "$@"
}

# As many jobs as the machine has cores.
TESSALY_JOBS=$(nproc)
