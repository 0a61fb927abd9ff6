# Fetches Debian's source packages without changing the machine's own list of sources.

# The machine's Debian sources, as entries for source packages.
source_places() {
    local keyring=/usr/share/keyrings/debian-archive-keyring.gpg
    apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' |
        awk -v key="$keyring" '$1 == "Debian" { print "deb-src [signed-by=" key "]", $2, $3, $4 }' |
        sort -u
}

# fetch_source PACKAGE FOLDER: unpacks the newest PACKAGE, with Debian's patches, as FOLDER/source.
fetch_source() {
    local package=$1 folder=$2
    rm -rf "$folder/apt"
    mkdir -p "$folder/apt/lists/partial" "$folder/apt/unpacked"
    source_places >"$folder/apt/sources.list"
    local apt=(
        apt-get -q
        -o "Dir::Etc::sourcelist=$folder/apt/sources.list"
        -o Dir::Etc::sourceparts=/dev/null
        -o "Dir::State::lists=$folder/apt/lists"
        -o "Dir::Cache::pkgcache="
        -o "Dir::Cache::srcpkgcache="
        -o APT::Sandbox::User=root
    )
    "${apt[@]}" update
    (cd "$folder/apt/unpacked" && "${apt[@]}" source "$package")
    rm -rf "$folder/source"
    mv "$folder"/apt/unpacked/*/ "$folder/source"
    rm -rf "$folder/apt"
}
