# A commit's first line says what changed: a sentence without a full stop, at most 120 characters long. Looks
# at the last commit and at those that are not delivered yet; the words are looked for in all of them.
check_subjects() {
    [ -e .git ] || return 0
    local delivered=HEAD branch
    for branch in main origin/main; do
        git -c safe.directory='*' rev-parse --quiet --verify "$branch" >/dev/null && delivered=$branch
    done
    {
        git_log -1 --format='%h %s' HEAD
        git_log --format='%h %s' "$delivered..HEAD"
    } | sort -u | awk '
        { subject = substr($0, index($0, " ") + 1) }
        length(subject) > 120 { print $0 ": longer than 120 characters" }
        subject ~ /\.$/ { print $0 ": ends in a full stop" }
        subject ~ /^(WIP|wip|fixup!|squash!)/ { print $0 ": is no finished step" }'
    git_log --format='%h %s %b' HEAD | grep -iE "$foreign_words"
}
mend_subjects() { echo "git commit --amend, or git rebase -i, before it is delivered"; }

git_log() { git -c safe.directory='*' log --no-merges "$@"; }
