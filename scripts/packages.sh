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
  local as_root=() log status=0
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "missing packages: ${missing[*]} (installing them takes root or sudo)" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  for architecture in "${architectures[@]}"; do
    "${as_root[@]}" dpkg --add-architecture "$architecture"
  done
  echo "installing: ${missing[*]}" >&2
  log=$(mktemp)
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -c \
    'apt-get update -qq; apt-get install -y -qq --no-install-recommends "$@"' sh \
    "${missing[@]}" >"$log" 2>&1 || status=$?
  [ "$status" -eq 0 ] || cat "$log" >&2
  rm -f "$log"
  return "$status"
}
