# Sourced by ./run, ./test, ./bench and .ci/run: what each needs from the distribution, and how it is installed.

packages_build="g++ cmake ninja-build pkg-config ccache libicu-dev libsimdjson-dev nlohmann-json3-dev
libsigc++-3.0-dev libcli11-dev libacl1-dev libpulse-dev"
packages_interface="qt6-base-dev libxcb1-dev libgl-dev libgif-dev fonts-dejavu-core
fonts-quicksand fonts-noto-color-emoji"
packages_display="xvfb openbox x11-utils x11-xserver-utils imagemagick xdotool"
packages_test="libgtest-dev libgmock-dev librapidcheck-dev strace git busybox mawk gawk original-awk bash dash
python3 trayer xserver-xephyr acl attr locales at-spi2-core gir1.2-atspi-2.0 python3-gi dbus libglib2.0-bin
pulseaudio pulseaudio-utils klibc-utils"
packages_client="tmux python3 git util-linux"
packages_bench="libbenchmark-dev libcairo2-dev jq ripgrep xterm qml-qt6 qml6-module-qtquick
qml6-module-qtquick-window qml6-module-qtqml-workerscript"
packages_check="clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev"

say() { printf '== %s\n' "$*"; }

# missing_packages NAME... prints those that aren't installed.
missing_packages() {
    for package in "$@"; do
        case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) in
        installed) ;;
        *) printf '%s ' "$package" ;;
        esac
    done
}

# need NAME... installs what is missing, through apt, as root or with sudo.
need() {
    # shellcheck disable=SC2046 # the list is words on purpose
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    say "Installing Debian packages: $missing"
    as_root=
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || {
            echo "These packages are missing, and there is neither root nor sudo to install them: $missing" >&2
            exit 1
        }
        as_root=sudo
    fi
    # shellcheck disable=SC2086
    { $as_root apt-get update -q && $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends $missing; } >/tmp/mimkins-apt.$$.log 2>&1 || {
        tail -n 20 /tmp/mimkins-apt.$$.log >&2
        echo "apt could not install them; its words are above." >&2
        exit 1
    }
    rm -f /tmp/mimkins-apt.$$.log
}

# build PRESET [TARGET...] configures when needed and builds, quietly unless it fails.
build() {
    preset=$1
    shift
    log=build/$preset.log
    mkdir -p build
    say "Building ($preset; words in $log)"
    targets=
    [ $# -eq 0 ] || targets="--target $*"
    # shellcheck disable=SC2086
    if ! { cmake --preset "$preset" && cmake --build --preset "$preset" $targets; } >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        echo "The build failed; the end of $log is above." >&2
        exit 1
    fi
}
