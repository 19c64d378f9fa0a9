#!/usr/bin/env bash
# Installs the Debian packages of the given lists that are missing, and says which: install-missing.sh LIST...
set -euo pipefail

missing=()
while read -r package; do
  case "$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)" in
    *" installed") ;;
    *) missing+=("$package") ;;
  esac
done < <(grep -hv '^#' "$@")
[ "${#missing[@]}" -eq 0 ] && exit 0

echo "Installing missing packages: ${missing[*]}"
sudo=()
[ "$(id -u)" -eq 0 ] || sudo=(sudo)
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
