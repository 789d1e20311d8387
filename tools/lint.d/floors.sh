# Who may include whom: a room, the paths that it is made of (the first line that fits counts), and the
# rooms that it may include beside itself. A report's host and its server components stand outside: they
# reach reports and dialogs late bound, by name, so viewer/ may not include them. Of the component for Windows,
# the border knows no window, and what is drawn knows neither the border nor a report.
floors='
platform  src/platform/
services  src/services/   platform
process   src/process/    platform services
tables    src/report/(column_table|condition_captions|identifier_table)[.]  platform services process
progress  src/progress/   platform services process
report    src/report/     platform services process tables progress
dialogs   src/dialogs/    platform services process tables report
reports   src/reports/    platform services process tables progress report dialogs
library   src/library     platform services process tables progress report dialogs reports
frames    frames/         platform services process
embedded  embedded/       platform services process frames
viewer    viewer/         platform services process tables library frames embedded
support   tests/
pictures  windows/pictures/  platform progress library handles drawn support
types     windows/types/     platform progress library
handles   windows/(handles|com_ptr|instance|module|prelude)[.]  types
border    windows/(bridge|class_factory|class_registration|com_object|dispatch_object|enumerator|errors|event_source|foreign_object|incoming_arguments|list_enumerator|member_ids|name_index|outward_objects|type_library|variants)[.]  platform progress types handles
component windows/(component_process|exports|registration|windows_platform)[.]  platform process library frames types handles border drawn
drawn     windows/        platform dialogs handles
'

# Prints "file:line: what" for each include of the given files that the table does not allow.
check_floors() {
    matching '^(src|frames|embedded|viewer|windows)/.*\.(h|cpp)$' | xargs -r awk -v table="$floors" -v paths="$all" '
        function room_of(path,   i) {
            for (i = 1; i <= rooms; ++i)
                if (path ~ "^" pattern[i]) return name[i]
            return ""
        }
        BEGIN {
            count = split(table, line, "\n")
            for (i = 1; i <= count; ++i) {
                if (split(line[i], word, " ") < 2) continue
                name[++rooms] = word[1]; pattern[rooms] = word[2]
                allowed[word[1], word[1]] = 1
                for (j = 3; j in word; ++j) allowed[word[1], word[j]] = 1
                delete word
            }
            count = split(paths, line, "\n")
            for (i = 1; i <= count; ++i) exists[line[i]] = 1
        }
        FNR == 1 {
            own = room_of(FILENAME)
            if (own == "") print FILENAME ":1: stands in no room"
        }
        own != "" && match($0, /^#include "[^"]+"/) {
            included = substr($0, RSTART + 10, RLENGTH - 11)
            target = included
            if (("src/" included) in exists) target = "src/" included
            else if (("tests/" included) in exists) target = "tests/" included
            if (!(target in exists)) { print FILENAME ":" FNR ": no file \"" included "\""; next }
            other = room_of(target)
            if (!((own, other) in allowed))
                print FILENAME ":" FNR ": " own " may not include " (other == "" ? "this" : other) ": " included
        }'
}
mend_floors() { echo "include floors below only (docs/architecture.md); the table is in tools/lint.d/floors.sh"; }
