#!/usr/bin/env bash
# The one script of this tree. On a bare Debian 12 it installs what is missing, configures, builds and runs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# What runs from here has a registry and data of its own, not the machine's and the user's.
export HX_DATA=${HX_DATA:-$PWD/build/data}
export HX_REGISTRY=${HX_REGISTRY:-$PWD/build/registry}

usage() {
    cat <<'TEXT'
usage: ./hx COMMAND
  demo                     the main job, end to end; the window at its end needs a screen, else there are pictures
  test [PRESET...]         builds and runs all tests; PRESET: release (if left out), debug, asan, tsan
  bench [ARGS...]          compares speed with other libraries and prints ratios; --markdown FILE writes the tables
  fuzz TARGET [SECONDS]    feeds a target with arbitrary input (600 s if left out); TARGET: xml_document,
                           tagged_reader, tagged_optional_reader, resource_script, chain_document,
                           registration_script, registry_filers, records, properties, preset_file
  package [FOLDER]         builds the Debian packages and puts them into FOLDER (build/packages if left out)
  docs                     writes docs/settings_format.md, from the tables of the records
  lint                     clang-format and clang-tidy over the whole tree
  ctl ARGS...              runs hxctl
TEXT
}

TOOLS=(g++ cmake ninja-build)
LIBRARIES=(libcli11-dev nlohmann-json3-dev libsqlite3-dev libicu-dev qt6-base-dev fonts-dejavu-core)
TESTING=(libgtest-dev librapidcheck-dev binutils pkgconf dpkg-dev file)
BENCHING=(libpugixml-dev libtinyxml2-dev libexpat1-dev libxml2-dev libcereal-dev libboost-dev
          libboost-serialization-dev)
FUZZING=(clang libclang-rt-14-dev)
PACKAGING=(dpkg-dev file desktop-file-utils appstream groff-base)
LINTING=(clang-format clang-tidy git)

# Installs those of the given packages that are missing, and says so.
need() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { echo "hx: missing: ${missing[*]}; install them, or sudo" >&2; exit 1; }
        as_root=(sudo)
    fi
    echo "hx: installing ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -q >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qy --no-install-recommends "${missing[@]}" >&2
}

# build PRESET [TARGET...]; what the build prints goes to standard error, and nothing if nothing is to be done.
build() {
    local folder=build/$1
    [ -f "$folder/build.ninja" ] || cmake --preset "$1" >&2
    shift
    ninja -C "$folder" -n "$@" | grep -q 'no work to do' || ninja -C "$folder" "$@" >&2
}

hxctl() { build/release/bin/hxctl "$@"; }

run_demo() {
    need "${TOOLS[@]}" "${LIBRARIES[@]}"
    configure_without_tests release
    build release hxctl hxhost HXScannerCtrls
    local examples=docs/examples step=0
    say() { step=$((step + 1)); printf '\n%s. %s\n' "$step" "$1"; }
    say "A new connection settings object, created through HXScannerCtrls.so, and its text:"
    hxctl settings new --type 257
    local version
    for version in 0 1 2; do
        say "A document of version $version ($examples/connection_version_$version.xml), read and written again:"
        hxctl settings convert --type 257 "$examples/connection_version_$version.xml"
    done
    local refused
    for refused in bad_server_ip newer_version not_xml; do
        say "A document that is refused ($examples/refused_$refused.xml):"
        hxctl settings check --type 257 "$examples/refused_$refused.xml" && exit 1
        hxctl xml "$examples/refused_$refused.xml" || true
    done
    say "A null text resets the object:"
    hxctl settings check --type 257
    demo_records
    local tag
    say "The same error in five languages ($examples/profile_name_contains.xml):"
    for tag in en-US de-DE fr-FR es-ES ja-JP; do
        hxctl exception "$examples/profile_name_contains.xml" --locale "$tag" | sed '/^Error codes:/,$d'
        echo
    done
    say "A failure that another component tells of, in its own words ($examples/remote_failure.xml):"
    hxctl exception "$examples/remote_failure.xml" --locale en-US
    say "The registry keys of the suite, and one that is set:"
    hxctl keys list
    hxctl keys set 79 true
    hxctl keys get 79
    demo_classes
    demo_scanner
    demo_log
    demo_page
}

# The component classes in a registry of their own: what is written when they are registered, and what stays of it.
demo_classes() {
    local folder
    folder=$(mktemp -d build/demo-XXXXXX)
    classes() { HX_REGISTRY=$folder/registry HX_DATA=$folder/data hxctl "$@"; }
    say "The component libraries are registered ($folder), and their classes are listed:"
    classes register
    classes classes
    say "The keys that they have in the registry:"
    classes classes --tree
    say "Unregistered again, they leave one path of keys:"
    classes unregister
    classes classes --tree
    rm -r "$folder"
}

