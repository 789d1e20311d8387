# The text speaks of accounts, reports and hosts: not of the papers, tickets and tools that it came from.
# (Letters in brackets keep these lines from finding themselves.)
foreign_words='\bs[p]ec(\.md|ification|s)?\b|\bP[a]rts? [1-7]\.[0-9]|\b[i]ssue #?[0-9]+|/w[o]rk/|/f[a]rm/|/tm[p]/wt|s[h]ared/(design|style|settled|conversations|windows)|\bC[E]O\b|\b(a[i]|language) (assistant|model)s?\b|\b(cl[a]ude|anthr[o]pic|op[e]nai|chat[g]pt|c[o]pilot)\b'

check_words() {
    matching . | xargs -r -d '\n' grep -nIiE "$foreign_words" /dev/null
}
mend_words() { echo "say what the system does and why, as its own developer would"; }
