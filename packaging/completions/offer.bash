# Takes what compgen takes. Also a Mac's own bash, which is old, can do this.
_tervale_offer() {
    local word
    while IFS= read -r word; do
        COMPREPLY+=("$word")
    done < <(compgen "$@")
}

# Offers the files that the word may become.
_tervale_offer_files() {
    compopt -o filenames 2>/dev/null
    _tervale_offer -f -- "$1"
}
