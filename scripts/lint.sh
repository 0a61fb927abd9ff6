# The checks of "./test lint": each says what it finds, and fails when it finds something.

lint_format() {
    find . -path ./build -prune -o '(' -name '*.cpp' -o -name '*.h' ')' -print0 |
        xargs -0 clang-format --dry-run --Werror
}

lint_warnings() {
    build lint
}

# clang-tidy takes several seconds a file, so it reads only what the branch changed.
lint_tidy() {
    local base changed units
    base=$(base_of_changes)
    changed=$(git diff --name-only --diff-filter=d "$base" -- '*.cpp' '*.h')
    units=$(units_of $changed)
    if [[ -z $units ]]; then
        return
    fi
    configure lint
    # It takes patterns for whole paths, and counts the warnings in headers of the system aloud.
    run-clang-tidy -quiet -p build/lint -j "$(nproc)" $(sed "s|.*|^$PWD/&$|" <<<"$units") 2>/dev/null
}

# Where the branch left main; on main itself, the commit before the last one.
base_of_changes() {
    local base
    base=$(git merge-base HEAD main 2>/dev/null || git merge-base HEAD origin/main) || return
    if [[ $base == "$(git rev-parse HEAD)" ]]; then
        base=HEAD~1
    fi
    echo "$base"
}

# units_of FILE...: the .cpp files by which clang-tidy sees these files: a header is seen by its own
# .cpp, else by one that includes it.
units_of() {
    local file
    for file in "$@"; do
        if [[ $file == *.cpp ]]; then
            echo "$file"
        elif [[ -f ${file%.h}.cpp ]]; then
            echo "${file%.h}.cpp"
        else
            git grep -l --fixed-strings "#include \"$file\"" -- '*.cpp' | sed -n 1p
        fi
    done | sort -u
}

# lint [CHECK...]: runs the named checks, all of them when none is named.
lint() {
    local check checks=("$@")
    if ((${#checks[@]} == 0)); then
        checks=(format warnings tidy)
    fi
    for check in "${checks[@]}"; do
        echo "lint: $check" >&2
        "lint_$check"
    done
}
