# Which Debian packages each purpose needs, and how the missing ones are installed. Sourced by ./run and ./test.

build_packages=(
  cmake ninja-build g++ ccache pkg-config python3
  qt6-base-dev qt6-base-dev-tools libqt6svg6-dev libgl-dev libasound2-dev libsndfile1-dev
)
run_packages=(fonts-noto-cjk qt6-translations-l10n)
virtual_display_packages=(xvfb xauth openbox xdotool imagemagick)
test_packages=(
  libgtest-dev libgmock-dev libbenchmark-dev clang clang-format libclang-rt-14-dev
  xvfb xauth openbox xdotool xfonts-mplus
  qemu-system-x86 busybox-static cpio kmod
)

# install_missing PACKAGE...: installs those that are not there, through apt, asking once and only at a terminal.
install_missing() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  command -v apt-get >/dev/null || { echo "These Debian packages are missing: ${missing[*]}" >&2; exit 1; }

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install as root: apt-get install ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
  fi
  echo "These Debian packages are missing and will be installed: ${missing[*]}"
  if [ -t 0 ] && [ "$(id -u)" -ne 0 ]; then
    local answer
    read -r -p "Go on? [Y/n] " answer
    case "$answer" in [nN]*) exit 1 ;; esac
  fi
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
