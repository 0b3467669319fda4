# Sourced by the commands of this project: installs Debian packages that are missing.

# need_packages <package>[:<architecture>]...
need_packages() {
  local missing=() architectures=() package architecture
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' && continue
    missing+=("$package")
    architecture=${package#*:}
    [ "$architecture" = "$package" ] || architectures+=("$architecture")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  for architecture in "${architectures[@]}"; do
    "${as_root[@]}" dpkg --add-architecture "$architecture"
  done
  echo "installing: ${missing[*]}" >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c \
    'apt-get update -qq; apt-get install -y -qq --no-install-recommends "$@"' sh \
    "${missing[@]}" >&2
}
