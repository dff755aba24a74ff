# Sourced by ./run and ./check: installs what the build needs on a Debian machine, only what is missing.
paquets_construction="clang cmake ninja-build ccache lld qt6-base-dev qt6-base-dev-tools libqt6svg6-dev libgl1-mesa-dev libsqlite3-dev pkgconf libqpdf-dev libharfbuzz-dev"
paquets_execution="qt6-qpa-plugins libqt6svg6 qt6-translations-l10n fonts-liberation2 fonts-dejavu-core xdg-utils"
paquets_ecran="xvfb openbox xdotool imagemagick x11-utils"
paquets_essais="python3 libxtst6 poppler-utils qpdf libgtest-dev libgmock-dev libbenchmark-dev llvm clang-tidy clang-format"

installe() {
  local manque=""
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'ok installed' || manque="$manque $p"
  done
  [ -z "$manque" ] && return 0
  local sudo=""
  [ "$(id -u)" = 0 ] || sudo="sudo"
  echo "Installing:$manque"
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends $manque >/dev/null
}
