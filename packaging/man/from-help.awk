# SPDX-License-Identifier: MIT
# The manual page of loadboard-sim from what its --help says.
function plain(text) {
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    sub(/^[.']/, "\\\\\\&&", text)
    return text
}
function section(title) {
    if (raw) print ".fi"
    raw = 0
    print ".SH " toupper(title)
}
BEGIN {
    print ".\\\" SPDX-License-Identifier: MIT"
    print ".TH LOADBOARD-SIM 1 2026-11-22 \"zor " version "\" \"User Commands\""
    print ".SH NAME\nloadboard\\-sim \\- a LoadBoard for radio chips, in software"
    print ".SH SYNOPSIS\n.B loadboard\\-sim\n[\\fIOPTION\\fR]..."
    print ".SH DESCRIPTION"
}
/^Usage:/ { getline; next }
/^Options:$/ { section("options"); options = 1; next }
options && /^  --/ {
    name = $1
    text = substr($0, 3)
    value = substr(text, length(name) + 2)
    # The meaning begins behind a run of blanks, or at its column where the name reaches that.
    at = match(value, /  +[^ ]/)
    meaning = at ? substr(value, at) : substr(text, 24)
    value = at ? substr(value, 1, at - 1) : substr(text, length(name) + 2, 24 - length(name) - 2)
    gsub(/^ +| +$/, "", meaning)
    gsub(/^ +| +$/, "", value)
    print ".TP\n\\fB" plain(name) "\\fR" (value == "" ? "" : " \\fI" plain(value) "\\fR")
    print plain(meaning)
    next
}
options && /^$/ { options = 0; next }
/^Kinds of boards:$/ { section("kinds of boards"); print ".nf"; raw = 1; next }
/^Statements of --control/ { section("statements of --control"); print "One a line:\n.PP\n.nf"; raw = 1; next }
/^Examples:$/ { section("examples"); print ".nf"; raw = 1; next }
/^The wire: / { section("the wire"); sub(/^The wire: a/, "A") }
/^The air: / { section("the air"); sub(/^The air: w/, "W") }
/^The trace shows/ { section("the trace") }
/^Exit status: / { section("exit status"); sub(/^Exit status: /, "") }
/^  / && !raw { print ".nf"; raw = 1 }
/^$/ { if (!raw) blank = 1; else print ""; next }
{ if (blank && !/^  /) print ""; blank = 0; print plain($0) }
END {
    if (raw) print ".fi"
    print ".SH SEE ALSO\n.BR zor (1)"
}
