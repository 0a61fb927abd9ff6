# The checks of "./test lint". Each prints its findings and fails if there are any.

LINT_CHECKS=(format warnings tidy shellcheck ruff)

lint_format() {
    find . -path ./build -prune -o '(' -name '*.cpp' -o -name '*.h' ')' -print0 |
        xargs -0 clang-format --dry-run --Werror
}

lint_warnings() {
    build lint
}

# clang-tidy takes several seconds per file, so it checks only what the branch has changed.
lint_tidy() {
    local base patterns
    base=$(base_of_changes)
    # It expects patterns that match whole paths.
    patterns=$(git diff --name-only --diff-filter=d "$base" -- '*.cpp' '*.h' | units_of | sed "s|.*|^$PWD/&$|")
    if [[ -z $patterns ]]; then
        return
    fi
    configure lint
    # It prints the number of warnings in system headers to stderr.
    xargs -d '\n' run-clang-tidy -quiet -p build/lint -j "$(nproc)" <<<"$patterns" 2>/dev/null
}

# A bash script is recognized by its name or its first line.
lint_shellcheck() {
    {
        find . -path ./build -prune -o -name '*.sh' -print0
        grep -rlIZ --exclude-dir=build --exclude-dir=.git '^#!/bin/bash$' .
    } | xargs -0 shellcheck
}

# Debian has no ruff yet. There, flake8 runs the checks that ruff runs by default.
lint_ruff() {
    if command -v ruff >/dev/null; then
        ruff check --quiet --no-cache .
    else
        echo "skipped: ruff is not installed; flake8 runs the same checks" >&2
        flake8 --extend-exclude=build --select=E4,E7,E9,F .
    fi
}

# The commit where the branch left main; on main itself, the last commit but one.
base_of_changes() {
    local base
    base=$(git merge-base HEAD main 2>/dev/null || git merge-base HEAD origin/main) || return
    if [[ $base == "$(git rev-parse HEAD)" ]]; then
        base=HEAD~1
    fi
    echo "$base"
}

# Maps changed files to the .cpp files through which clang-tidy sees them. For a header that is the .cpp file with its
# name, or one that includes it.
units_of() {
    local file
    while read -r file; do
        if [[ $file == *.cpp ]]; then
            echo "$file"
        elif [[ -f ${file%.h}.cpp ]]; then
            echo "${file%.h}.cpp"
        else
            git grep -l --fixed-strings "#include \"$file\"" -- '*.cpp' | sed -n 1p
        fi
    done | sort -u
}

# lint [CHECK...]: runs the named checks, or all of them.
lint() {
    local check checks=("$@")
    if ((${#checks[@]} == 0)); then
        checks=("${LINT_CHECKS[@]}")
    fi
    for check in "${checks[@]}"; do
        echo "lint: $check" >&2
        "lint_$check"
    done
}
