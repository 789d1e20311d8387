# An error is swallowed by IgnoringErrors, by name; a catch block stands only where these rows say why.
catch_exceptions='
src/platform/error.h    IgnoringErrors itself
'

check_errors() {
    matching '^(src|frames|embedded|viewer)/.*\.(h|cpp)$' | excepting "$catch_exceptions" |
        xargs -r grep -nE '\bcatch *\(' /dev/null
}
mend_errors() { echo "IgnoringErrors([&]{ ... }); a true exception stands, with its reason, in tools/lint.d/errors.sh"; }
