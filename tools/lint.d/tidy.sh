# clang-tidy over src/, with the checks of .clang-tidy. Needs the release build's compile commands.
check_tidy() {
    [ -f build/compile_commands.json ] || { echo "no build/compile_commands.json: cmake --preset release"; return; }
    run-clang-tidy -quiet -p build -j "$(nproc)" -extra-arg=-w "^$PWD/src/.*" 2>/dev/null |
        sed 's/\x1b\[[0-9;]*m//g' | grep -E '(warning|error): ' | sort -u
}
mend_tidy() { echo "change the code; // NOLINT(check-name) with a reason where the check is wrong"; }
