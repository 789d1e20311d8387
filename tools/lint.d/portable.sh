# src/ is portable C++20: standard headers and its own, nothing conditional, nothing of a platform.
standard_headers='algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv
chrono cinttypes climits clocale cmath compare complex concepts condition_variable coroutine csetjmp csignal
cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem
format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator
latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
stop_token streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
typeinfo unordered_map unordered_set utility valarray variant vector version'

check_portable() {
    matching '^src/.*\.(h|cpp)$' | xargs -r awk -v headers="$standard_headers" '
        BEGIN {
            count = split(headers, word, /[ \n]+/)
            for (i = 1; i <= count; ++i) standard[word[i]] = 1
        }
        match($0, /^ *# *include *<[^>]+>/) {
            header = $0; sub(/^[^<]*</, "", header); sub(/>.*/, "", header)
            if (!(header in standard)) print FILENAME ":" FNR ": <" header "> is no standard header"
            next
        }
        /^ *# *(if|ifdef|ifndef|elif|else|define|undef)/ { print FILENAME ":" FNR ": " $0 }'
}
mend_portable() { echo "what depends on a platform belongs behind an interface of src/platform; macros are for no one"; }
