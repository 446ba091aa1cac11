# shellcheck shell=bash
# A settings folder with the example list in it, for pictures of the program at work.
# Needs lib/common.sh.

# entry KEY ELEMENT TEXT: one entry of a settings file.
entry() {
    printf '\t<key>%s</key>\n\t<%s>%s</%s>\n' "$1" "$2" "$3" "$2"
}

# epoch ROW: the stored text of a row of the epoch's choice, counted from 0.
epoch() {
    printf '{"epochPopup":%d,"epochDate":"2000-01-01"}' "$1"
}

# list_entries FILE: the rows of a tab-separated list.
list_entries() {
    local ra dec _ rows=0
    while IFS=$'\t' read -r ra dec _; do
        entry "Contents.RA.$rows" string "$ra"
        entry "Contents.Dec.$rows" string "$dec"
        rows=$((rows + 1))
    done <"$1"
    entry nContents integer "$rows"
}

# make_demo_settings FOLDER: makes the folder afresh, for use as XDG_CONFIG_HOME: the example list,
# from J2000.0 to B1950.0.
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