# The main job: the pages in the desktop host, whose window and profiles are the next time as they were left. Without a
# screen they are worked by scripts, each with the profiles that a scanner is delivered with, and pictures are taken.
demo_page() {
    local folder=build/demo-page data=build/demo-page/data key script page
    in_demo() { HX_REGISTRY=$folder/registry HX_DATA=$data "$@"; }
    say "Filters, Detect, the gains, the speed and the field of view are switched on for the pages ($folder):"
    for key in 77 78 79 88 89; do in_demo hxctl keys set "$key" true; done
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        say "The pages in the desktop host; the demo ends when its window is closed."
        local ended=0
        in_demo build/release/bin/hxhost || ended=$?
        [ "$ended" -eq 3 ] || return "$ended"  # 3: there is no screen
        echo "The host's window could not be opened: the pages are shown without a screen."
    fi
    data=$folder/scripted
    for script in first_session modified_profile failing_scanner; do
        rm -rf "$data"
        say "The measurement page, worked by a script ($examples/$script.page, explained in docs/scripting.md):"
        # 1 is for a line that was refused, as one of them is where the scanner fails.
        in_demo hxctl page measurement --script "$examples/$script.page" || [ $? -eq 1 ]
    done
    for page in handheld diagnostics; do
        say "The $page page, worked by a script ($examples/$page.page):"
        in_demo hxctl page "$page" --script "$examples/$page.page" || [ $? -eq 1 ]
    done
    say "A report for whoever is to help, without serial numbers (docs/report.md):"
    in_demo hxctl report
    say "Pictures: each page by itself, and in the desktop host, in light and dark colours:"
    rm -rf "$data"
    for page in measurement handheld diagnostics; do in_demo hxctl screenshot "$page" "build/$page.png"; done
    in_demo build/release/bin/hxhost --picture build/hxhost.png && echo build/hxhost.png
    in_demo build/release/bin/hxhost --picture build/hxhost_dark.png --dark --locale de-DE && echo build/hxhost_dark.png
}

# A scanner that is not there, in a folder of its own: its presets, a session that loses the connection, and what the
# exposure does.
demo_scanner() {
    local folder
    folder=$(mktemp -d build/demo-XXXXXX)
    scanner() { HX_REGISTRY=$folder/registry HX_DATA=$folder/data hxctl scanner "$@"; }
    say "The scanners that can be simulated, what may lie before them, and what can be made to fail:"
    scanner list
    say "The presets that a scanner is delivered with:"
    scanner presets list
    say "A new preset is stored, and selected:"
    scanner presets save "Dark castings" --from '$DEFAULT' --exposure 1200 --select
    scanner presets list
    say "The scanner tracks for two seconds at an exposure of 150 us; half way the connection is lost and comes back:"
    scanner track --exposure 150 --drop --calls
    say "The same at 1500 us: ten times the exposure is ten times the signal, and the strongest of it is too strong:"
    scanner track --exposure 1500
    say "What the preview shows of a surface under the laser, at the right exposure, at too little and at too much:"
    local exposure
    for exposure in 800 200 4000; do
        HX_REGISTRY=$folder/registry HX_DATA=$folder/data hxctl screenshot preview "build/preview_$exposure.png" \
            --surface waves --exposure "$exposure" --scale 2
    done
    say "A scanner that somebody else holds:"
    scanner track --fault AcquireHandle=E_ACCESSDENIED && exit 1
    rm -r "$folder"
}

# Documents of older releases into JSON and back, those of newer ones, and one of unknown kind.
demo_records() {
    local kind file class
    while read -r file class kind; do
        say "$kind ($examples/$file.xml) as JSON..."
        hxctl inspect "$examples/$file.xml" --record "$class"
        echo "... and as it is written now:"
        hxctl inspect "$examples/$file.xml" --record "$class" --rewrite
    done <<'TEXT'
profile_version_1 MLaserProfileSettings A profile of version 1
zrd_version_6 ZRDMeasurementSettings Hardware settings of version 6, with the trigger settings of that time
properties_hx MPropertiesHelper The properties of a driver and its device
TEXT
    for file in refused_newer_profile properties_newer_version; do
        say "A record of a newer version is refused ($examples/$file.xml):"
        hxctl inspect "$examples/$file.xml" && exit 1
    done
    say "A document of unknown kind ($examples/unknown_kind.xml):"
    hxctl inspect "$examples/unknown_kind.xml"
}

# In a folder of its own: a start with a damaged store, which the log tells of, and one that rolls over.
demo_log() {
    local folder i
    folder=$(mktemp -d build/demo-XXXXXX)
    local logs=$folder/data/Orvel/Logs
    in_folder() { HX_REGISTRY=$folder/registry HX_DATA=$folder/data hxctl "$@"; }
    mkdir -p "$folder/registry" "$logs"
    printf 'no store' >"$folder/registry/machine.registry"
    say "A start with a damaged registry store: the log has its header and one error."
    in_folder settings new --type 257 >"$folder/settings.xml"
    in_folder log
    for i in $(seq -w 1 12); do : >"$logs/HXScannerCtrls_20240131_2359$i.log"; done
    say "The logs are rolled over at the next start; of these..."
    ls "$logs"
    sleep 1  # a log is named after the second of its start
    in_folder settings new --type 257 >"$folder/settings.xml"
    echo "... the ten newest stay:"
    ls "$logs"
    rm -r "$folder"
}

