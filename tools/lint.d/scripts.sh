# Every shell script can at least be read by the shell, and may be run.
check_scripts() {
    local file
    matching '^(run|check|\.ci/run|tools/.*)$' | while IFS= read -r file; do
        bash -n "$file" 2>&1
        case $file in *.sh) ;; *) [ -x "$file" ] || echo "$file: no run bit" ;; esac
    done
}
mend_scripts() { echo "bash -n FILE shows the place; chmod +x gives the run bit"; }
