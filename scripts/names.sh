#!/bin/sh
# Holds that every name stands for one thing.  scripts/names.sh [BUILD]
# Of two classes, or two inline functions, of one name in two files the linker takes one for both and says nothing: a
# program then works on the wrong one, or falls. So no name that leaves its file (it stands in no unnamed namespace) may be
# defined in two files of the sources, and no function in two objects of the libraries in BUILD.
# The sources are read as clang-format writes them: what stands in a namespace begins its line, and the last line of a
# namespace says what it ends.
set -eu
cd "$(dirname "$0")/.."

# Writes "name file:line" for every class, and every function or value that the linker may take from one file for another.
names_of_sources() {
  find src tests bench \( -name '*.cpp' -o -name '*.h' \) | sort | xargs awk '
    function define(name) { print scope name, FILENAME ":" FNR }
    function begin(name) { outer[depth++] = scope; scope = scope (name == "" ? "(unnamed)" : name) "::" }
    function check_end() { if (depth) print "-", last ": a namespace is left open; end it with \"}  // namespace\"" }
    FNR == 1 { check_end(); depth = 0; scope = ""; template = 0 }
    { last = FILENAME }
    /^namespace .*\{$/ { begin(substr($0, 11, length($0) - 12)); begun = FNR; next }
    /^\}  \/\/ namespace/ || /^\}$/ && FNR == begun + 2 { scope = outer[--depth]; next }
    index(scope, "(unnamed)") { next }
    /^template/ && !/\(/ { template = 1; next }
    /^(class|struct|union|enum) / && !/^[^{]*[;(]/ {
      sub(/^(enum class|class|struct|union|enum) (\[\[[a-z]*\]\] )?/, "")
      match($0, /^[A-Za-z_0-9:<>]+/)
      define(substr($0, 1, RLENGTH))
    }
    /^inline .*[=({]/ || /^(constexpr|template)[^=]*\(/ || template && /\(/ {
      match($0, /[A-Za-z_0-9:]+ ?[=({\[]/)
      define(substr($0, RSTART, RLENGTH - 1))
    }
    { template = 0 }
    END { check_end() }'
}

# Writes "name library(object)" for every function and variable of the libraries.
names_of_libraries() {
  nm -A --defined-only "$1"/lib*.a 2>/dev/null |
    awk '$2 ~ /^[TDBR]$/ { sub(/.*\//, "", $1); split($1, place, ":"); print $3, place[1] "(" place[2] ")" }'
}

# Of lines "name place", says whose name stands in two places (lines of one file are one place), or cannot be read.
find_twice() {
  awk '
    { file = $2; sub(/:[0-9]*$/, "", file) }
    $1 == "-" { sub(/^- /, ""); print; next }
    !($1 in home) { home[$1] = file; first[$1] = $2; next }
    home[$1] != file { print $1 " is defined in " first[$1] " and in " $2 ": give one of them another name" }'
}

found=$(
  names_of_sources | find_twice
  [ $# -eq 0 ] || names_of_libraries "$1" | find_twice | c++filt
)
[ -z "$found" ] || { echo "$found" >&2; exit 1; }
echo "Every name stands for one thing."
