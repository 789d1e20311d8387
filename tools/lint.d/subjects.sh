# A commit's first line says what changed: a sentence without a full stop, at most 120 characters long.
check_subjects() {
    [ -e .git ] || return 0
    git -c safe.directory='*' log --no-merges --format='%h %s' | awk '
        { subject = substr($0, index($0, " ") + 1) }
        length(subject) > 120 { print $0 ": longer than 120 characters" }
        subject ~ /\.$/ { print $0 ": ends in a full stop" }
        subject ~ /^([a-z]|WIP|fixup!|squash!)/ { print $0 ": is no finished sentence" }'
    git -c safe.directory='*' log --format='%h %s %b' | grep -iE "$foreign_words"
}
mend_subjects() { echo "git commit --amend, or git rebase -i, before it is delivered"; }
