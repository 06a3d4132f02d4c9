# SPDX-FileCopyrightText: The Morvane developers
# Sourced by run and test: installs the Debian packages that are not there yet.

build_packages=(g++ cmake ninja-build ccache pkg-config libsqlcipher-dev libssl-dev nlohmann-json3-dev libcli11-dev
                libcairo2-dev libcups2-dev qt6-base-dev libqt6svg6 qt6-translations-l10n fonts-ipaexfont-gothic fonts-ipaexfont-mincho
                fonts-ipamj-mincho)
test_packages=(libgtest-dev python3 poppler-utils cups-daemon clang-format-14)
bench_packages=(libbenchmark-dev python3)
picture_packages=(xvfb openbox poppler-utils)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

need_packages() {
    local missing=() name
    for name in "$@"; do
        if [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" != installed ]; then
            missing+=("$name")
        fi
    done
    if [ "${#missing[@]}" -eq 0 ]; then
        return 0
    fi
    echo "Installing: ${missing[*]}" >&2
    as_root apt-get update -q
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}
