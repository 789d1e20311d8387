# Every C++ file looks as clang-format leaves it.
check_format() {
    command -v clang-format >/dev/null || { echo "clang-format is not installed (tools/setup check)"; return; }
    matching "$sources" | xargs -r -P "$(nproc)" -n 16 clang-format --dry-run -Werror 2>&1 |
        grep -oE '^[^:]+:[0-9]+:[0-9]+: error: .*' | sort
}
mend_format() { echo "tools/lint --fix"; }
