# An error is swallowed by IgnoringErrors, by name. A catch block stands in src/ only where these rows say
# why; elsewhere, where the errors of other libraries have to be taken, it may not be empty.
catch_exceptions='
src/platform/error.h              IgnoringErrors itself
src/report/report_fetch.cpp       a failed fetch ends in Result
src/report/report_object.cpp      the drill-down says its failure in a message; the window closes before an error goes on
src/services/item_lookup.cpp      a failing lookup is told as a missing right
src/services/system_profile.cpp   the failure of a statement goes on under the name of the connection, with its text translated
src/dialogs/plain_dialog.cpp      a failing frame option is told in a message, and the dialog still comes up
'

check_errors() {
    matching '^src/.*\.(h|cpp)$' | excepting "$catch_exceptions" | xargs -r grep -nE '\bcatch *\(' /dev/null
    matching '^(frames|embedded|viewer)/.*\.(h|cpp)$' | xargs -r awk '
        open && /^ *}/ { print open }
        { open = "" }
        /catch *\([^)]*\) *{ *(\/\/.*)?$/ { open = FILENAME ":" FNR ": " $0 }
        /catch *\([^)]*\) *{ *}/ { print FILENAME ":" FNR ": " $0 }'
}
mend_errors() {
    echo "IgnoringErrors([&]{ ... }); a true exception stands, with its reason, in tools/lint.d/errors.sh"
}