# The demo alone needs no test framework; a tree that was configured with it keeps it.
configure_without_tests() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" -DHX_TESTS=OFF >&2
}

run_tests() {
    need "${TOOLS[@]}" "${LIBRARIES[@]}" "${TESTING[@]}"
    [ $# -gt 0 ] || set -- release
    # Windows of tests are on no screen, whatever the desktop says.
    export QT_QPA_PLATFORM=offscreen
    export LSAN_OPTIONS=${LSAN_OPTIONS:-suppressions=$PWD/tests/leaks.supp:print_suppressions=0}
    local preset
    for preset in "$@"; do
        cmake --preset "$preset" -DHX_TESTS=ON >&2
        build "$preset"
        ctest --test-dir "build/$preset" --output-on-failure -j "$(nproc)"
    done
}

run_fuzz() {
    [ $# -ge 1 ] || { usage >&2; exit 2; }
    need "${TOOLS[@]}" "${LIBRARIES[@]}" "${FUZZING[@]}"
    build fuzz "fuzz_$1"
    local seeds=build/fuzz/seeds/$1
    mkdir -p "build/fuzz/corpus/$1" "$seeds"
    golden_seeds "$1" "$seeds"
    # The words of the target's language; most read XML.
    local dictionary=fuzz/$1.dict
    [ -f "$dictionary" ] || dictionary=fuzz/xml.dict
    "build/fuzz/bin/fuzz_$1" -max_total_time="${2:-600}" -timeout=20 -dict="$dictionary" \
        -artifact_prefix="build/fuzz/$1-" "build/fuzz/corpus/$1" "fuzz/inputs/$1" "$seeds"
}

# The golden documents are seeds of what reads records.
golden_seeds() {
    local document class reader
    case "$1" in
        records)
            for document in tests/golden/*/*.xml; do
                class=$(basename "$(dirname "$document")")
                for reader in strict optional; do
                    { echo "${reader:0:1}$class"; cat "$document"; } >"$2/$class-$(basename "$document")-$reader"
                done
            done
            ;;
        properties) cp tests/golden/MPropertiesHelper/*.xml docs/examples/properties_*.xml "$2" ;;
    esac
}

# The same commit gives the same packages: times in them are those of the commit.
run_package() {
    need "${TOOLS[@]}" "${LIBRARIES[@]}" "${PACKAGING[@]}"
    local folder=${1:-build/packages} staging=build/package/packages page
    export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct 2>/dev/null || date +%s)}
    desktop-file-validate packaging/desktop/hxhost.desktop
    appstreamcli validate --no-net packaging/desktop/hxhost.metainfo.xml >&2
    build package
    for page in build/package/packaging/*.[18]; do
        [ -z "$(groff -man -Tutf8 -ww -z "$page" 2>&1 | tee /dev/stderr)" ]
    done
    rm -rf "$staging"
    cpack --config build/package/CPackConfig.cmake -B "$staging" >&2
    mkdir -p "$folder"
    rm -f "$folder"/hxscannerctrls*.deb
    mv "$staging"/*.deb "$folder"
    ls "$folder"/*.deb
}

# Written aside and then moved: a build that fails leaves the document as it is.
run_docs() {
    need "${TOOLS[@]}" "${LIBRARIES[@]}"
    configure_without_tests release
    build release hxctl HXScannerCtrls
    local written
    written=$(mktemp docs/settings_format.XXXXXX)
    hxctl format >"$written" || { rm "$written"; exit 1; }
    chmod 644 "$written"
    mv "$written" docs/settings_format.md
}

run_lint() {
    need "${TOOLS[@]}" "${LIBRARIES[@]}" "${FUZZING[@]}" "${LINTING[@]}"
    git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
    # The preset that builds with clang knows no flag that clang-tidy does not.
    cmake --preset fuzz >&2
    git ls-files '*.cpp' | grep -vE '^(bench|fuzz|packaging|tests)/' | xargs -P "$(nproc)" -n 1 clang-tidy --quiet -p build/fuzz
}

command=${1:-}
[ $# -eq 0 ] || shift
case "$command" in
    demo) run_demo ;;
    test) run_tests "$@" ;;
    bench)
        need "${TOOLS[@]}" "${LIBRARIES[@]}" "${BENCHING[@]}"
        build bench hxbench
        build/bench/bin/hxbench "$@"
        ;;
    fuzz) run_fuzz "$@" ;;
    package) run_package "$@" ;;
    docs) run_docs ;;
    lint) run_lint ;;
    ctl)
        need "${TOOLS[@]}" "${LIBRARIES[@]}"
        configure_without_tests release
        build release hxctl HXScannerCtrls
        hxctl "$@"
        ;;
    help | --help | -h) usage ;;
    *)
        usage >&2
        exit 2
        ;;
esac
