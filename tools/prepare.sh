# Sourced by the scripts: installs what is missing and configures build/.

packages() {
  echo g++ cmake ninja-build pkg-config libsdl2-dev libsdl2-image-dev libsdl2-ttf-dev libsdl2-mixer-dev libx11-dev \
    libwayland-dev wayland-protocols fonts-liberation2 fonts-dejavu-core "$@"
}

# Installs the missing ones of the packages named.
install_missing() {
  local missing=()
  local package
  if ! command -v dpkg-query >/dev/null; then
    if ! command -v cmake >/dev/null || ! command -v pkg-config >/dev/null; then
      echo "These packages, by their Debian names, are needed: $*" >&2
      exit 1
    fi
    return
  fi
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  if ! command -v apt-get >/dev/null; then
    echo "These packages, by their Debian names, are missing: ${missing[*]}" >&2
    exit 1
  fi
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "Please install these packages as root: ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  "${as_root[@]}" apt-get -qq update
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y install --no-install-recommends "${missing[@]}"
}

configure() { cmake -S . -B build -G Ninja >/dev/null; }
