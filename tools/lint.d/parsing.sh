# Nothing but the conversions parses a number or a date, so that every text is read in one way.
parsers='sto(i|l|ul|ll|ull|f|d|ld)|strto(d|f|ld|l|ul|ll|ull|imax|umax)|ato(i|l|ll|f)|v?f?sscanf|from_chars|strptime|get_time'

parsing_exceptions='
src/platform/conversions    how values become one another
src/platform/number_text    numbers, for the conversions
src/platform/date_text      dates, for the conversions
'

check_parsing() {
    matching '^(src|frames|embedded|viewer)/.*\.(h|cpp)$' | excepting "$parsing_exceptions" |
        xargs -r grep -nEw "(std::)?($parsers)" /dev/null
}
mend_parsing() {
    echo "use platform/conversions.h; a true exception stands, with its reason, in tools/lint.d/parsing.sh"
}
