# Every shell script can at least be read by the shell, and may be run: what begins with "#!" is one.
check_scripts() {
    local file
    matching '(^|/)[^/.]+$|\.sh$|^\.ci/run$' | while IFS= read -r file; do
        case $file in *.sh) ;; *)
            [ "$(head -c 2 "$file" | tr -d '\0')" = '#!' ] || continue
            [ -x "$file" ] || echo "$file: no run bit"
            ;;
        esac
        bash -n "$file" 2>&1
    done
}
mend_scripts() { echo "bash -n FILE shows the place; chmod +x gives the run bit"; }
