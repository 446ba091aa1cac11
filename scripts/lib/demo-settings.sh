# shellcheck shell=bash
# Makes a settings folder that holds the example list, for pictures of the program.
# Needs lib/common.sh.

# entry KEY ELEMENT TEXT: prints an entry of a settings file.
entry() {
    printf '\t<key>%s</key>\n\t<%s>%s</%s>\n' "$1" "$2" "$3" "$2"
}

# epoch ROW: prints the stored text of an epoch; ROW is its row in the popup, counted from 0.
epoch() {
    printf '{"epochPopup":%d,"epochDate":"2000-01-01"}' "$1"
}

# list_entries FILE: prints the entries for the rows of a tab-separated list.
list_entries() {
    local ra dec _ rows=0
    while IFS=$'\t' read -r ra dec _; do
        entry "Contents.RA.$rows" string "$ra"
        entry "Contents.Dec.$rows" string "$dec"
        rows=$((rows + 1))
    done <"$1"
    entry nContents integer "$rows"
}

# make_demo_settings FOLDER: replaces the folder, which can then serve as XDG_CONFIG_HOME, by one
# with the example list, precessed from J2000.0 to B1950.0.
make_demo_settings() {
    rm -rf "$1"
    mkdir -p "$1/Skyvert"
    {
        printf '<?xml version="1.0" encoding="UTF-8"?>\n<xmldict version="1.1">\n'
        entry fromEpochA string "$(epoch 2)"
        entry toEpochA string "$(epoch 1)"
        entry inFormat string $'HH:MM:SS\t+DD:MM:SS\tN\t2\t1'
        entry outFormat string $'HH MM SS\t+DD MM SS\tN\t2\t1'
        list_entries examples/messier_j2000.tsv
        printf '</xmldict>\n'
    } >"$1/Skyvert/Preferences.xml"
}
