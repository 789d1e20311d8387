# Nothing but the conversions parses a number or a date, so that every text is read in one way.
parsers='sto(i|l|ul|ll|ull|f|d|ld)|strto(d|f|ld|l|ul|ll|ull|imax|umax)|ato(i|l|ll|f)|v?f?sscanf|from_chars|strptime|get_time'

# Exceptions: a path, and why.
parsing_exceptions='
src/platform/conversions    the conversions themselves
'

check_parsing() {
    matching '^(src|frames|embedded|viewer)/.*\.(h|cpp)$' | excepting "$parsing_exceptions" |
        xargs -r grep -nEw "(std::)?($parsers)" /dev/null
}
mend_parsing() { echo "use the conversions of platform/conversions.h; a true exception stands, with its reason, in tools/lint.d/parsing.sh"; }

# Takes the paths that begin as a row of the table does out of the list on standard input.
excepting() {
    awk -v table="$1" '
        BEGIN {
            count = split(table, line, "\n")
            for (i = 1; i <= count; ++i) {
                split(line[i], word, " ")
                if (word[1] != "") exception[word[1]] = 1
            }
        }
        { for (path in exception) if (index($0, path) == 1) next; print }'
}
