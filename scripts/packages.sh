# Sourced by the commands of this project: installs Debian packages that are missing.

# need_packages <package>...
need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "installing: ${missing[*]}" >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c \
    'apt-get update -qq; apt-get install -y -qq --no-install-recommends "$@"' sh \
    "${missing[@]}" >&2
}
